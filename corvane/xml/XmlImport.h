// How the tag classes are filled from an element in the common layout: texts and numbers of its properties.
#pragma once

#include "corvane/xml/XmlNode.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// The text of an attribute of an element's first "Property" with this name, which holds no apostrophe; nothing when
// there is no such property or attribute. Properties that are in a namespace are not those of the layout.
std::optional<std::string> findPropertyAttribute(const XmlNode& element, std::string_view name,
                                                 const std::string& attribute);

// The same text; fails with ObjectNotSet when there is none. `source` is the source of the failure.
std::string propertyAttribute(const XmlNode& element, std::string_view name, const std::string& attribute,
                              const char* source);

// The whole number that a text writes as automation hosts read it: decimal ASCII digits, a sign before them if any, and
// blanks around both if any. Fails with TypeMismatch for any other text and with Overflow when 64 bits do not hold it.
std::int64_t wholeNumber(std::string_view text, const char* source);

} // namespace corvane
