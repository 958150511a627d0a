// Real files of other people's encoders and taggers: every one gives a well-formed document or a clear error. The
// folder is named by the environment variable CORVANE_CORPUS; without it this test is not registered.
#include "corvane/core/FileHandler.h"
#include "corvane/core/FileSummary.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlText.h"

#include "tests/support/WellFormed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace corvane::corpus_test {
namespace {

std::vector<std::string> corpusFiles() {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(std::getenv("CORVANE_CORPUS"))) {
        if (entry.is_regular_file()) paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

TEST(Corpus, EveryFileGivesAWellFormedDocumentOrAClearError) {
    const auto paths = corpusFiles();
    ASSERT_FALSE(paths.empty());
    std::size_t documents = 0;
    std::size_t errors = 0;
    for (const std::string& path : paths) {
        FileHandler handler;
        if (!handler.Create(path)) {
            EXPECT_NE(handler.LastError()->Stream(), "0, , ") << path;
            std::printf("%s: %s\n", path.c_str(), handler.LastError()->Stream().c_str());
            ++errors;
            continue;
        }
        const std::string text = handler.xml();
        EXPECT_EQ(test::faultOfDocument(text, "UTF-8"), "") << path;
        EXPECT_EQ(test::canonicalDocument(latin1Document(text), nullptr), test::canonicalDocument(text, "UTF-8"))
            << path;
        ++documents;
    }
    std::printf("%zu documents, %zu clear errors\n", documents, errors);
}

TEST(Corpus, EveryFileHasASummaryOrAClearError) {
    for (const std::string& path : corpusFiles()) {
        try {
            summarize(path);
        } catch (const RuntimeFailure& failure) {
            EXPECT_FALSE(failure.description().empty()) << path;
        }
    }
}

} // namespace
} // namespace corvane::corpus_test
