// Tells whether id3lib is among the callers of a function: it is not written to survive a lack of memory, so that it is
// not what can be asked of it.
#pragma once

#include <execinfo.h>
#include <link.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace corvane::test {

class Id3libCallers {
public:
    // To be called once before it counts: the first look at the callers loads a library and takes memory.
    static void prepare() {
        std::array<void*, 4> callers{};
        static_cast<void>(::backtrace(callers.data(), static_cast<int>(callers.size())));
    }

    static bool includeId3lib() {
        const Range range = rangeOfId3lib();
        if (range.end == 0) return false;
        std::array<void*, 64> callers{};
        const int count = ::backtrace(callers.data(), static_cast<int>(callers.size()));
        for (int i = 0; i < count; ++i) {
            const auto address = reinterpret_cast<std::uintptr_t>(callers[static_cast<std::size_t>(i)]);
            if (address >= range.begin && address < range.end) return true;
        }
        return false;
    }

private:
    struct Range {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
    };

    static Range rangeOfId3lib() {
        Range range;
        ::dl_iterate_phdr(
            [](dl_phdr_info* object, std::size_t, void* found) {
                if (std::strstr(object->dlpi_name, "libid3") == nullptr) return 0;
                auto& into = *static_cast<Range*>(found);
                into.begin = object->dlpi_addr;
                for (int i = 0; i < object->dlpi_phnum; ++i) {
                    const auto& header = object->dlpi_phdr[i];
                    const auto end = object->dlpi_addr + header.p_vaddr + header.p_memsz;
                    if (header.p_type == PT_LOAD && end > into.end) into.end = end;
                }
                return 1;
            },
            &range);
        return range;
    }
};

} // namespace corvane::test
