// A host that notes what message boxes are shown.
#pragma once

#include "corvane/platform/MessageBox.h"

#include <vector>

namespace corvane::test {

// Takes the place of the message box while it lives. The host's texts are "the host" and "a host for tests".
class HostMessageBox {
public:
    HostMessageBox() {
        setMessageBoxHook([this](const MessageBoxRequest& request) { shown.push_back(request); });
        setHostTexts({"the host", "a host for tests"});
    }
    ~HostMessageBox() { setMessageBoxHook({}); }
    HostMessageBox(const HostMessageBox&) = delete;
    HostMessageBox& operator=(const HostMessageBox&) = delete;

    std::vector<MessageBoxRequest> shown;
};

} // namespace corvane::test
