// The wall between the library and Qt: no exception passes it. Qt's event loop cannot carry one, so whatever a control
// does in answer to an event runs behind it.
#pragma once

#include <QtGlobal>
#include <exception>
#include <utility>

namespace corvane::controls {

template <class Body>
void behindWall(const char* place, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (const std::exception& failure) {
        qWarning("%s: %s", place, failure.what());
    } catch (...) {
        qWarning("%s: unknown failure", place);
    }
}

} // namespace corvane::controls
