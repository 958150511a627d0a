// The tags of the editor as the ID3v1 control takes and gives them.
#pragma once

#include "corvane/controls/ID3v1.h"
#include "corvane/id3v1/ID3V1Tag.h"

#include "apps/editor/FileTags.h"

#include <memory>

namespace corvane::editor {

// A tag for the control to show; one that is not wanted is a new one, without any values.
std::shared_ptr<ID3V1Tag> makeId3v1Tag(const TagValues& wanted);

// What the control holds.
TagValues valuesIn(const controls::ID3v1& editor);

} // namespace corvane::editor
