// Does one operation on a file and reports how it ended: exit code 0 for success, 1 for failure (its text on standard
// output, after "step 2: " where the first of two steps was done), 2 for wrong use, 3 for success where only a failure
// would have been right. The N-th allocation of memory that is not id3lib's fails when CORVANE_FAULT_ALLOCATION is
// N.
#include "corvane/core/FileHandler.h"
#include "corvane/core/FileRoutines.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/KeptFrames.h"
#include "corvane/id3v230/RawFrame.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/FileReplacement.h"

#include "tests/faults/Id3libCallers.h"
#include "tests/support/ByteBuilder.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace {

long allocationCount = 0;
long failingAllocation = 0;
int reportDescriptor = 0;

long numberOf(const char* variable) {
    const char* text = std::getenv(variable);
    return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

} // namespace

void* operator new(std::size_t size) {
    const bool isCounted = failingAllocation != 0 && !corvane::test::Id3libCallers::includeId3lib();
    if (isCounted && ++allocationCount == failingAllocation) {
        static_cast<void>(::write(reportDescriptor, "allocation\n", 11) == 11);
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
// Inlined into a caller, they look to g++ like a std::free of what its own operator new gave.
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using namespace corvane;

// What an operation returns: success, or the text of its failure.
struct Outcome {
    bool isSuccess = true;
    std::string text;
};

Outcome outcomeOf(bool isSuccess, const FileHandler& handler) {
    failingAllocation = 0; // the operation is over, this only asks for its result
    return {isSuccess, isSuccess ? "" : handler.LastError()->Stream()};
}

Outcome cut(const std::string& path) {
    FileRoutines::CutFileBytes(path, 128);
    return {};
}

Outcome addHead(const std::string& path) {
    FileReplacement replacement(path);
    replacement.append(ByteArray(5000, 'h'));
    replacement.copy(0, replacement.originalSize());
    replacement.commit();
    return {};
}

Outcome changeMiddle(const std::string& path) {
    FileReplacement replacement(path);
    replacement.keepModificationTime();
    replacement.copy(0, 1000);
    replacement.append(ByteArray(500, 'm'));
    replacement.copy(2000, replacement.originalSize() - 2000);
    replacement.commit();
    return {};
}

Outcome copyNew(const std::string& path) {
    FileRoutines::FileCopy(path, path + ".copy", false, 128);
    return {};
}

Outcome copyOver(const std::string& path) {
    FileRoutines::FileCopy(path, path + ".copy", true, 128);
    return {};
}

Outcome copyBehind(const std::string& path) {
    FileRoutines::FileCopy(path, path + ".copy", false, 128, true);
    return {};
}

Outcome hasTag(const std::string& path) {
    FileHandler handler;
    if (!handler.Create(path)) return outcomeOf(false, handler);
    return outcomeOf(handler.HasTag(), handler);
}

Outcome writeTag(const std::string& path) {
    FileHandler handler;
    if (!handler.Create(path)) return outcomeOf(false, handler);
    handler.ID3v1xTag()->TagType(EID3TagConstants::ID3v1);
    handler.ID3v1xTag()->Title("a new title");
    return outcomeOf(handler.writeID3v1xTag(), handler);
}

Outcome removeTag(const std::string& path) {
    FileHandler handler;
    if (!handler.Create(path)) return outcomeOf(false, handler);
    return outcomeOf(handler.removeID3V1xTag(), handler);
}

// Failures of saving tell their reason inside the library alone.
Outcome saved(ID3V230& tag) {
    const bool isSaved = Internals<ID3V230>::SaveTag(tag);
    failingAllocation = 0;
    return {isSaved, isSaved ? "" : Internals<ID3V230>::lastFailure(tag)->description};
}

// What `change` makes of the ID3v2.3 tag of the file, saved.
template <class Change>
Outcome changeTag(const std::string& path, Change&& change) {
    ID3V230 tag;
    if (!Internals<ID3V230>::LoadFromFile(tag, path)) return {false, "the tag was not read"};
    change(tag);
    return saved(tag);
}

// A text of the library's own making and a comment of id3lib's.
void makeLonger(ID3V230& tag) {
    tag.Title(std::string(3000, 't'));
    tag.Comments("a comment");
}

void changeWords(ID3V230& tag) {
    tag.Title("new");
    tag.Mood("Calm");
}

Outcome growTag(const std::string& path) { return changeTag(path, makeLonger); }

Outcome changeTagSafely(const std::string& path) { return changeTag(path, changeWords); }

Outcome changeTagInPlace(const std::string& path) {
    return changeTag(path, [](ID3V230& tag) {
        tag.UseTempCopy(false);
        changeWords(tag);
    });
}

Outcome shrinkTag(const std::string& path) {
    return changeTag(path, [](ID3V230& tag) { tag.Picture(nullptr); });
}

Outcome removeId3v2Tag(const std::string& path) {
    FileHandler handler;
    if (!handler.Create(path)) return outcomeOf(false, handler);
    const auto tag = handler.ID3V2Tag()->ID3V23Tag();
    if (tag == nullptr) return {false, "the tag was not read"};
    const bool isRemoved = tag->removeTag();
    failingAllocation = 0;
    return {isRemoved, isRemoved ? "" : tag->LastError()->Stream()};
}

Outcome createTag(const std::string& path) {
    FileHandler handler;
    if (!handler.Create(path)) return outcomeOf(false, handler);
    const auto values = std::make_shared<ID3V230>();
    makeLonger(*values);
    return outcomeOf(handler.createID3V2Tag(values), handler);
}

// A file whose ID3v2.3 tag was read as hosts do it. A read that has failed gives empty values, and no failure.
class OpenedTag {
public:
    explicit OpenedTag(const std::string& path) {
        if (!handler_.Create(path)) return;
        tag_ = handler_.ID3V2Tag();
        reader_ = tag_->ID3V23Tag();
    }
    bool isOpen() const { return reader_ != nullptr; }
    ID3V2Tag& tag() const { return *tag_; }
    ID3V23Tag& reader() const { return *reader_; }
    // Nothing where the tag is only read.
    ID3V230* records() const { return Internals<ID3V23Tag>::changeable(*reader_).get(); }
    // The record of the picture; nothing without one.
    std::shared_ptr<ID3V230Frame> picture() const {
        if (records() == nullptr) return nullptr;
        for (const auto& record : *records()->Frames()) {
            if (record->FrameAbbr() == "APIC") return record;
        }
        return nullptr;
    }

    Outcome saved() const { return outcome(tag_->saveTag()); }
    Outcome outcome(bool isSuccess) const {
        if (isSuccess) return {};
        failingAllocation = 0;
        return {false, tag_->LastError()->Stream() + reader_->LastError()->Stream()};
    }

private:
    FileHandler handler_;
    std::shared_ptr<ID3V2Tag> tag_;
    std::shared_ptr<ID3V23Tag> reader_;
};

// What `change` makes of the tag of the file.
template <class Change>
Outcome withOpenedTag(const std::string& path, Change&& change) {
    const OpenedTag opened(path);
    return opened.isOpen() ? change(opened) : Outcome{false, "the file was not opened"};
}

// A second step is only made when the first one was done.
template <class Second>
Outcome followedBy(Outcome first, Second&& second) {
    if (!first.isSuccess) return first;
    Outcome last;
    try {
        last = second();
    } catch (const std::exception& failure) {
        failingAllocation = 0;
        last = {false, failure.what()};
    }
    if (!last.isSuccess) last.text.insert(0, "step 2: ");
    return last;
}

// A success that would be a loss.
struct Harm {};

// The outcome of a save that has to be refused.
Outcome refused(const OpenedTag& opened) {
    if (opened.saved().isSuccess) throw Harm();
    return {};
}

Outcome saveWords(const OpenedTag& opened) {
    opened.tag().Title(std::string(3000, 't'));
    opened.tag().Comment("a comment");
    return opened.saved();
}

Outcome changeOpened(const std::string& path) { return withOpenedTag(path, saveWords); }

Outcome saveUnchanged(const std::string& path) {
    return withOpenedTag(path, [](const OpenedTag& opened) { return opened.saved(); });
}

Outcome deleteAllFrames(const OpenedTag& opened) {
    if (opened.records() == nullptr) return {false, "the tag is only read"};
    for (const auto& record : *opened.records()->Frames()) record->Delete();
    return opened.saved();
}

Outcome deleteAll(const std::string& path) { return withOpenedTag(path, deleteAllFrames); }

// A second tag comes to light: whatever is saved then, it stays.
Outcome uncoverTag(const std::string& path) {
    return withOpenedTag(path, [](const OpenedTag& opened) {
        return followedBy(deleteAllFrames(opened), [&] {
            opened.tag().Title("third");
            return refused(opened);
        });
    });
}

Outcome removeOpened(const OpenedTag& opened) { return opened.outcome(opened.reader().removeTag()); }

Outcome removeAndUncoverTag(const std::string& path) {
    return withOpenedTag(path, [](const OpenedTag& opened) {
        return followedBy(removeOpened(opened), [&] { return refused(opened); });
    });
}

Outcome removeFirst(const std::string& path) { return withOpenedTag(path, removeOpened); }

// A tag that nobody has read is removed all the same, but then there is nothing to save.
Outcome removeAndSave(const std::string& path) {
    return withOpenedTag(path, [](const OpenedTag& opened) {
        const bool wasRead = opened.records() != nullptr && opened.records()->FrameCount() > 0;
        return followedBy(removeOpened(opened), [&] {
            const Outcome last = opened.saved();
            return wasRead || !last.isSuccess ? last : Outcome{false, "there was nothing to save"};
        });
    });
}

Outcome deletePicture(const OpenedTag& opened) {
    const auto picture = opened.picture();
    if (picture == nullptr) return {false, "the picture was not read"};
    picture->Delete();
    return opened.saved();
}

Outcome deletePictureFirst(const std::string& path) { return withOpenedTag(path, deletePicture); }

Outcome undeletePicture(const std::string& path) {
    return withOpenedTag(path, [](const OpenedTag& opened) {
        return followedBy(deletePicture(opened), [&] {
            opened.picture()->Deleted(false);
            return opened.saved();
        });
    });
}

// While it lives, another program is at work: nothing of it goes wrong.
class OtherProgram {
public:
    OtherProgram() : allocation_(std::exchange(failingAllocation, 0)) { pauseFaults(1); }
    ~OtherProgram() {
        pauseFaults(0);
        failingAllocation = allocation_;
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    // Another artist, with the size and the modification time of before.
    void changeUnseen(const std::string& path) const {
        struct stat before {};
        ::stat(path.c_str(), &before);
        ByteArray content = FileReader(path).read(0, static_cast<std::size_t>(before.st_size));
        constexpr std::string_view kOld = "an artist", kNew = "AN ARTIST";
        std::copy(kNew.begin(), kNew.end(), std::search(content.begin(), content.end(), kOld.begin(), kOld.end()));
        const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (::pwrite(file, content.data(), content.size(), 0) != before.st_size) std::abort();
        const timespec times[2] = {before.st_atim, before.st_mtim};
        untilTheClockGoesOn(path, before, [&] { ::futimens(file, times); });
        ::close(file);
    }
    // The same permissions again, which is no change but for the time of the inode.
    void changePermissions(const std::string& path) const {
        struct stat before {};
        ::stat(path.c_str(), &before);
        untilTheClockGoesOn(path, before, [&] { ::chmod(path.c_str(), before.st_mode & 07777); });
    }

private:
    static void pauseFaults(int isPaused) {
        if (void* pause = ::dlsym(RTLD_DEFAULT, "corvaneFaultsArePaused"))
            reinterpret_cast<void (*)(int)>(pause)(isPaused);
    }
    template <class Change>
    static void untilTheClockGoesOn(const std::string& path, const struct stat& before, Change&& change) {
        struct stat now = before;
        while (now.st_ctim.tv_nsec == before.st_ctim.tv_nsec) {
            change();
            ::stat(path.c_str(), &now);
        }
    }

    long allocation_;
};

Outcome saveOverAnothersChange(const std::string& path) {
    return withOpenedTag(path, [&](const OpenedTag& opened) {
        OtherProgram().changeUnseen(path);
        return followedBy({}, [&] {
            opened.tag().Title("after");
            return refused(opened);
        });
    });
}

Outcome saveAfterAnothersPermissions(const std::string& path) {
    return withOpenedTag(path, [&](const OpenedTag& opened) {
        OtherProgram().changePermissions(path);
        return saveWords(opened);
    });
}

// Keeps the end of the file where there is more than memory is used for.
Outcome keepFrames(const std::string& path) {
    KeptFrames kept(KeptFrames::kMostInMemory + 1);
    FileReader file(path);
    RawFrame frame;
    frame.dataSize = static_cast<std::uint32_t>(file.size() - RawFrame::kHeaderSize);
    kept.keep(1, frame, file);
    if (kept.data(1) != file.read(RawFrame::kHeaderSize, frame.dataSize)) throw Harm();
    return {};
}

struct Operation {
    const char* name;
    Outcome (*run)(const std::string& path);
};
constexpr std::array kOperations{Operation{"cut", cut},
                                 Operation{"add-head", addHead},
                                 Operation{"change-middle", changeMiddle},
                                 Operation{"copy-new", copyNew},
                                 Operation{"copy-over", copyOver},
                                 Operation{"copy-behind", copyBehind},
                                 Operation{"has-tag", hasTag},
                                 Operation{"write-tag", writeTag},
                                 Operation{"remove-tag", removeTag},
                                 Operation{"v2-grow", growTag},
                                 Operation{"v2-change", changeTagSafely},
                                 Operation{"v2-change-in-place", changeTagInPlace},
                                 Operation{"v2-shrink", shrinkTag},
                                 Operation{"v2-remove", removeId3v2Tag},
                                 Operation{"v2-create", createTag},
                                 Operation{"change", changeOpened},
                                 Operation{"save-unchanged", saveUnchanged},
                                 Operation{"delete-all", deleteAll},
                                 Operation{"uncover", uncoverTag},
                                 Operation{"remove-and-uncover", removeAndUncoverTag},
                                 Operation{"remove", removeFirst},
                                 Operation{"remove-and-save", removeAndSave},
                                 Operation{"delete-picture", deletePictureFirst},
                                 Operation{"undelete-picture", undeletePicture},
                                 Operation{"save-over-anothers-change", saveOverAnothersChange},
                                 Operation{"save-after-anothers-permissions", saveAfterAnothersPermissions},
                                 Operation{"keep-frames", keepFrames}};

constexpr int kHarm = 3;

int run(const Operation& operation, const std::string& path) {
    Outcome outcome;
    corvane::test::Id3libCallers::prepare();
    failingAllocation = numberOf("CORVANE_FAULT_ALLOCATION");
    reportDescriptor = static_cast<int>(numberOf("CORVANE_FAULT_REPORT"));
    try {
        outcome = operation.run(path);
    } catch (const Harm&) {
        return kHarm;
    } catch (const std::exception& failure) {
        outcome.isSuccess = false;
        std::printf("%s\n", failure.what());
    }
    failingAllocation = 0;
    // Known to the preloaded library alone.
    if (void* faultsAreOver = ::dlsym(RTLD_DEFAULT, "corvaneFaultsAreOver"))
        reinterpret_cast<void (*)()>(faultsAreOver)();
    if (!outcome.isSuccess) std::printf("%s\n", outcome.text.c_str());
    return outcome.isSuccess ? 0 : 1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    for (const Operation& operation : kOperations) {
        if (argumentCount == 3 && std::strcmp(arguments[1], operation.name) == 0) return run(operation, arguments[2]);
    }
    std::fprintf(stderr, "corvane-fault-driver OPERATION FILE\n");
    return 2;
}
