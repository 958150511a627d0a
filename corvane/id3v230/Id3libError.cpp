#include "corvane/id3v230/Id3libError.h"

#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>

namespace corvane {

namespace {

struct Row {
    std::int32_t systemNumber;
    Id3libError error;
};
constexpr std::array kRows{Row{ENOMEM, Id3libError::NoMemory},    Row{ENOSPC, Id3libError::SmallBuffer},
                           Row{EDQUOT, Id3libError::SmallBuffer}, Row{EFBIG, Id3libError::SmallBuffer},
                           Row{ENOENT, Id3libError::NoFile},      Row{ENOTDIR, Id3libError::NoFile},
                           Row{EISDIR, Id3libError::NoFile},      Row{EINVAL, Id3libError::NoFile},
                           Row{ELOOP, Id3libError::NoFile},       Row{ENAMETOOLONG, Id3libError::NoFile},
                           Row{EBUSY, Id3libError::NoFile},       Row{ESTALE, Id3libError::NoFile},
                           Row{ENXIO, Id3libError::NoFile},       Row{EACCES, Id3libError::ReadOnly},
                           Row{EPERM, Id3libError::ReadOnly},     Row{EROFS, Id3libError::ReadOnly},
                           Row{ETXTBSY, Id3libError::ReadOnly}};

} // namespace

TagChange changeFailure(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr)
        return {Id3libError::NoMemory, "Out of memory", false, ENOMEM};
    const auto* known = dynamic_cast<const RuntimeFailure*>(&failure);
    if (known == nullptr) {
        return {Id3libError::BadData, failure.what(), false, static_cast<std::int32_t>(FailureNumber::InternalError)};
    }
    const auto row = std::ranges::find(kRows, known->number(), &Row::systemNumber);
    const bool isDamaged = dynamic_cast<const DamageFailure*>(known) != nullptr;
    return {row == kRows.end() ? Id3libError::NoBuffer : row->error, known->description(), isDamaged, known->number(),
            known->source()};
}

} // namespace corvane
