// What a frame record says at the moment, beside what its frame says.
#pragma once

#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/ID3V230Frame.h"

#include <memory>
#include <optional>
#include <string>

namespace corvane {

struct ID3V230Frame::Content {
    // What the frame said before the first change since it was read or written.
    struct Original {
        FrameVariant value;
        std::string description;
        Variant language;
    };

    bool isHidden = false; // nobody can know what the frame says
    FrameVariant value;
    std::string description;
    Variant language;
    PictureHead pictureHead;
    std::optional<std::shared_ptr<corvane::Picture>> picture; // once it was asked for or set
    bool pictureWasSet = false;
    bool isAsRead = false;                 // nothing was set, and no double quote was replaced
    std::unique_ptr<Original> original;    // nothing where that is not known
    std::optional<ByteArray> pictureBytes; // those that the library set
};

// Makes every double quote of the text an apostrophe: tags have been kept like that, and hosts compare with it. Whether
// there was any.
bool replaceQuotes(std::string& text);
// The text as it is saved.
std::string withApostrophes(std::string text);

// A value as text: numbers in decimal; "" for nothing and for pictures.
std::string valueText(const FrameVariant& value);
std::string valueText(const Variant& value);

} // namespace corvane
