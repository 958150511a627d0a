#include "corvane/platform/InflationLimit.h"
#include "corvane/platform/MessageBox.h"

#include "python/Binding.h"
#include "python/Bindings.h"

#include <limits>
#include <utility>

namespace corvane::python {

namespace {

// A function of Python's that the library calls and releases on whatever thread it is.
class Hook {
public:
    explicit Hook(py::object function)
        : function_(new py::object(std::move(function)), [](py::object* object) {
              const py::gil_scoped_acquire locked;
              delete object;
          }) {}

    void operator()(const MessageBoxRequest& request) const {
        const py::gil_scoped_acquire locked;
        (*function_)(Text{request.text}, Text{request.caption}, static_cast<int>(request.icon));
    }

private:
    std::shared_ptr<py::object> function_;
};

void setHook(const py::object& hook) {
    expectFunctionOrNone(hook);
    MessageBoxHook given;
    if (!hook.is_none()) given = Hook(hook);
    const py::gil_scoped_release unlocked;
    setMessageBoxHook(std::move(given));
}

} // namespace

void bindHost(py::module_& corvane) {
    corvane.def("setMessageBoxHook", setHook, "hook"_a,
                "Sets what shows a message box from now on, for the whole process: a function of its text, its caption "
                "and its icon (16 stop, 48 exclamation, 64 information). None brings back the default, which writes to "
                "standard error.");
    corvane.def(
        "setHostTexts",
        [](Text title, Text fileDescription) {
            setHostTexts({std::move(title.utf8), std::move(fileDescription.utf8)});
        },
        "title"_a, "fileDescription"_a,
        "Sets the host's title and the description of its program file, for the whole process. Message boxes have them "
        "as captions.");
    corvane.def(
        "setInflationLimit",
        [](const py::object& bytesBeyondFile) {
            constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
            setInflationLimit(static_cast<std::uint64_t>(wholeNumber(bytesBeyondFile, 0, kMost)));
        },
        "bytesBeyondFile"_a,
        "Sets how many bytes all compressed frames of a tag may make together beyond the size of their file, for tags "
        "that are read from now on in the whole process; 67108864 until then. What frames beyond it say cannot be "
        "read. "
        "Raises Error (6) for a negative number.");
    // The library outlives the interpreter, in which the function lives.
    py::module_::import("atexit").attr("register")(py::cpp_function([] { setHook(py::none()); }));
}

} // namespace corvane::python
