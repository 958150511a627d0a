// Any bytes as a whole file: opening and rendering them either fails with a clear error or gives a document that
// another parser takes, in UTF-8 as in ISO-8859-1.
#include "corvane/core/FileHandler.h"
#include "corvane/core/FileSummary.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlText.h"

#include "tests/support/ScratchFolder.h"
#include "tests/support/WellFormed.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    static const test::ScratchFolder folder;
    const std::string path = folder.write("whole.mp3", Bytes(data, size));
    try {
        FileHandler handler;
        if (!handler.Create(path)) return 0;
        const std::string text = handler.xml();
        if (!test::faultOfDocument(text, "UTF-8").empty()) std::abort();
        if (test::canonicalDocument(latin1Document(text), nullptr) != test::canonicalDocument(text, "UTF-8"))
            std::abort();
        summarize(path);
    } catch (const RuntimeFailure& failure) {
        if (failure.description().empty()) std::abort();
    }
    return 0;
}
