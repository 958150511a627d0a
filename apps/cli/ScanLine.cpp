#include "apps/cli/ScanLine.h"

#include "apps/cli/CsvText.h"
#include "apps/cli/JsonText.h"
#include "apps/scan/SummaryValues.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace corvane::cli {

namespace {

using scan::kNumbers;
using scan::kTexts;
using scan::NumberValue;
using scan::TextValue;

constexpr std::string_view kCsvLineEnd = "\r\n"; // RFC 4180, section 2

std::string_view booleanText(bool value) { return value ? "true" : "false"; }

void appendNumber(std::string& line, std::int32_t number) {
    std::array<char, 11> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    line.append(digits.data(), written.ptr);
}

void appendName(std::string& line, std::string_view name) { line.append(",\"").append(name).append("\":"); }

std::string jsonLine(std::string_view path, const FileSummary& summary) {
    std::string line = "{\"path\":";
    line.reserve(512);
    appendJsonString(line, path);
    for (const TextValue& value : kTexts) {
        appendName(line, value.name);
        appendJsonString(line, summary.*value.text);
    }
    for (const NumberValue& value : kNumbers) {
        appendName(line, value.name);
        appendNumber(line, summary.*value.number);
    }
    line.append(",\"vbr\":").append(booleanText(summary.vbr)).append(",\"tags\":[");
    for (const std::string& tag : summary.tags) {
        if (line.back() != '[') line.push_back(',');
        appendJsonString(line, tag);
    }
    return line.append("]}\n");
}

std::string csvLine(std::string_view path, const FileSummary& summary) {
    std::string line;
    line.reserve(512);
    appendCsvField(line, path);
    for (const TextValue& value : kTexts) {
        line.push_back(',');
        appendCsvField(line, summary.*value.text);
    }
    for (const NumberValue& value : kNumbers) {
        line.push_back(',');
        appendNumber(line, summary.*value.number);
    }
    line.append(",").append(booleanText(summary.vbr)).push_back(',');
    std::string tags;
    for (const std::string& tag : summary.tags) tags.append(tags.empty() ? "" : ";").append(tag);
    appendCsvField(line, tags);
    return line.append(",").append(kCsvLineEnd); // no error
}

std::string csvErrorLine(std::string_view path, std::string_view reason) {
    std::string line;
    appendCsvField(line, path);
    // Empty columns from the title to the tags.
    line.append(kTexts.size() + kNumbers.size() + 2, ',').push_back(',');
    appendCsvField(line, reason);
    return line.append(kCsvLineEnd);
}

std::string csvHeader() {
    std::string line = "path";
    for (const TextValue& value : kTexts) line.append(",").append(value.name);
    for (const NumberValue& value : kNumbers) line.append(",").append(value.name);
    return line.append(",vbr,tags,error").append(kCsvLineEnd);
}

} // namespace

std::string scanHeader(ScanFormat format) { return format == ScanFormat::Csv ? csvHeader() : std::string(); }

std::string scanLine(ScanFormat format, std::string_view path, const FileSummary& summary) {
    return format == ScanFormat::Csv ? csvLine(path, summary) : jsonLine(path, summary);
}

std::string scanErrorLine(ScanFormat format, std::string_view path, std::string_view reason) {
    if (format == ScanFormat::Csv) return csvErrorLine(path, reason);
    std::string line = "{\"path\":";
    appendJsonString(line, path);
    line.append(",\"error\":");
    appendJsonString(line, reason);
    return line.append("}\n");
}

} // namespace corvane::cli
