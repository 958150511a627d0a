#include "apps/editor/StepRebase.h"

namespace corvane::editor {

namespace {

const std::string& textOf(const TagValues& tag, std::size_t at) {
    static const std::string none;
    return tag.present ? tag.texts[at] : none;
}

// One value of a step, see rebasedStep.
template <class Value>
Value rebasedValue(const Value& step, const Value& inFile, const Value& wanted, const Value& now, bool isSaved) {
    if (now == wanted) return step;   // nobody else's
    if (wanted == inFile) return now; // nobody's here
    if (isSaved) return step == wanted ? now : step;
    return now == inFile || step == wanted ? step : now;
}

// A tag that another program has removed is wanted only where the user's changes in it still are.
bool isPresent(const TagValues& step, const TagValues& inFile, const TagValues& wanted, const TagValues& now,
               bool isSaved) {
    const bool isRemoved = inFile.present && wanted.present && !now.present;
    if (isRemoved && !isSaved) return step == wanted && wanted != inFile;
    return rebasedValue(step.present, inFile.present, wanted.present, now.present, isSaved);
}

TagValues rebasedTag(const TagValues& step, const TagValues& inFile, const TagValues& wanted, const TagValues& now,
                     bool isSaved) {
    TagValues made = now;
    made.present = isPresent(step, inFile, wanted, now, isSaved);
    if (!made.present) return made;
    for (std::size_t at = 0; at < kFieldCount; ++at) {
        made.texts[at] =
            rebasedValue(textOf(step, at), textOf(inFile, at), textOf(wanted, at), textOf(now, at), isSaved);
    }
    made.cover = step.cover;
    made.picture = step.picture;
    return made;
}

// "As the file has it" means another picture after the save.
void rebasePicture(OptionalPicture& step, const OptionalPicture& saved, const OptionalPicture& old) {
    if (saved && step == saved) {
        step.reset();
    } else if (!step) {
        step = old;
    }
}

void rebasePictures(TagValues& step, const TagValues& wanted, const OldTag& old) {
    if (!step.present) return;
    rebasePicture(step.cover, wanted.cover, old.cover);
    rebasePicture(step.picture, wanted.picture, old.picture);
}

} // namespace

FileTags rebasedStep(const FileTags& step, const FileTags& inFile, const FileTags& wanted, const FileOutcome& outcome) {
    const FileTags& now = outcome.now;
    FileTags made{rebasedTag(step.v1, inFile.v1, wanted.v1, now.v1, outcome.isSaved),
                  outcome.old.isLostForGood ? now.v2
                                            : rebasedTag(step.v2, inFile.v2, wanted.v2, now.v2, outcome.isSaved)};
    if (outcome.isSaved) rebasePictures(made.v2, wanted.v2, outcome.old);
    return made;
}

} // namespace corvane::editor
