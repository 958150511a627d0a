// How ID3V230 and the ID3v2.3 reader work with frame records.
#pragma once

#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/FrameSource.h"
#include "corvane/id3v230/ID3V230Frame.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

template <>
struct Internals<ID3V230Frame> {
    // A record made in memory.
    static std::shared_ptr<ID3V230Frame> make() { return std::shared_ptr<ID3V230Frame>(new ID3V230Frame()); }
    // A record of a frame that stands in a tag.
    static std::shared_ptr<ID3V230Frame> make(FrameSource source) {
        return std::shared_ptr<ID3V230Frame>(new ID3V230Frame(std::make_unique<FrameSource>(std::move(source))));
    }
    // The fields that Load has listed.
    static const std::vector<ID3V230Field>& fields(const ID3V230Frame& record) { return record.fields_; }
    // Replaces the bytes behind PictureRAW.
    static void setPictureBytes(ID3V230Frame& record, ByteArray bytes) { record.setPictureBytes(std::move(bytes)); }
    // The frame that the record was read from; nullptr for one made in memory.
    static const FrameSource* source(const ID3V230Frame& record) { return record.source_.get(); }
    // The record was written as this frame. `source` is taken over by a record that was made in memory.
    static void moveTo(ID3V230Frame& record, const std::shared_ptr<TagImage>& tag, std::size_t index,
                       std::unique_ptr<FrameSource>& source) noexcept {
        if (!record.source_) record.source_ = std::move(source);
        record.source_->moveTo(tag, index);
        if (!record.content_) return;
        record.content_->isAsRead = true;
        record.content_->original.reset();
    }
    // How often any record of the process was given its number: who keeps an order of records by their numbers knows by
    // it whether that still holds.
    static std::uint64_t retypeCount();
    static const ID3V230Frame::Content& content(const ID3V230Frame& record) { return record.content(); }
};

} // namespace corvane
