#include "apps/cli/ScanLine.h"

#include <gtest/gtest.h>

namespace corvane::cli::scanline_test {
namespace {

FileSummary sample() {
    FileSummary summary;
    summary.title = "T\"";
    summary.artist = "A";
    summary.album = "B,";
    summary.year = "1999";
    summary.track = "3/12";
    summary.genre = "Rock";
    summary.comment = "C";
    summary.durationSeconds = 250;
    summary.bitRateKbps = -1;
    summary.frequencyHz = 44100;
    summary.vbr = true;
    summary.tags = {"ID3v2.3.0", "Lyrics3v2", "ID3v1.1"};
    return summary;
}

TEST(ScanLine, JsonHasExactlyTheseValuesInThisOrder) {
    EXPECT_EQ(
        scanLine(ScanFormat::Json, "a/b.mp3", sample()),
        R"({"path":"a/b.mp3","title":"T\"","artist":"A","album":"B,","year":"1999","track":"3/12","genre":"Rock",)"
        R"("comment":"C","duration":250,"bitRate":-1,"frequency":44100,"vbr":true,)"
        R"("tags":["ID3v2.3.0","Lyrics3v2","ID3v1.1"]})"
        "\n");
}

TEST(ScanLine, JsonOfAFileWithoutAnything) {
    EXPECT_EQ(scanLine(ScanFormat::Json, "x", FileSummary{}),
              R"({"path":"x","title":"","artist":"","album":"","year":"","track":"","genre":"","comment":"",)"
              R"("duration":-1,"bitRate":0,"frequency":0,"vbr":false,"tags":[]})"
              "\n");
}

TEST(ScanLine, JsonOfABadFileHasPathAndError) {
    EXPECT_EQ(scanErrorLine(ScanFormat::Json, "\xff", "Is a \"directory\""),
              "{\"path\":\"\ufffd\",\"error\":\"Is a \\\"directory\\\"\"}\n");
}

TEST(ScanLine, CsvHasTheSameColumnsAndAnError) {
    EXPECT_EQ(scanHeader(ScanFormat::Csv),
              "path,title,artist,album,year,track,genre,comment,duration,bitRate,frequency,"
              "vbr,tags,error\r\n");
    EXPECT_EQ(scanLine(ScanFormat::Csv, "a/b.mp3", sample()),
              "a/b.mp3,\"T\"\"\",A,\"B,\",1999,3/12,Rock,C,250,-1,44100,"
              "true,ID3v2.3.0;Lyrics3v2;ID3v1.1,\r\n");
    EXPECT_EQ(scanErrorLine(ScanFormat::Csv, "x", "no, not"), "x,,,,,,,,,,,,,\"no, not\"\r\n");
}

TEST(ScanLine, JsonHasNoHeader) { EXPECT_EQ(scanHeader(ScanFormat::Json), ""); }

TEST(ScanLine, NumbersOfAnySizeAreWritten) {
    FileSummary summary;
    summary.durationSeconds = std::numeric_limits<std::int32_t>::min();
    summary.frequencyHz = std::numeric_limits<std::int32_t>::max();
    const std::string line = scanLine(ScanFormat::Json, "", summary);
    EXPECT_NE(line.find(":-2147483648,"), std::string::npos);
    EXPECT_NE(line.find(":2147483647,"), std::string::npos);
}

} // namespace
} // namespace corvane::cli::scanline_test
