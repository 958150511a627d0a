// One entry of the genre list: a number and its name.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

class CORVANE_EXPORT Genre {
public:
    // The genre number, 0 to 147 or 255. Writing it changes this object only: its list goes on finding it under its old
    // number.
    void Num(std::int16_t Num) { num_ = Num; }
    std::int16_t Num() const { return num_; }
    // The name, as the list holds it.
    std::string Description() const { return std::string(description_); }

private:
    friend struct Internals<Genre>;
    void Description(std::string_view description) { description_ = description; }

    std::int16_t num_ = 0;
    std::string_view description_; // a name of the genre table, which is there as long as the program
};

} // namespace corvane
