// Enumerations: each is an enum.IntEnum of this module with the published names and numbers. A function that takes one
// takes any int, and a number that has no name comes out as a plain int.
#pragma once

#include "python/Values.h"

#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>

namespace corvane::python {

template <class Enum>
concept Enumeration = std::is_enum_v<Enum> && std::is_same_v<std::underlying_type_t<Enum>, std::int32_t>;

// Python's class of an enumeration, which lives as long as the interpreter.
template <Enumeration Enum>
inline PyObject* classOf = nullptr;

template <Enumeration Enum>
void bindEnumeration(py::module_& corvane, const char* name,
                     std::initializer_list<std::pair<const char*, Enum>> members, const char* doc) {
    py::list rows;
    for (const auto& [memberName, value] : members) {
        rows.append(py::make_tuple(memberName, static_cast<std::int32_t>(value)));
    }
    py::object made = py::module_::import("enum").attr("IntEnum")(name, rows, py::arg("module") = "corvane");
    made.attr("__doc__") = doc;
    corvane.attr(name) = made;
    classOf<Enum> = made.release().ptr();
}

} // namespace corvane::python

namespace pybind11::detail {

template <class Enum>
struct type_caster<Enum, std::enable_if_t<corvane::python::Enumeration<Enum>>> {
    PYBIND11_TYPE_CASTER(Enum, const_name("int"));

    bool load(handle source, bool convert) {
        make_caster<corvane::python::Number<std::int32_t>> number;
        if (!number.load(source, convert)) return false;
        value = static_cast<Enum>(cast_op<corvane::python::Number<std::int32_t>&>(number).value);
        return true;
    }
    static handle cast(Enum member, return_value_policy, handle) {
        const object number = reinterpret_steal<object>(PyLong_FromLong(static_cast<std::int32_t>(member)));
        PyObject* found = PyObject_CallOneArg(corvane::python::classOf<Enum>, number.ptr());
        if (found != nullptr) return found;
        if (PyErr_ExceptionMatches(PyExc_ValueError) == 0) throw error_already_set();
        PyErr_Clear();
        return number.inc_ref();
    }
};

} // namespace pybind11::detail
