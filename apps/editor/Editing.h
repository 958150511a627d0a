// Keeps the list, the pages and the edit session together: what is selected is read and shown, what the user does on a
// page or with a tool becomes a step of the session, and what the session says is shown in the list and on the page.
#pragma once

#include "apps/editor/EditSession.h"
#include "apps/editor/FilePages.h"
#include "apps/editor/FileTable.h"
#include "apps/editor/ManyPages.h"
#include "apps/editor/TagReader.h"

#include <QObject>
#include <string>
#include <vector>

namespace corvane::editor {

class Editing : public QObject {
    Q_OBJECT

public:
    enum class Shown { Nothing, OneFile, ManyFiles };

    // All of them must outlive this object.
    Editing(EditSession& session, FileTable& table, FilePages& pages, ManyPages& many);

    TagReader& reader() { return reader_; }

    // Shows these files. Many are read first, on another thread.
    void select(std::vector<std::string> paths);
    // Shows the same files anew, as they are now.
    void showAgain() { select(selected_); }
    const std::vector<std::string>& selected() const { return selected_; }
    // Those of them that can be edited now; none while they are being read.
    const std::vector<std::string>& editable() const { return editable_; }

    // One step for all editable files.
    void apply(const Tool& tool, const QString& text, const QString& key = {});
    // The same, where the tool also gets the place of the file in the selection, from 0.
    void applyNumbered(const std::function<FileTags(FileTags, int)>& tool, const QString& text);
    // All selected files: changes can be given up also when their file is gone.
    void revert();

Q_SIGNALS:
    // hint tells why nothing is shown.
    void shown(corvane::editor::Editing::Shown what, const QString& hint);

private:
    void showOne(const std::string& path);
    void readMany();
    void showMany(bool complete);
    void follow(const std::vector<std::string>& paths);
    void showInTable(const std::vector<std::string>& paths);

    EditSession& session_;
    FileTable& table_;
    FilePages& pages_;
    ManyPages& many_;
    TagReader reader_;
    std::vector<std::string> selected_, editable_;
    bool isFromPage_ = false; // the step was made on the page that shows it
};

} // namespace corvane::editor
