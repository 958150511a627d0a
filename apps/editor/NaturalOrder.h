// The order in which people count: "Track 2" comes before "Track 10".
#pragma once

#include <QString>
#include <string_view>

namespace corvane::editor {

// Of paths, which are bytes. Below 0, 0 for the same bytes alone, or above 0.
int compareNaturally(std::string_view one, std::string_view other);

// Of texts, in the order of the user's language. 0 also for numbers that differ in leading zeros alone.
int compareNaturally(const QString& one, const QString& other);

} // namespace corvane::editor
