#include "corvane/core/TagError.h"

namespace corvane {

void TagError::Show(std::string_view Title) const { record_->Show(Title); }

std::string TagError::Stream() const { return record_->Stream(); }

} // namespace corvane
