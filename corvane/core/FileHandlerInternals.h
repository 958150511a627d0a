// What the library does with a file handler that its hosts do not.
#pragma once

#include "corvane/core/FileHandler.h"

#include <string>
#include <utility>

namespace corvane {

template <>
struct Internals<FileHandler> {
    // Create, with a file that is open already. Reads the frames of an ID3v2 tag too.
    static bool create(FileHandler& handler, const std::string& fileName, FileReader& file) {
        return handler.create(fileName, file);
    }
    static const cError& error(const FileHandler& handler) { return *handler.error_; }
    // Binds the handler to a file without opening it.
    static void setFileName(FileHandler& handler, std::string fileName) { handler.fileName_ = std::move(fileName); }
};

} // namespace corvane
