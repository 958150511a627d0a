// What the library does with a file handler that its hosts do not.
#pragma once

#include "corvane/core/FileHandler.h"

#include <string>
#include <utility>

namespace corvane {

template <>
struct Internals<FileHandler> {
    // Binds the handler to a file without opening it.
    static void setFileName(FileHandler& handler, std::string fileName) { handler.fileName_ = std::move(fileName); }
};

} // namespace corvane
