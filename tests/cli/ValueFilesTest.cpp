#include "apps/cli/ValueFiles.h"

#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/LibraryFailure.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace corvane::cli::valuefiles_test {
namespace {

struct TextCase {
    const char* name;
    std::string_view bytes;
    std::string_view text;
};

class ValueFiles : public testing::TestWithParam<TextCase> {
protected:
    std::string file(std::string_view bytes) const {
        const std::string path = folder_.path("value");
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

private:
    test::ScratchFolder folder_;
};

TEST_P(ValueFiles, TextIsReadAsListed) { EXPECT_EQ(textIn(file(GetParam().bytes)), GetParam().text); }
INSTANTIATE_TEST_SUITE_P(
    Texts, ValueFiles,
    testing::Values(TextCase{"Empty", "", ""}, TextCase{"Utf8", "\xC3\xA9\n\xE2\x82\xAC", "\u00e9\n\u20ac"},
                    TextCase{"ByteOrderMark", "\xEF\xBB\xBFx", "x"},
                    TextCase{"CodePage", "\xE9\n\x80", "\u00e9\n\u20ac"},
                    TextCase{"DosLines", "a\r\n\r\nb\r\n", "a\n\nb"}, TextCase{"OldMacLines", "a\rb\r", "a\nb"},
                    TextCase{"BlanksStay", "  a \n b  ", "  a \n b  "}, TextCase{"NothingButLines", "\n\r\n", ""}),
    [](const auto& tested) { return std::string(tested.param.name); });

using ValueFile = ValueFiles;

TEST_F(ValueFile, WithAZeroIsNoText) { EXPECT_THROW(textIn(file(std::string_view("a\0b", 3))), FileFailure); }

TEST_F(ValueFile, PictureIsTheBytesOfTheFile) {
    const ByteArray image = test::pngImage(4, 3);
    const std::string path = file(std::string(image.begin(), image.end()));
    EXPECT_TRUE(std::ranges::equal(pictureIn(path)->bytes(), image));
}

TEST_F(ValueFile, ThatIsNoImageIsNoPicture) { EXPECT_THROW(pictureIn(file("text")), FileFailure); }

TEST_F(ValueFile, ThatIsMissingFails) {
    EXPECT_THROW(textIn("missing"), RuntimeFailure);
    EXPECT_THROW(pictureIn("missing"), RuntimeFailure);
}

} // namespace
} // namespace corvane::cli::valuefiles_test
