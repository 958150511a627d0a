// Finds the records of a tag by the IDs of their frames. A search takes about the same time however many records there
// are, and finds what is there now: records may be added and given other frame numbers at any time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

class ID3V230Frame;
class ID3V230Frames;

class RecordIndex {
public:
    // The first record of that ID among these; nothing without one.
    std::shared_ptr<ID3V230Frame> find(const std::shared_ptr<ID3V230Frames>& records, std::string_view id);

private:
    bool isOf(const std::shared_ptr<ID3V230Frames>& records) const;
    void build(const std::shared_ptr<ID3V230Frames>& records);

    std::shared_ptr<const ID3V230Frames> records_; // kept alive: no other collection can be taken for it
    std::int32_t count_ = 0;
    std::uint64_t retypeCount_ = 0;
    std::vector<std::pair<std::string, std::int32_t>> positions_; // by ID, and records of one ID in their order
};

} // namespace corvane
