#include "apps/cli/Id3v1Change.h"

#include "apps/cli/LibraryFailure.h"

#include <utility>

namespace corvane::cli {

Id3v1Change::Id3v1Change(std::shared_ptr<FileHandler> handler)
    : handler_(std::move(handler)), hadTag_(handler_->HasTag()), before_(fieldsOf(*handler_->ID3v1xTag())) {}

void Id3v1Change::addTo(ChangeReport& report, Write when) const {
    const ID3V1Tag& tag = *handler_->ID3v1xTag();
    TagOutcome outcome = outcomeOf(before_, tag);
    ChangedTag change{"v1", id3v1Name(tag)};
    if (!outcome.changes.empty() || (!hadTag_ && when == Write::NewTagOrChanges)) {
        change.fate = hadTag_ ? ChangedTag::Fate::Kept : ChangedTag::Fate::Added;
        change.write = [handler = handler_] { writeId3v1Tag(*handler); };
    }
    change.changes = std::move(outcome.changes);
    report.tags.push_back(std::move(change));
    report.warnings.insert(report.warnings.end(), outcome.warnings.begin(), outcome.warnings.end());
}

const char* id3v1Name(const ID3V1Tag& tag) { return tag.TagType() == EID3TagConstants::ID3V11 ? "ID3v1.1" : "ID3v1"; }

} // namespace corvane::cli
