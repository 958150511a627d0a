// The modal message box and the texts of the host application, both given by the host.
#pragma once

#include "corvane/platform/Export.h"

#include <functional>
#include <string>

namespace corvane {

// Icon styles by their published numbers.
enum class MessageBoxIcon : int { Stop = 16, Exclamation = 48, Information = 64 };

// A message box with an OK button.
struct MessageBoxRequest {
    std::string text; // lines joined by CR LF
    std::string caption;
    MessageBoxIcon icon = MessageBoxIcon::Information;
};

// What the host application calls itself.
struct HostTexts {
    std::string title;           // its title, the default caption
    std::string fileDescription; // the description of its program file
};

using MessageBoxHook = std::function<void(const MessageBoxRequest&)>;

// Sets what shows a message box from now on, for the whole process; an empty hook brings back the default, which writes
// the caption and the lines to standard error. May be called from any thread.
CORVANE_EXPORT void setMessageBoxHook(MessageBoxHook hook);

// Sets the host's texts, for the whole process; until then both are the program's name.
CORVANE_EXPORT void setHostTexts(HostTexts texts);

HostTexts hostTexts();
void showMessageBox(const MessageBoxRequest& request);

} // namespace corvane
