#include "apps/cli/SectionText.h"

#include "apps/cli/DisplayWidth.h"
#include "apps/cli/VisibleText.h"

#include <algorithm>

namespace corvane::cli {

namespace {

constexpr std::size_t kIndent = 2;       // columns in front of each row
constexpr std::size_t kGap = 2;          // between columns of the table
constexpr std::size_t kWidestLabel = 30; // a longer one stands on a line of its own
constexpr std::size_t kNarrowestValue = 20;

std::string padded(const std::string& text, std::size_t width) {
    const std::size_t taken = displayWidth(text);
    return taken < width ? text + std::string(width - taken, ' ') : text;
}

// The rows of a section with everything made visible, and the widths of their columns.
class Table {
public:
    explicit Table(const Section& section) {
        for (const Row& row : section.rows) {
            rows_.push_back({visibleText(row.id), visibleText(row.label), row.value});
            idWidth_ = std::max(idWidth_, displayWidth(rows_.back().id));
            const std::size_t width = displayWidth(rows_.back().label);
            if (width <= kWidestLabel) labelWidth_ = std::max(labelWidth_, width);
        }
    }

    std::string text(const Colours& colours, unsigned columns) const {
        std::string lines;
        for (const Row& row : rows_) appendRow(lines, row, colours, columns);
        return lines;
    }

private:
    std::size_t labelColumn() const { return kIndent + (idWidth_ == 0 ? 0 : idWidth_ + kGap); }
    std::size_t valueColumn() const { return labelColumn() + labelWidth_ + kGap; }

    void appendRow(std::string& lines, const Row& row, const Colours& colours, unsigned columns) const {
        lines.append(kIndent, ' ');
        if (idWidth_ > 0) lines.append(colours.hint(padded(row.id, idWidth_))).append(kGap, ' ');
        lines.append(colours.label(padded(row.label, labelWidth_)));
        const bool isLong = displayWidth(row.label) > labelWidth_;
        lines.append(isLong ? "\n" : std::string(kGap, ' '));
        bool indented = isLong;
        for (const std::string& line : valueLines(row.value, columns)) {
            if (indented && !line.empty()) lines.append(valueColumn(), ' ');
            lines.append(line).push_back('\n');
            indented = true;
        }
    }

    std::vector<std::string> valueLines(const std::string& value, unsigned columns) const {
        const std::vector<std::string> lines = visibleLines(value);
        if (lines.empty()) return {"-"};
        if (columns < valueColumn() + kNarrowestValue) return lines;
        std::vector<std::string> pieces;
        for (const std::string& line : lines) {
            for (std::string& piece : wrapped(line, columns - valueColumn())) pieces.push_back(std::move(piece));
        }
        return pieces;
    }

    std::vector<Row> rows_;
    std::size_t idWidth_ = 0;
    std::size_t labelWidth_ = 0;
};

} // namespace

std::string sectionText(const Section& section, const Colours& colours, unsigned columns) {
    return colours.heading(visibleText(section.heading)) + "\n" + Table(section).text(colours, columns);
}

} // namespace corvane::cli
