#include "apps/editor/TagsMerge.h"

#include "apps/editor/FieldNames.h"

namespace corvane::editor {

namespace {

void addName(std::string& names, const std::string& tag, const char* name) {
    if (!names.empty()) names += ", ";
    names += tag + " " + name;
}

// isWhole: a tag that is new is written with all its fields, also the empty ones.
void addConflicts(std::string& names, const char* tag, bool isWhole, const TagValues& before, const TagValues& wanted,
                  const TagValues& now) {
    if (before == wanted || before == now) return;
    if (!wanted.present) return now.present ? addName(names, tag, "tag") : void();
    for (std::size_t at = 0; at < kFieldCount; ++at) {
        const std::string &was = before.texts[at], &mine = wanted.texts[at], &theirs = now.texts[at];
        const bool isMine = mine != was || (isWhole && !before.present);
        if (isMine && theirs != was && theirs != mine) addName(names, tag, fieldName(fieldAt(at)));
    }
}

} // namespace

std::string conflictsIn(const FileTags& before, const FileTags& wanted, const FileTags& now) {
    std::string names;
    addConflicts(names, "ID3v2", false, before.v2, wanted.v2, now.v2);
    addConflicts(names, "ID3v1", true, before.v1, wanted.v1, now.v1);
    return names;
}

} // namespace corvane::editor
