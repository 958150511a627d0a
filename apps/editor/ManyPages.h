// The editor of many files at once. The first page shows what the files have in common and writes into the tags that
// each file has; the second one is the ID3v1 control with all their ID3v1 tags. Only what the user touches is written.
#pragma once

#include "corvane/controls/Controls.h"
#include "corvane/controls/TrackedField.h"

#include "apps/editor/EditSession.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::controls {
class PicturePanel;
}

namespace corvane::editor {

// What becomes of the tags of one file.
using Tool = std::function<FileTags(FileTags)>;

class ManyPages : public QTabWidget {
    Q_OBJECT

public:
    // The session must outlive the pages.
    explicit ManyPages(EditSession& session, QWidget* parent = nullptr);

    // Shows files, which the session knows, as they are to be.
    void showFiles(std::vector<std::string> paths);
    // The same files anew, every field untouched.
    void refresh();
    void clear() { showFiles({}); }

Q_SIGNALS:
    // The user wants this for all files. field tells what it is about, so that further edits of it can be joined.
    void edited(const corvane::editor::Tool& tool, const QString& field);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr std::size_t kShownFields = 12; // all but the lyrics

    QWidget* makeCommonPage();
    QWidget* makeTextBox(Field field);
    QWidget* makeGenreBox();
    QWidget* makePictureBox();
    void addRow(QGridLayout& grid, int row, int column, const QString& text, Field field);
    QLineEdit& box(Field field) { return *boxes_[static_cast<std::size_t>(field)]; }

    void showField(Field field);
    void noteEdit(Field field, const QString& text);
    void paintFields();
    void showId3v1();
    void goToFirst();
    void takeId3v1();
    void wantId3v1(bool wanted);
    void emitEdit(const Tool& tool, const QString& field);

    EditSession& session_;
    std::vector<std::string> paths_;
    std::array<QLineEdit*, kShownFields> boxes_{};
    std::array<controls::TrackedField, kShownFields> fields_;
    QComboBox* genre_ = nullptr;
    controls::PicturePanel* picture_;
    QLabel* summary_;
    controls::ID3v1* id3v1_;
    std::array<std::optional<std::string>, kCommonFieldCount> editedId3v1_; // what the user has put there
    bool isId3v1Shown_ = false;
    bool showing_ = false; // values are being shown, which is no edit
};

} // namespace corvane::editor
