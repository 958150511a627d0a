// What a frame record says at the moment, beside what its frame says.
#pragma once

#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/ID3V230Frame.h"

#include <memory>
#include <optional>
#include <string>

namespace corvane {

struct ID3V230Frame::Content {
    bool isHidden = false; // nobody can know what the frame says
    FrameVariant value;
    std::string description;
    Variant language;
    PictureHead pictureHead;
    std::optional<std::shared_ptr<corvane::Picture>> picture; // once it was asked for or set
    bool pictureWasSet = false;
    std::optional<ByteArray> pictureBytes; // those that the library set
};

// The text with every double quote as an apostrophe: tags have been kept like that, and hosts compare with it.
std::string withApostrophes(std::string text);

// A value as text: numbers in decimal; "" for nothing and for pictures.
std::string valueText(const FrameVariant& value);
std::string valueText(const Variant& value);

} // namespace corvane
