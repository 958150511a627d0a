// The public view of an error record. It is bound to the record, not to its state at the time: it shows the latest
// failure of the object that handed it out, also when that has taken over the record of another object since, and keeps
// the record alive after that object.
#pragma once

#include "corvane/core/cError.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <memory>
#include <string>
#include <string_view>

namespace corvane {

// Where an object keeps its error record, so that views of it follow when it takes over another one.
using ErrorRecordPlace = std::shared_ptr<const cError>;

class CORVANE_EXPORT TagError {
public:
    // Shows the record in a message box, see cError::Show.
    void Show(std::string_view Title = {}) const;
    // The record as one line: "number, source, description".
    std::string Stream() const;

private:
    friend struct Internals<TagError>;
    void SetErrorRecord(std::shared_ptr<const ErrorRecordPlace> place) { place_ = std::move(place); }

    std::shared_ptr<const ErrorRecordPlace> place_ =
        std::make_shared<const ErrorRecordPlace>(std::make_shared<const cError>());
};

template <>
struct Internals<TagError> {
    static void SetErrorRecord(TagError& error, std::shared_ptr<const ErrorRecordPlace> place) {
        error.SetErrorRecord(std::move(place));
    }
    static void SetErrorRecord(TagError& error, std::shared_ptr<const cError> record) {
        SetErrorRecord(error, std::make_shared<const ErrorRecordPlace>(std::move(record)));
    }
};

// A new view of a record: what every `LastError` returns.
inline std::shared_ptr<TagError> viewOf(std::shared_ptr<const cError> record) {
    auto view = std::make_shared<TagError>();
    Internals<TagError>::SetErrorRecord(*view, std::move(record));
    return view;
}
// The same of the record that a place holds at the time of a look.
inline std::shared_ptr<TagError> viewOf(std::shared_ptr<const ErrorRecordPlace> place) {
    auto view = std::make_shared<TagError>();
    Internals<TagError>::SetErrorRecord(*view, std::move(place));
    return view;
}

} // namespace corvane
