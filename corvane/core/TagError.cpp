#include "corvane/core/TagError.h"

namespace corvane {

void TagError::Show(std::string_view Title) const { (*place_)->Show(Title); }

std::string TagError::Stream() const { return (*place_)->Stream(); }

} // namespace corvane
