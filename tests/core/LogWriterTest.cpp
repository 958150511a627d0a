#include "corvane/core/LogWriter.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <regex>
#include <thread>

namespace corvane::logwriter_test {
namespace {

using test::contentOf;
using test::ScratchFolder;
using test::textOf;

bool isLine(const std::string& line, const std::string& date, const std::string& time, const std::string& text) {
    return std::regex_match(line, std::regex(date + " " + time + " - " + text + "\r\n"));
}

std::string failureText(const std::string& path, const std::string& reason) {
    return "Es konnte nicht ins LogFile '" + path + "' geschrieben werden.\r\n" + reason;
}

TEST(LogWriter, TheFileNameIsWhatWasSet) {
    LogWriter writer;
    EXPECT_EQ(writer.FileName(), "");
    writer.FileName("/tmp/x.log");
    EXPECT_EQ(writer.FileName(), "/tmp/x.log");
}

TEST(LogWriter, ALineIsDateTimeAndText) {
    const ScratchFolder folder;
    LogWriter writer;
    writer.FileName(folder.path("log"));
    EXPECT_TRUE(writer.writeLog("two words"));
    const std::string line = textOf(contentOf(folder.path("log")));
    EXPECT_TRUE(isLine(line, "[0-9./-]+", "[0-9:]+( [AP]M)?", "two words")) << line;
}

TEST(LogWriter, LinesAreAppended) {
    const ScratchFolder folder;
    folder.write("log", test::bytesOf("before\r\n"));
    LogWriter writer;
    writer.FileName(folder.path("log"));
    EXPECT_TRUE(writer.writeLog("one"));
    EXPECT_TRUE(writer.writeLog("\u00FCber"));
    EXPECT_TRUE(writer.writeLog(""));
    const std::string text = textOf(contentOf(folder.path("log")));
    EXPECT_TRUE(std::regex_match(text, std::regex("before\r\n.* - one\r\n.* - \u00FCber\r\n.* - \r\n"))) << text;
    EXPECT_EQ(writer.LastError()->Stream(), "0, , ");
}

struct LocaleCase {
    const char* name;
    const char* language;
    const char* encoding;
    const char* date;
    const char* time;
};

// A locale that is compiled for this test alone, so that it does not matter which ones are installed.
class LogWriterLocale : public testing::TestWithParam<LocaleCase> {};

// The log is UTF-8, whatever the encoding of the locale is.
TEST_P(LogWriterLocale, GivesDateAndTimeTheirForm) {
    const ScratchFolder folder;
    const LocaleCase& tested = GetParam();
    const std::string locale = std::string(tested.language) + "." + tested.encoding;
    const std::string command = std::string("localedef -i ") + tested.language + " -f " + tested.encoding + " " +
                                folder.path(locale) + " >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) GTEST_SKIP() << "localedef or the source of " << locale << " is missing";
    const int result = test::inChild([&] {
        ::setenv("LOCPATH", folder.path().c_str(), 1);
        ::setenv("LC_ALL", locale.c_str(), 1);
        LogWriter writer;
        writer.FileName(folder.path("log"));
        if (!writer.writeLog("\u00FCber")) return 1;
        return std::string(std::setlocale(LC_ALL, nullptr)) == "C" ? 0 : 2;
    });
    EXPECT_EQ(result, 0) << "2: the locale of the process was changed";
    const std::string line = textOf(contentOf(folder.path("log")));
    EXPECT_TRUE(isLine(line, tested.date, tested.time, "\u00FCber")) << line;
}

INSTANTIATE_TEST_SUITE_P(
    Locales, LogWriterLocale,
    testing::Values(LocaleCase{"German", "de_DE", "UTF-8", "\\d\\d\\.\\d\\d\\.\\d{4}", "\\d\\d:\\d\\d:\\d\\d"},
                    LocaleCase{"JapaneseUtf8", "ja_JP", "UTF-8", "\\d{4}\u5E74\\d\\d\u6708\\d\\d\u65E5",
                               "\\d\\d\u6642\\d\\d\u5206\\d\\d\u79D2"},
                    LocaleCase{"JapaneseEuc", "ja_JP", "EUC-JP", "\\d{4}\u5E74\\d\\d\u6708\\d\\d\u65E5",
                               "\\d\\d\u6642\\d\\d\u5206\\d\\d\u79D2"}),
    [](const auto& tested) { return tested.param.name; });

TEST(LogWriter, AnUnknownLocaleIsNoFailure) {
    const ScratchFolder folder;
    const int result = test::inChild([&] {
        ::setenv("LC_ALL", "xx_XX.nothing", 1);
        LogWriter writer;
        writer.FileName(folder.path("log"));
        return writer.writeLog("x") ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    const std::string line = textOf(contentOf(folder.path("log")));
    EXPECT_TRUE(isLine(line, "\\d\\d/\\d\\d/\\d\\d", "\\d\\d:\\d\\d:\\d\\d", "x")) << line;
}

TEST(LogWriter, AFailureIsRecordedWithTheGermanText) {
    const ScratchFolder folder;
    LogWriter writer;
    writer.FileName(folder.path("none/log"));
    EXPECT_FALSE(writer.writeLog("x"));
    const cError& error = *writer.LastError();
    EXPECT_EQ(error.Number, ENOENT);
    EXPECT_EQ(error.Severity, 2);
    EXPECT_EQ(error.Description, failureText(folder.path("none/log"), "No such file or directory"));
}

TEST(LogWriter, AFullDiskIsAFailure) {
    LogWriter writer;
    writer.FileName("/dev/full");
    EXPECT_FALSE(writer.writeLog("x"));
    EXPECT_EQ(writer.LastError()->Number, ENOSPC);
    EXPECT_EQ(writer.LastError()->Description, failureText("/dev/full", "No space left on device"));
}

TEST(LogWriter, WithoutAFileNameNothingIsWritten) {
    LogWriter writer;
    EXPECT_FALSE(writer.writeLog("x"));
    EXPECT_EQ(writer.LastError()->Number, ENOENT);
}

TEST(LogWriter, APipeThatNobodyReadsIsAFailureAndNotAWait) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    LogWriter writer;
    writer.FileName(folder.path("pipe"));
    EXPECT_FALSE(writer.writeLog("x"));
    EXPECT_EQ(writer.LastError()->Number, ENXIO);
}

TEST(LogWriter, TheRecordIsTheWritersOwnAndKeptBySuccess) {
    const ScratchFolder folder;
    LogWriter writer;
    EXPECT_EQ(writer.LastError(), writer.LastError());
    writer.FileName(folder.path("none/log"));
    EXPECT_FALSE(writer.writeLog("x"));
    writer.FileName(folder.path("log"));
    EXPECT_TRUE(writer.writeLog("x"));
    EXPECT_EQ(writer.LastError()->Number, ENOENT) << "a success does not clear the record";
}

TEST(LogWriter, LinesOfSeveralWritersDoNotMix) {
    const ScratchFolder folder;
    const std::string text(3000, 'x');
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            LogWriter writer;
            writer.FileName(folder.path("log"));
            for (int line = 0; line < 25; ++line) writer.writeLog(text);
        });
    }
    for (std::thread& thread : threads) thread.join();
    const std::string lines = textOf(contentOf(folder.path("log")));
    std::size_t count = 0;
    for (auto at = lines.find(text + "\r\n"); at != std::string::npos; at = lines.find(text + "\r\n", at + 1)) ++count;
    EXPECT_EQ(count, 100U);
}

} // namespace
} // namespace corvane::logwriter_test
