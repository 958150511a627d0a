#include "corvane/core/TagError.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindTagError(py::module_& corvane) {
    Class<TagError>(corvane, "TagError",
                    "A view of an object's error record. It shows the latest failure of the object that handed it out, "
                    "and keeps the record alive after that object.")
        .def(py::init<>())
        .def(
            "Show", [](const TagError& error, const Text& title) { error.Show(title.utf8); }, "Title"_a = Text{},
            FileWork(),
            "Shows the record in a message box (setMessageBoxHook): with the host's title, or with the host's file "
            "description and this title.")
        .def(
            "Stream", [](const TagError& error) { return Text{error.Stream()}; },
            "The record as one line: \"number, source, description\". The number is 0 for a check of the library; "
            "\"0, , \" without a failure.");
}

} // namespace corvane::python
