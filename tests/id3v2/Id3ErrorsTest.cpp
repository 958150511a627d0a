#include "corvane/id3v2/Id3Errors.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace corvane::id3errors_test {
namespace {

TEST(Id3ErrorText, NamesEveryNumberOfTheTable) {
    std::string table;
    for (std::int32_t number = 0; number <= 13; ++number) table.append(id3ErrorText(number)) += '\n';
    EXPECT_EQ(table, "No error reported\nNo available memory\nNo data to parse\nImproperly formatted data\n"
                     "No buffer to write to\nBuffer is too small\nInvalid frame id\nRequested field not found\n"
                     "Unknown field type\nTag is already attached to a file\nInvalid tag version\nNo file to parse\n"
                     "Attempting to write to a read-only file\nError in compression/uncompression\n");
}

TEST(Id3ErrorText, AnyOtherNumberIsAnUnknownError) {
    for (const std::int32_t number : {14, -1, 100, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(id3ErrorText(number), "Unknown error") << number;
    }
}

} // namespace
} // namespace corvane::id3errors_test
