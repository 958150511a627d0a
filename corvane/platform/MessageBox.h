// The modal message box and the texts of the host application, both given by the host.
#pragma once

#include "corvane/platform/Export.h"

#include <functional>
#include <string>

namespace corvane {

// Icon styles by their published numbers.
enum class MessageBoxIcon : int {
    Stop = 16,        // an unexpected failure
    Exclamation = 48, // a check of the library failed
    Information = 64  // anything else
};

// A message box with an OK button.
struct MessageBoxRequest {
    std::string text;                                  // UTF-8, lines joined by CR LF
    std::string caption;                               // title of the box, UTF-8
    MessageBoxIcon icon = MessageBoxIcon::Information; // what stands beside the text
};

// What the host application calls itself.
struct HostTexts {
    std::string title;           // its title, the default caption
    std::string fileDescription; // the description of its program file
};

// Shows a box and comes back when it is closed. Called in the thread of the operation that wants it.
using MessageBoxHook = std::function<void(const MessageBoxRequest&)>;

// Sets what shows a message box from now on, for the whole process; an empty hook brings back the default, which writes
// the caption and the lines to standard error. May be called from any thread.
CORVANE_EXPORT void setMessageBoxHook(MessageBoxHook hook);

// Sets the host's texts, for the whole process; until then both are the program's name.
CORVANE_EXPORT void setHostTexts(HostTexts texts);

// What is set at this time; for the library.
HostTexts hostTexts();
// Shows a box with what is set at this time; for the library.
void showMessageBox(const MessageBoxRequest& request);

} // namespace corvane
