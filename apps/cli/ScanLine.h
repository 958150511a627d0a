// One line of a list of files, in the formats that `scan` knows. Names and order of the values are a promise to
// scripts.
#pragma once

#include "corvane/core/FileSummary.h"

#include <string>
#include <string_view>

namespace corvane::cli {

enum class ScanFormat { Json, Csv };

// What stands in front of the first line: nothing for JSON, the names of the columns for CSV.
std::string scanHeader(ScanFormat format);
// The line of a file, with its line break.
std::string scanLine(ScanFormat format, std::string_view path, const FileSummary& summary);
// The line of a file that could not be read.
std::string scanErrorLine(ScanFormat format, std::string_view path, std::string_view reason);

} // namespace corvane::cli
