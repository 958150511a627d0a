// The names of fields in previews, reports and failures: one name for each, wherever it is met.
#pragma once

#include "apps/editor/FileTags.h"

#include <QString>
#include <string>

namespace corvane::editor {

// The name of a field, in English: "original artist".
const char* fieldName(Field field);

// The name, in the user's language, of what a plan calls "original-artist". Names of no field stay.
QString shownFieldName(const std::string& planName);

} // namespace corvane::editor
