// How the readers make the frame objects that they hand out.
#pragma once

#include "corvane/id3v2/ID3V22Frame.h"
#include "corvane/id3v2/ID3V23Frame.h"
#include "corvane/id3v2/ID3V24Frame.h"

#include <memory>
#include <utility>

namespace corvane {

template <>
struct Internals<ID3V22Frame> {
    static std::shared_ptr<ID3V22Frame> make(std::shared_ptr<const TagFrames> tag, const FrameRecord* record) {
        return std::shared_ptr<ID3V22Frame>(new ID3V22Frame(std::move(tag), record));
    }
};

template <>
struct Internals<ID3V23Frame> {
    static std::shared_ptr<ID3V23Frame> make(std::shared_ptr<const TagFrames> tag, const FrameRecord* record) {
        return std::shared_ptr<ID3V23Frame>(new ID3V23Frame(std::move(tag), record));
    }
    static std::shared_ptr<ID3V23Frame> make(std::shared_ptr<const ID3V230Frame> changeable) {
        return std::shared_ptr<ID3V23Frame>(new ID3V23Frame(std::move(changeable)));
    }
    // The four letters that the frame object of a record tells.
    static std::string idOf(const ID3V230Frame& record);
    // The payload that the frame object of a record gives; empty for a record made in memory. Fails with a
    // RuntimeFailure when it can no longer be read.
    static ByteArray payloadOf(const ID3V230Frame& record);
};

template <>
struct Internals<ID3V24Frame> {
    static std::shared_ptr<ID3V24Frame> make(std::shared_ptr<const TagFrames> tag, const FrameRecord* record) {
        return std::shared_ptr<ID3V24Frame>(new ID3V24Frame(std::move(tag), record));
    }
};

} // namespace corvane
