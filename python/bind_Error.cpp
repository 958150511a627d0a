#include "python/Bindings.h"
#include "python/Values.h"

namespace corvane::python {

using namespace py::literals;

namespace {

PyObject* errorClass = nullptr; // lives as long as the interpreter

constexpr const char* kErrorDoc =
    "A failure that reaches the caller: Error(number, source, description).\n\n"
    "Most operations raise none. They return their failure value, and LastError tells why.";

py::object argumentProperty(int index, const char* doc) {
    const auto read = [index](const py::object& error) { return py::object(error.attr("args")[py::int_(index)]); };
    return py::module_::import("builtins").attr("property")(py::cpp_function(read), py::none(), py::none(), doc);
}

void raise(std::exception_ptr thrown) { // NOLINT(performance-unnecessary-value-param): as pybind11 calls it
    try {
        if (thrown) std::rethrow_exception(thrown);
    } catch (const RuntimeFailure& failure) {
        const py::tuple arguments =
            py::make_tuple(failure.number(), Text{failure.source()}, Text{failure.description()});
        PyErr_SetObject(errorClass, arguments.ptr());
    }
}

} // namespace

void bindError(py::module_& corvane) {
    py::dict members;
    members["number"] = argumentProperty(
        0,
        "An errno number, 6 (overflow), 9 (index outside a table), 13 (no number), 51 (a failure of no other number), "
        "63 (position outside the file), 91 (object not there), 457 (key there already), or -2147221504 and above "
        "for a failure with its own text.");
    members["source"] = argumentProperty(1, "Label of the operation that failed.");
    members["description"] = argumentProperty(2, "The message.");
    // So that every error has all three, given by place or by name.
    members["__init__"] = py::cpp_function(
        [](const py::object& error, const py::int_& number, const py::str& source, const py::str& description) {
            error.attr("args") = py::make_tuple(number, source, description);
        },
        py::name("Error"), py::is_method(py::none()), "number"_a, "source"_a, "description"_a);
    members["__str__"] = py::cpp_function(
        [](const py::object& error) { return py::str("{}, {}, {}").format(*py::tuple(error.attr("args"))); },
        py::name("__str__"), py::is_method(py::none()));
    errorClass = PyErr_NewExceptionWithDoc("corvane.Error", kErrorDoc, PyExc_Exception, members.ptr());
    if (errorClass == nullptr) throw py::error_already_set();
    corvane.add_object("Error", py::reinterpret_borrow<py::object>(errorClass));
    py::register_local_exception_translator(raise);
}

} // namespace corvane::python
