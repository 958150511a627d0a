// What the tests of the ID3v1 editor have in common.
#pragma once

#include "corvane/controls/GenreBox.h"
#include "corvane/controls/ID3v1.h"

#include "tests/controls/Hand.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QToolButton>
#include <array>
#include <memory>

namespace corvane::test {

inline constexpr std::array kTextFields{"txtTitle", "txtArtist", "txtAlbum", "txtYear", "txtTrack", "txtComment"};

struct ID3v1Fixture : QObject {
    controls::ID3v1& control() { return *control_; }
    QCheckBox& check() { return child<QCheckBox>(*control_, "chkID3v1"); }
    QLineEdit& line(const char* name) { return child<QLineEdit>(*control_, name); }
    controls::GenreBox& genres() { return child<controls::GenreBox>(*control_, "cmbGenre"); }
    QLabel& genreByte() { return child<QLabel>(*control_, "lblGenreByte"); }
    QToolButton& button(const char* name) { return child<QToolButton>(*control_, name); }

    void begin() { control_ = std::make_unique<controls::ID3v1>(); }
    void end() { control_.reset(); }

    static std::shared_ptr<ID3V1Tag> tag(const char* title, std::int16_t track = 0) {
        auto made = std::make_shared<ID3V1Tag>();
        made->Title(title);
        made->Artist("Artist of it");
        made->Album("Album of it");
        made->Year("1999");
        made->Comment("Comment on it");
        made->Track(track);
        made->Genre(17);
        made->TagType(track == 0 ? EID3TagConstants::ID3v1 : EID3TagConstants::ID3V11);
        return made;
    }

private:
    std::unique_ptr<controls::ID3v1> control_;
};

} // namespace corvane::test
