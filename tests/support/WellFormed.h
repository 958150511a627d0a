// Whether a document is well-formed, in the judgement of a parser that is not ours (libxml2).
#pragma once

#include <string>
#include <string_view>

namespace corvane::test {

// What is wrong with a document, or "" when it is well-formed. `encoding` is that of the bytes, whatever the
// declaration says; nullptr believes the declaration.
std::string faultOfDocument(std::string_view document, const char* encoding);

// The document in canonical form (Canonical XML 1.0), to compare two documents by what a parser reads in them.
std::string canonicalDocument(std::string_view document, const char* encoding);

} // namespace corvane::test
