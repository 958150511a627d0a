// Every system call of an operation that opens, reads or writes files goes wrong in turn, in several ways, and so does
// every allocation of memory. Whatever happens, the files are either
// what they were or what they were to become, and the result that is told is true.
#include "tests/faults/FaultRun.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <map>
#include <regex>

namespace corvane::faultsweep_test {
namespace {

using test::ByteBuilder;
using test::contentOf;
using test::Fault;
using test::FaultRun;
using test::joined;
using test::ScratchFolder;

constexpr const char* kFile = "f.mp3";
constexpr const char* kCopy = "f.mp3.copy";
constexpr const char* kSecondName = "second";
constexpr std::size_t kRecordSize = 128;
constexpr mode_t kMode = 0640;

// What an interrupted operation may leave under the file's name beside the old and the new content.
enum class Interrupted {
    Nothing,  // it replaces the file in one step
    Mixture,  // it writes its bytes in place, each is the old or the new one
    OneNamed, // it fills a file of several names, while the new content stands whole beside it
    HalfCopy  // it writes to another file, which may be a part
};

struct Scenario {
    const char* name;
    const char* operation;
    bool hasRecord = true;        // the file ends in an ID3v1 record
    bool hasSecondName = false;   // a hard link
    bool hasCopy = false;         // the destination of a copy exists
    ByteArray (*tag)() = nullptr; // what the file begins with, before the audio
    Interrupted interrupted = Interrupted::Nothing;
    const char* firstStep = nullptr; // the operation that makes the first of two steps alone
};

// How calls go wrong.
struct Way {
    const char* name;
    const char* kind;
    std::vector<int> errorNumbers;
};

void PrintTo(const Scenario& scenario, std::ostream* stream) { *stream << scenario.name; }
void PrintTo(const Way& way, std::ostream* stream) { *stream << way.name; }

// Names and contents of the files of a folder.
using State = std::map<std::string, ByteArray>;

bool isTemporary(const std::string& name) { return name.starts_with("tmp"); }

State stateOf(const ScratchFolder& folder, bool temporary = false) {
    State state;
    for (const std::string& name : folder.names()) {
        if (isTemporary(name) == temporary) state[name] = contentOf(folder.path(name));
    }
    return state;
}

// What a writer of tags has left, and what nobody may touch.
ByteArray id3v2Tag() {
    return test::Id3v2Builder(3)
        .text("TIT2", "old")
        .frame("PRIV", test::countedBytes(700))
        .frame("APIC", test::pictureFrame(test::countedBytes(90'000)))
        .text("TPE1", "an artist")
        .padding(200)
        .done();
}

ByteArray titleAlone() { return test::Id3v2Builder(3).text("TIT2", "old").padding(20).done(); }

ByteArray pictureAlone() {
    return test::Id3v2Builder(3).frame("APIC", test::pictureFrame(test::countedBytes(90'000))).done();
}

ByteArray twoTags() { return joined({id3v2Tag(), titleAlone()}); }

ByteArray fileContent(const Scenario& scenario) {
    ByteBuilder file;
    file.bytes(test::countedBytes(4000));
    if (scenario.hasRecord) file.text("TAG").text("an old title").padTo(4000 + kRecordSize);
    return scenario.tag != nullptr ? joined({scenario.tag(), file.done()}) : file.done();
}

void prepare(const ScratchFolder& folder, const Scenario& scenario) {
    const std::string path = folder.write(kFile, fileContent(scenario));
    if (scenario.hasCopy) folder.write(kCopy, test::bytesOf("what the destination held before"));
    if (scenario.hasSecondName) std::filesystem::create_hard_link(path, folder.path(kSecondName));
    // Owner and attributes, so that the calls that take them over are made; not every user or file system can have
    // them.
    static_cast<void>(::chown(path.c_str(), 1234, 1234));
    static_cast<void>(::setxattr(path.c_str(), "user.comment", "x", 1, 0));
    ASSERT_EQ(::chmod(path.c_str(), kMode), 0);
}

// Whether every byte is that of the old or of the new content.
bool isMixture(const ByteArray& found, const ByteArray& before, const ByteArray& after) {
    if (found.size() < std::min(before.size(), after.size()) || found.size() > std::max(before.size(), after.size()))
        return false;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const bool isOld = i < before.size() && found[i] == before[i];
        const bool isNew = i < after.size() && found[i] == after[i];
        if (!isOld && !isNew) return false;
    }
    return true;
}

bool isBeginningOf(const ByteArray& part, const ByteArray& whole) {
    return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

// The states that one scenario goes from and to, and what is allowed in between.
class Judge {
public:
    // between: after the first of two steps, otherwise as before.
    Judge(const Scenario& scenario, State before, State between, State after)
        : scenario_(scenario), before_(std::move(before)), between_(std::move(between)), after_(std::move(after)) {}

    void look(const ScratchFolder& folder, const FaultRun& run, const std::string& wayKind) const {
        const State found = stateOf(folder);
        const State temporary = stateOf(folder, true);
        if (run.isKilled) {
            EXPECT_TRUE(found == before_ || found == between_ || found == after_ || isAllowedBetween(found, temporary))
                << "the interrupted operation has damaged the file";
            return;
        }
        if (run.toldSuccess) {
            EXPECT_TRUE(found == after_) << "success was told, but the new content is not there";
            EXPECT_EQ(test::statusOf(folder.path(kFile)).st_mode & 07777, kMode);
        } else if (wayKind.ends_with("then-on") && tellsDamage(run.text)) {
            EXPECT_TRUE(isRepairable(found, temporary, run.text)) << run.text;
            return; // what it takes to repair the file stays
        } else {
            EXPECT_TRUE(found == (run.text.starts_with("step 2: ") ? between_ : before_))
                << "failure was told, but the file is not what it was: " << run.text;
        }
        EXPECT_TRUE(temporary.empty() || run.call == "unlink") << "a temporary file stays";
    }

private:
    const ByteArray& before(const char* name) const { return before_.at(name); }
    const ByteArray& after(const char* name) const { return after_.at(name); }

    bool isAllowedBetween(const State& found, const State& temporary) const {
        switch (scenario_.interrupted) {
        case Interrupted::Nothing:
            return false;
        case Interrupted::Mixture:
            return isMixture(found.at(kFile), before(kFile), after(kFile));
        case Interrupted::OneNamed:
            return found.at(kFile) == found.at(kSecondName) &&
                   std::ranges::any_of(temporary, [&](const auto& file) { return file.second == after(kFile); });
        case Interrupted::HalfCopy:
            return found.at(kFile) == before(kFile) && isBeginningOf(found.at(kCopy), after(kCopy)) &&
                   (!scenario_.hasCopy || isBeginningOf(before(kCopy), found.at(kCopy)));
        }
        return false;
    }

    static bool tellsDamage(const std::string& text) {
        return text.find("could not be brought back") != std::string::npos ||
               text.find("could not be taken back") != std::string::npos;
    }

    // A failure that tells that not even the way back was possible: what it says must be enough to repair the file.
    bool isRepairable(const State& found, const State& temporary, const std::string& text) const {
        std::smatch told;
        if (std::regex_search(text, told,
                              std::regex("from offset (\\d+) on are in '(.*)', the new content is in '(.*)'"))) {
            const auto offset = static_cast<std::ptrdiff_t>(std::stoul(told[1]));
            const ByteArray kept(found.at(kFile).begin(), found.at(kFile).begin() + offset);
            return joined({kept, temporary.at(told[2])}) == before(kFile) && temporary.at(told[3]) == after(kFile);
        }
        return temporary.empty() && isAllowedBetween(found, temporary);
    }

    Scenario scenario_;
    State before_;
    State between_;
    State after_;
};

// What the folder holds when nothing goes wrong.
State stateAfter(const char* operation, const Scenario& scenario) {
    const ScratchFolder folder;
    prepare(folder, scenario);
    const FaultRun untouched = test::runWithFault(operation, folder.path(kFile), {"", 0, 0});
    EXPECT_TRUE(untouched.toldSuccess) << untouched.text;
    return stateOf(folder);
}

class EveryCall : public testing::TestWithParam<std::tuple<Scenario, Way>> {};

TEST_P(EveryCall, MayGoWrongWithoutHarm) {
    const auto& [scenario, way] = GetParam();
    const ScratchFolder clean;
    prepare(clean, scenario);
    const State before = stateOf(clean);
    const State between = scenario.firstStep != nullptr ? stateAfter(scenario.firstStep, scenario) : before;
    const Judge judge(scenario, before, between, stateAfter(scenario.operation, scenario));
    ASSERT_FALSE(HasFailure());

    constexpr long kMostPoints = 100'000;
    long points = 0;
    for (const int errorNumber : way.errorNumbers) {
        for (long at = 1; at < kMostPoints; ++at) {
            const ScratchFolder folder;
            prepare(folder, scenario);
            const ScratchFolder temporary;
            const FaultRun run = test::runWithFault(scenario.operation, folder.path(kFile), {way.kind, errorNumber, at},
                                                    temporary.path());
            SCOPED_TRACE("call " + std::to_string(at) + " (" + run.call + "), error " + std::to_string(errorNumber));
            judge.look(folder, run, way.kind);
            EXPECT_TRUE(run.isKilled || run.call == "unlink" || temporary.names().empty())
                << "something stays in the folder for temporary files";
            const bool losesContent = run.call == "fsync" || run.call == "fdatasync";
            if (losesContent && way.kind == std::string("once") && errorNumber != EINTR) {
                EXPECT_FALSE(run.toldSuccess) << "what could not be flushed may be lost";
            }
            if (HasFatalFailure() || HasNonfatalFailure()) return;
            if (run.call.empty()) break;
            ++points;
        }
    }
    RecordProperty("points", static_cast<int>(points));
    std::cout << "[  SWEPT   ] " << points << " points\n";
}

const Scenario kScenarios[] = {
    {.name = "Cut", .operation = "cut"},
    {.name = "CutOfAFileOfTwoNames", .operation = "cut", .hasSecondName = true, .interrupted = Interrupted::OneNamed},
    {.name = "AddHead", .operation = "add-head"},
    {.name = "AddHeadToAFileOfTwoNames",
     .operation = "add-head",
     .hasSecondName = true,
     .interrupted = Interrupted::OneNamed},
    {.name = "ChangeMiddle", .operation = "change-middle"},
    {.name = "ChangeMiddleOfAFileOfTwoNames",
     .operation = "change-middle",
     .hasSecondName = true,
     .interrupted = Interrupted::OneNamed},
    {.name = "CopyToANewFile", .operation = "copy-new", .interrupted = Interrupted::HalfCopy},
    {.name = "CopyOverAFile", .operation = "copy-over", .hasCopy = true},
    {.name = "CopyBehindAFile", .operation = "copy-behind", .hasCopy = true, .interrupted = Interrupted::HalfCopy},
    {.name = "AskForTheRecord", .operation = "has-tag"},
    {.name = "OverwriteTheRecord", .operation = "write-tag", .interrupted = Interrupted::Mixture},
    {.name = "AppendTheRecord", .operation = "write-tag", .hasRecord = false, .interrupted = Interrupted::Mixture},
    {.name = "RemoveTheRecord", .operation = "remove-tag"},
    {.name = "GrowTheTag", .operation = "v2-grow", .tag = id3v2Tag},
    {.name = "GrowTheTagOfAFileOfTwoNames",
     .operation = "v2-grow",
     .hasSecondName = true,
     .tag = id3v2Tag,
     .interrupted = Interrupted::OneNamed},
    {.name = "ChangeTheTagSafely", .operation = "v2-change", .tag = id3v2Tag},
    {.name = "ChangeTheTagInPlace",
     .operation = "v2-change-in-place",
     .tag = id3v2Tag,
     .interrupted = Interrupted::Mixture},
    {.name = "ShrinkTheTag", .operation = "v2-shrink", .tag = id3v2Tag},
    {.name = "RemoveTheTag", .operation = "v2-remove", .tag = id3v2Tag},
    {.name = "RemoveTheTagOfAFileOfTwoNames",
     .operation = "v2-remove",
     .hasSecondName = true,
     .tag = id3v2Tag,
     .interrupted = Interrupted::OneNamed},
    {.name = "CreateATag", .operation = "v2-create"},
    {.name = "CreateATagInAFileOfTwoNames",
     .operation = "v2-create",
     .hasSecondName = true,
     .interrupted = Interrupted::OneNamed},
    {.name = "ChangeThroughTheFileHandler", .operation = "change", .tag = id3v2Tag},
    {.name = "SaveWhatWasNotChanged", .operation = "save-unchanged", .tag = id3v2Tag},
    {.name = "DeleteTheLastFrame", .operation = "delete-all", .tag = titleAlone},
    {.name = "DeleteAllFrames", .operation = "delete-all", .tag = id3v2Tag},
    {.name = "DeleteTheFirstOfTwoTags", .operation = "uncover", .tag = twoTags, .firstStep = "delete-all"},
    {.name = "RemoveTheFirstOfTwoTags", .operation = "remove-and-uncover", .tag = twoTags, .firstStep = "remove"},
    {.name = "RemoveTheTagAndSaveIt", .operation = "remove-and-save", .tag = id3v2Tag, .firstStep = "remove"},
    {.name = "UndeleteAfterASave", .operation = "undelete-picture", .tag = id3v2Tag, .firstStep = "delete-picture"},
    {.name = "UndeleteTheLastFrame",
     .operation = "undelete-picture",
     .tag = pictureAlone,
     .firstStep = "delete-picture"},
    {.name = "SaveOverAnUnseenChange",
     .operation = "save-over-anothers-change",
     .tag = id3v2Tag,
     .firstStep = "save-over-anothers-change"},
    {.name = "SaveAfterAChangeOfPermissions", .operation = "save-after-anothers-permissions", .tag = id3v2Tag},
    {.name = "KeepFramesInAFile", .operation = "keep-frames"},
};

const Way kWays[] = {
    {"FailsOnce", "once", {ENOSPC, EIO, EFBIG, EDQUOT, EINTR, EMFILE}},
    {"FailsFromThenOn", "from-then-on", {ENOSPC, EIO}},
    {"WritesLess", "short", {0}},
    {"WritesLessAndThenFails", "short-then-on", {ENOSPC, EIO}},
    {"IsTheLast", "kill", {0}},
    {"IsTheLastHalfDone", "kill-half", {0}},
    {"IsTheLastDone", "kill-after", {0}},
    {"FindsNoMemory", "allocation", {0}},
};

std::string nameOf(const testing::TestParamInfo<std::tuple<Scenario, Way>>& tested) {
    return std::string(std::get<0>(tested.param).name) + std::get<1>(tested.param).name;
}

INSTANTIATE_TEST_SUITE_P(Sweep, EveryCall, testing::Combine(testing::ValuesIn(kScenarios), testing::ValuesIn(kWays)),
                         nameOf);

// A network file system may do what it is told, lose its answer and report a failure.
TEST(RenameThatIsReportedAsFailed, IsASuccessWhenTheFileBearsTheName) {
    const Scenario scenario{.name = "Cut", .operation = "cut"};
    for (long at = 1;; ++at) {
        const ScratchFolder folder;
        prepare(folder, scenario);
        const FaultRun counted = test::runWithFault(scenario.operation, folder.path(kFile), {"short", 0, at});
        ASSERT_FALSE(counted.call.empty()) << "no rename was made";
        if (counted.call != "rename") continue;
        const ScratchFolder again;
        prepare(again, scenario);
        const FaultRun run = test::runWithFault(scenario.operation, again.path(kFile), {"late", EIO, at});
        EXPECT_TRUE(run.toldSuccess) << run.text;
        EXPECT_EQ(contentOf(again.path(kFile)), test::countedBytes(4000));
        EXPECT_EQ(again.names(), std::vector<std::string>{kFile});
        return;
    }
}

} // namespace
} // namespace corvane::faultsweep_test
