// What the library does with a file handler that its hosts do not.
#pragma once

#include "corvane/core/FileHandler.h"
#include "corvane/platform/Paths.h"

#include <string>
#include <utility>

namespace corvane {

template <>
struct Internals<FileHandler> {
    // Binds the handler to a file without opening it.
    static void setFileName(FileHandler& handler, std::string fileName) {
        handler.path_ = lastingPath(fileName);
        handler.fileName_ = std::move(fileName);
    }
    // The path of the file whatever the current folder is.
    static const std::string& path(const FileHandler& handler) { return handler.path_; }
};

} // namespace corvane
