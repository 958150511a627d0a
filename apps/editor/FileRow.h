// One file of the list: where it is, and what the list shows of it.
#pragma once

#include "corvane/core/FileSummary.h"

#include <QList>
#include <string>

namespace corvane::editor {

struct FileRow {
    std::string path; // bytes, as the file system has them
    FileSummary summary;
    std::string failure; // why the file cannot be read; "" when it can
};
using FileRows = QList<FileRow>;

// Reads the row of a file. A file that cannot be read has a row too.
FileRow readRow(std::string path);

} // namespace corvane::editor
