// What kind of file an extension stands for, in words.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// extension: without the dot, in any case. An unknown one gives "XYZ File", an empty one "File".
std::string fileTypeNameOf(std::string_view extension);

} // namespace corvane
