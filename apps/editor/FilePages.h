// Everything about one file on pages: its ID3v2 and ID3v1 tags in the editor controls, its Lyrics3 tag, its technical
// data, its XML document.
#pragma once

#include "corvane/controls/Controls.h"

#include "apps/editor/FileTags.h"
#include "apps/editor/OpenedFile.h"
#include "apps/editor/TechnicalView.h"
#include "apps/editor/XmlView.h"

#include <QTabWidget>
#include <memory>
#include <string>

namespace corvane::editor {

class FilePages : public QTabWidget {
    Q_OBJECT

public:
    explicit FilePages(QWidget* parent = nullptr);

    // Shows a file with the tags that it is to have. Gives the reason when the file cannot be read, else "".
    QString showFile(const std::string& path, const FileTags* wanted = nullptr);
    void clear();

    // Whether the ID3v2 page lists all frames.
    void showFrames(bool on) { id3v2_->FrameListVisible(on); }

    const std::string& path() const { return path_; }
    // The tags as the file has them.
    const FileTags& tagsInFile() const { return file_->tags(); }

Q_SIGNALS:
    // The user has changed a value; field tells which one, so that further edits of it can be joined.
    void edited(const corvane::editor::FileTags& wanted, const QString& field);

private:
    QWidget* scrolled(QWidget* page);
    void show(const FileTags& wanted);
    void showId3v2(const TagValues& wanted);
    void checkId3v2(bool wanted);
    void followValues(const TagValues& now);
    void takeId3v1();
    void takeId3v2();
    void take(const FileTags& wanted, const QString& field);

    controls::ID3v2* id3v2_;
    controls::ID3v1* id3v1_;
    controls::Lyrics* lyrics_;
    TechnicalView* technical_;
    XmlView* xml_;

    std::string path_;
    std::unique_ptr<OpenedFile> file_;
    std::shared_ptr<ID3V2Tag> shownId3v2_;
    TagValues seenId3v1_, seenId3v2_; // what the controls said last
    FileTags wanted_;
    bool showing_ = false; // values are being shown, which is no edit
};

} // namespace corvane::editor
