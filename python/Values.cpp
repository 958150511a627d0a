#include "python/Values.h"

namespace corvane::python {

namespace {

py::module_ elementTree() { return py::module_::import("xml.etree.ElementTree"); }

} // namespace

py::object elementOf(const std::string& document) { return elementTree().attr("fromstring")(Text{document}); }

XmlNode nodeOf(py::handle element) {
    const py::module_ trees = elementTree();
    if (!trees.attr("iselement")(element).cast<bool>()) return {};
    const py::object document = trees.attr("tostring")(element, py::arg("encoding") = "unicode");
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
