// What the tests of the ID3v2 editor have in common: files with tags, and the editor that is given them.
#pragma once

#include "corvane/controls/GenreBox.h"
#include "corvane/controls/ID3v2.h"
#include "corvane/controls/PicturePanel.h"
#include "corvane/core/FileHandler.h"

#include "tests/controls/Hand.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTreeWidget>
#include <array>
#include <memory>

namespace corvane::test {

struct Shown {
    const char* box;
    const char* frame; // of ID3v2.3
    const char* text;
};

inline constexpr std::array kShown{
    Shown{"txtTitle", "TIT2", "A title"},        Shown{"txtArtist", "TPE1", "An artist"},
    Shown{"txtAlbum", "TALB", "An album"},       Shown{"txtYear", "TYER", "1999"},
    Shown{"txtTrack", "TRCK", "3/12"},           Shown{"txtComposer", "TCOM", "A composer"},
    Shown{"txtOriginalArtist", "TOPE", "Other"}, Shown{"txtCopyright", "TCOP", "2026 Somebody"},
    Shown{"txtEncodedBy", "TENC", "An encoder"}};

inline constexpr std::array kBoxes{"txtTitle",     "txtArtist",   "txtAlbum",          "txtYear",      "txtTrack",
                                   "txtComment",   "txtComposer", "txtOriginalArtist", "txtCopyright", "txtURL",
                                   "txtEncodedBy", "txtLyrics",   "txtSyncedLyrics"};

inline Id3v2Builder fullTag() {
    Id3v2Builder builder;
    for (const Shown& shown : kShown) builder.text(shown.frame, shown.text);
    builder.text("TCON", "(17)Rock");
    builder.frame("COMM", commentFrame("", "A comment"));
    builder.frame("COMM", commentFrame("MusicMatch_Mood", "Good"));
    builder.frame("WXXX", userUrlFrame("", "https://example.org/"));
    builder.frame("USLT", commentFrame("", "one\ntwo"));
    builder.frame("APIC", pictureFrame(jpegImage(300, 200), "image/jpeg"));
    builder.frame("PRIV", corvane::ByteArray(2345, 7));
    builder.padding(64);
    return builder;
}

struct ID3v2Fixture : QObject {
    void begin() {
        folder_ = std::make_unique<ScratchFolder>();
        control_ = std::make_unique<controls::ID3v2>();
    }
    void end() {
        control_.reset();
        handler_.reset();
        file_.reset();
        folder_.reset();
    }

    // Opens a file with this tag and gives the tag to the editor.
    std::shared_ptr<ID3V2Tag> give(const Id3v2Builder& builder) {
        file_ = std::make_unique<Mp3File>(*folder_, builder.done());
        handler_ = reopened();
        control_->ID3V2Tag(handler_->ID3V2Tag());
        return handler_->ID3V2Tag();
    }
    std::unique_ptr<FileHandler> reopened() const {
        auto handler = std::make_unique<FileHandler>();
        if (!handler->Create(file_->path())) qFatal("%s", handler->LastError()->Stream().c_str());
        return handler;
    }

    QCheckBox& check() { return child<QCheckBox>(*control_, "chkID3v2"); }
    QLineEdit& line(const char* name) { return child<QLineEdit>(*control_, name); }
    QPlainTextEdit& page(const char* name) { return child<QPlainTextEdit>(*control_, name); }
    controls::GenreBox& genres() { return child<controls::GenreBox>(*control_, "cmbGenre"); }
    QLabel& label(const char* name) { return child<QLabel>(*control_, name); }
    QTreeWidget& list() { return child<QTreeWidget>(*control_, "lvwFrames"); }
    QTabBar& tabs() { return child<QTabBar>(*control_, "sstLyrics"); }
    QPushButton& button(const char* name) { return child<QPushButton>(*control_, name); }
    QStringList row(int at) {
        QStringList texts;
        for (int column = 0; column < list().columnCount(); ++column) {
            texts.push_back(list().topLevelItem(at)->text(column));
        }
        return texts;
    }

    std::unique_ptr<ScratchFolder> folder_;
    std::unique_ptr<Mp3File> file_;
    std::unique_ptr<FileHandler> handler_;
    std::unique_ptr<controls::ID3v2> control_;
};

} // namespace corvane::test
