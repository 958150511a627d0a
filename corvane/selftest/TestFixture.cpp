#include "corvane/selftest/TestFixture.h"

#include "corvane/core/FileHandler.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/platform/RuntimeFailure.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kScratchFile = "MP3Tst00.mp3";
constexpr std::string_view kContent = "Test-Test-";
constexpr std::uintmax_t kRecordSize = 128; // bytes

constexpr const char* kTitle = "Title";
constexpr const char* kArtist = "Artist";
constexpr const char* kAlbum = "Album";
constexpr const char* kComment = "Comment";
constexpr const char* kYear = "2001";
constexpr std::int16_t kTrack = 77;
constexpr std::uint8_t kGenre = 18;

bool writeContent() {
    std::FILE* file = std::fopen(kScratchFile, "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(kContent.data(), 1, kContent.size(), file) == kContent.size();
    return std::fclose(file) == 0 && written;
}

const char* asText(bool value) { return value ? "True" : "False"; }

std::string wrongSize(std::uintmax_t expected, const std::string& found) {
    return "Size incorrect. " + std::to_string(expected) + " expected, found: " + found;
}

} // namespace

void TestFixture::Setup(std::shared_ptr<ITestManager> manager, const std::string& vbpPath) {
    manager_ = std::move(manager);
    projectPath_ = vbpPath;
}

void TestFixture::TearDown() { manager_ = nullptr; }

void TestFixture::RunTest() {
    if (!manager_) throw RuntimeFailure(FailureNumber::ObjectNotSet, "TestFixture", "Object variable not set");
    static_cast<void>(deleteStep() && createStep() && tagSteps() && startStep("- REWRITE TAG -") && tagSteps());
}

bool TestFixture::deleteStep() {
    if (!startStep("Deleting Test-File")) return false;
    // Of files only: a folder of that name is somebody else's.
    return ::unlink(kScratchFile) == 0 || check(false, "Couldn't delete the Test-File");
}

bool TestFixture::createStep() {
    if (!startStep("Create Test-File")) return false;
    const auto failed = [this] {
        return check(false, std::string("Couldn't create the Test-File '") + kScratchFile + "'");
    };
    if (!writeContent()) return failed();
    if (!startStep("Testing file size")) return false;
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(kScratchFile, failure);
    return failure ? failed() : check(size == kContent.size(), wrongSize(kContent.size(), std::to_string(size)));
}

bool TestFixture::tagSteps() { return writeStep() && fileSizeStep() && compareStep(); }

bool TestFixture::writeStep() {
    if (!startStep("Write Tag")) return false;
    FileHandler handler;
    Internals<FileHandler>::setFileName(handler, kScratchFile);
    ID3V1Tag& tag = *handler.ID3v1xTag();
    tag.Title(kTitle);
    tag.Artist(kArtist);
    tag.Album(kAlbum);
    tag.Comment(kComment);
    tag.Track(kTrack);
    tag.Genre(kGenre);
    tag.Year(kYear);
    tag.TagType(EID3TagConstants::ID3V11);
    handler.writeID3v1xTag();
    if (!startStep("Check if Tag exists")) return false;
    const bool exists = handler.HasTag();
    return check(exists, std::string("HasTag incorrect. 'True' expected, found: ") + asText(exists));
}

bool TestFixture::fileSizeStep() {
    if (!startStep("Testing file size")) return false;
    constexpr std::uintmax_t kExpected = kContent.size() + kRecordSize;
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(kScratchFile, failure);
    return check(!failure && size == kExpected,
                 wrongSize(kExpected, failure ? failure.message() : std::to_string(size)));
}

bool TestFixture::compareStep() {
    if (!startStep("Comparing written Tag")) return false;
    FileHandler handler;
    handler.Create(kScratchFile); // reads the record; readTag never does
    handler.readTag();
    const ID3V1Tag& tag = *handler.ID3v1xTag();
    const auto compare = [this](const char* label, const std::string& expected, const std::string& found) {
        return check(expected == found, std::string(label) + " incorrect. " + expected + " expected, found : " + found);
    };
    // Managers look for "Comment" a second time, although it is the genre that the check is about.
    return compare("TagType", "2", std::to_string(static_cast<std::int32_t>(tag.TagType()))) &&
           compare("Title", kTitle, tag.Title()) &&
           compare("Track", std::to_string(kTrack), std::to_string(tag.Track())) &&
           compare("Artist", kArtist, tag.Artist()) && compare("Album", kAlbum, tag.Album()) &&
           compare("Comment", kComment, tag.Comment()) &&
           compare("Comment", std::to_string(kGenre), std::to_string(tag.Genre())) &&
           compare("Year", kYear, tag.Year());
}

bool TestFixture::startStep(const std::string& text) {
    const auto manager = manager_; // lives until it returns, also when it releases itself from the fixture
    manager->StartStep(text);
    return manager_ != nullptr;
}

bool TestFixture::check(bool condition, const std::string& message) {
    const auto manager = manager_;
    manager->CheckCondition(condition, message);
    return manager_ != nullptr;
}

} // namespace corvane
