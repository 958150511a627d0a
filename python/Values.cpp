#include "python/Values.h"

#include <cmath>
#include <utility>

namespace corvane::python {

namespace {

py::module_ elementTree() { return py::module_::import("xml.etree.ElementTree"); }

} // namespace

py::object elementOf(const std::string& document) { return elementTree().attr("fromstring")(Text{document}); }

XmlNode nodeOf(py::handle element) {
    const py::module_ trees = elementTree();
    if (!trees.attr("iselement")(element).cast<bool>()) return {};
    const py::object alone = py::module_::import("copy").attr("copy")(element);
    alone.attr("tail") = py::none(); // the text that follows the element in its document is none of its own
    const py::object document = trees.attr("tostring")(alone, py::arg("encoding") = "unicode");
    return XmlNode::fromText(document.cast<Text>().utf8);
}

std::int64_t wholeNumber(py::handle number, std::int64_t least, std::int64_t most) {
    const auto index = py::reinterpret_steal<py::object>(PyNumber_Index(number.ptr()));
    if (!index) throw py::error_already_set();
    int overflow = 0;
    const std::int64_t value = PyLong_AsLongLongAndOverflow(index.ptr(), &overflow);
    if (overflow != 0 || value < least || value > most) {
        throw RuntimeFailure(FailureNumber::Overflow, "corvane", "Overflow");
    }
    return value;
}

bool isNumber(py::handle object) { return PyIndex_Check(object.ptr()) != 0 || PyFloat_Check(object.ptr()) != 0; }

Position positionOf(py::handle number) {
    if (PyFloat_Check(number.ptr()) != 0) {
        const double value = PyFloat_AsDouble(number.ptr());
        const bool isPosition =
            value >= 1 && value <= std::numeric_limits<std::int32_t>::max() && std::trunc(value) == value;
        return {isPosition ? static_cast<std::int32_t>(value) : 0};
    }
    const auto index = py::reinterpret_steal<py::object>(PyNumber_Index(number.ptr()));
    if (!index) throw py::error_already_set();
    int overflow = 0;
    const std::int64_t value = PyLong_AsLongLongAndOverflow(index.ptr(), &overflow);
    const bool isPosition = overflow == 0 && std::in_range<std::int32_t>(value);
    return {isPosition ? static_cast<std::int32_t>(value) : 0};
}

ByteArray bytesOf(py::handle object) {
    Py_buffer view;
    if (PyObject_GetBuffer(object.ptr(), &view, PyBUF_CONTIG_RO) != 0) throw py::error_already_set();
    const auto* first = static_cast<const std::uint8_t*>(view.buf);
    ByteArray content(first, first + view.len);
    PyBuffer_Release(&view);
    return content;
}

void expectFunctionOrNone(py::handle object) {
    if (object.is_none() || PyCallable_Check(object.ptr()) != 0) return;
    throw py::type_error("expected a function or None, not " + std::string(py::str(py::type::handle_of(object))));
}

} // namespace corvane::python
