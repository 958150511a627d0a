// The enumerations of the editor controls. They are known to Qt's meta-object system, so that form files name them.
#pragma once

#include "corvane/controls/Export.h"

#include <QObject>
#include <cstdint>

namespace corvane::controls {

Q_NAMESPACE_EXPORT(CORVANE_CONTROLS_EXPORT)

// How many tags the ID3v1 editor edits at once.
enum class ETagEditModeConstants : std::int32_t {
    temEditSingle = 0, // one tag
    temEditMany = 1    // several tags at once: only the fields that the user has edited count
};
Q_ENUM_NS(ETagEditModeConstants)

// How the ID3v2 editor arranges its panels.
enum class EID3v2Apperance : std::int32_t {
    v2aDefault = 0, // the panels one below the other
    v2aWide = 1     // the panels side by side
};
Q_ENUM_NS(EID3v2Apperance)

} // namespace corvane::controls
