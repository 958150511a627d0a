#include "apps/editor/FileRow.h"

#include <exception>
#include <utility>

namespace corvane::editor {

FileRow readRow(std::string path) {
    FileRow row;
    row.path = std::move(path);
    try {
        row.summary = summarize(row.path);
    } catch (const std::exception& failure) {
        row.failure = failure.what();
    }
    return row;
}

} // namespace corvane::editor
