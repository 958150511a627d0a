// Does one operation on a file and tells how it ended: exit code 0 for success, 1 for failure (its text on standard
// output), 2 for wrong use. The N-th allocation of memory that is not id3lib's fails when CORVANE_FAULT_ALLOCATION is
// N.
#include "corvane/core/FileHandler.h"
#include "corvane/core/FileRoutines.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/platform/FileReplacement.h"

#include "tests/faults/Id3libCallers.h"
#include "tests/support/ByteBuilder.h"

#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>

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
                                 Operation{"v2-create", createTag}};

int run(const Operation& operation, const std::string& path) {
    Outcome outcome;
    corvane::test::Id3libCallers::prepare();
    failingAllocation = numberOf("CORVANE_FAULT_ALLOCATION");
    reportDescriptor = static_cast<int>(numberOf("CORVANE_FAULT_REPORT"));
    try {
        outcome = operation.run(path);
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
