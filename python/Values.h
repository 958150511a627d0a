// How values cross the border between Python and the library. Every source of the module includes this, so that a type
// is converted in one way only.
//
//   Text       str; UTF-8 in the library. What is no UTF-8, as a name inside a message may be, comes out with surrogate
//              escapes, so that no byte is lost and no text fails to come out. A str with surrogates does not go in.
//   FileName   str, bytes or os.PathLike goes in, str comes out, as os.fsencode and os.fsdecode convert them.
//   Key        str that something is looked up by. One with surrogates is the key of nothing.
//   Number<T>  int; one that does not fit T is the library's overflow failure and is never wrapped.
//   Position   a number, of an element of a collection; 0, which no element has, for one that is not whole
//              or does not fit.
//   ByteArray  bytes comes out; any object that shows its bytes (bytes, bytearray, memoryview) goes in.
//   XmlNode    xml.etree.ElementTree.Element goes in.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include <pybind11/pybind11.h>

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>

namespace corvane::python {

namespace py = pybind11;

struct Text {
    std::string utf8;
};

struct Key {
    std::string bytes;
};

struct FileName {
    std::string bytes;
};

template <std::integral T>
struct Number {
    T value;
};

struct Position {
    std::int32_t value; // from 1
};

// An argument that a function takes as any object and then as a T; fails with TypeError for an object that is none.
template <class T>
T argumentOf(py::handle object) {
    py::detail::make_caster<T> caster;
    if (!caster.load(object, true)) {
        throw py::type_error("unexpected " + std::string(py::str(py::type::handle_of(object))));
    }
    return py::detail::cast_op<T&>(caster);
}

// The element that the root of a document made by the library is to Python.
py::object elementOf(const std::string& document);
// The reverse way.
XmlNode nodeOf(py::handle element);

// A whole number of at most 64 bits; fails with an overflow outside `least` and `most`, and as Python does for an
// object that is no whole number.
std::int64_t wholeNumber(py::handle number, std::int64_t least, std::int64_t most);

// An int, or a float.
bool isNumber(py::handle object);
Position positionOf(py::handle number);

ByteArray bytesOf(py::handle object);

// Fails with TypeError for what is neither None nor can be called: here, and not when it would first be called.
void expectFunctionOrNone(py::handle object);

} // namespace corvane::python

namespace pybind11::detail {

template <>
struct type_caster<corvane::python::Text> {
    PYBIND11_TYPE_CASTER(corvane::python::Text, const_name("str"));

    bool load(handle source, bool) {
        if (PyUnicode_Check(source.ptr()) == 0) return false;
        Py_ssize_t size = 0;
        const char* utf8 = PyUnicode_AsUTF8AndSize(source.ptr(), &size);
        if (utf8 == nullptr) throw error_already_set();
        value.utf8.assign(utf8, static_cast<std::size_t>(size));
        return true;
    }
    static handle cast(const corvane::python::Text& text, return_value_policy, handle) {
        return PyUnicode_DecodeUTF8(text.utf8.data(), static_cast<Py_ssize_t>(text.utf8.size()), "surrogateescape");
    }
};

template <>
struct type_caster<corvane::python::Key> {
    PYBIND11_TYPE_CASTER(corvane::python::Key, const_name("str"));

    bool load(handle source, bool) {
        if (PyUnicode_Check(source.ptr()) == 0) return false;
        // Surrogates become bytes that no text of the library has, since its texts are UTF-8.
        PyObject* encoded = PyUnicode_AsEncodedString(source.ptr(), "utf-8", "surrogatepass");
        if (encoded == nullptr) throw error_already_set();
        value.bytes = reinterpret_steal<pybind11::bytes>(encoded);
        return true;
    }
};

template <>
struct type_caster<corvane::python::FileName> {
    PYBIND11_TYPE_CASTER(corvane::python::FileName, const_name("Union[str, bytes, os.PathLike]"));

    bool load(handle source, bool) {
        PyObject* encoded = nullptr;
        if (PyUnicode_FSConverter(source.ptr(), &encoded) == 0) throw error_already_set();
        value.bytes = reinterpret_steal<pybind11::bytes>(encoded);
        return true;
    }
    static handle cast(const corvane::python::FileName& fileName, return_value_policy, handle) {
        return PyUnicode_DecodeFSDefaultAndSize(fileName.bytes.data(), static_cast<Py_ssize_t>(fileName.bytes.size()));
    }
};

template <class T>
struct type_caster<corvane::python::Number<T>> {
    PYBIND11_TYPE_CASTER(corvane::python::Number<T>, const_name("int"));

    bool load(handle source, bool) {
        if (PyIndex_Check(source.ptr()) == 0) return false;
        value.value = static_cast<T>(
            corvane::python::wholeNumber(source, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
        return true;
    }
    static handle cast(corvane::python::Number<T> number, return_value_policy, handle) {
        return PyLong_FromLongLong(number.value);
    }
};

template <>
struct type_caster<corvane::python::Position> {
    PYBIND11_TYPE_CASTER(corvane::python::Position, const_name("float"));

    bool load(handle source, bool) {
        if (!corvane::python::isNumber(source)) return false;
        value = corvane::python::positionOf(source);
        return true;
    }
};

template <>
struct type_caster<corvane::ByteArray> {
    PYBIND11_TYPE_CASTER(corvane::ByteArray, const_name("bytes"));

    bool load(handle source, bool) {
        if (PyObject_CheckBuffer(source.ptr()) == 0) return false;
        value = corvane::python::bytesOf(source);
        return true;
    }
    static handle cast(const corvane::ByteArray& content, return_value_policy, handle) {
        return PyBytes_FromStringAndSize(reinterpret_cast<const char*>(content.data()),
                                         static_cast<Py_ssize_t>(content.size()));
    }
};

template <>
struct type_caster<corvane::XmlNode> {
    PYBIND11_TYPE_CASTER(corvane::XmlNode, const_name("xml.etree.ElementTree.Element"));

    bool load(handle source, bool) {
        value = corvane::python::nodeOf(source);
        return static_cast<bool>(value);
    }
};

} // namespace pybind11::detail
