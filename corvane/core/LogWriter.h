// Appends lines with date and time to a text file.
#pragma once

#include "corvane/core/cError.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

class LogWriter {
public:
    // Path of the log file.
    void FileName(std::string path) { fileName_ = std::move(path); }
    const std::string& FileName() const { return fileName_; }

    // Appends "date time - Text" and CR LF, in one step, so that lines of several writers do not mix; the file is
    // created when there is none. Date and time (the local one) have the form of the user's locale. False, with
    // LastError, when the line could not be written.
    bool writeLog(std::string_view Text);

    // The writer's own record, made at the first access.
    std::shared_ptr<cError> LastError();

private:
    std::string fileName_;
    std::shared_ptr<cError> error_;
};

} // namespace corvane
