// Shorthand for the members that most classes have. Python reads `object.Title` and writes `object.Title = value`
// where C++ calls two overloads of one name.
//
// Members that may touch a file are bound with their twin whose name begins with "file": Python's other threads run
// while they are at work.
#pragma once

#include "corvane/core/TagError.h"

#include "python/Values.h"

#include <concepts>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::python {

using namespace py::literals;

// The name of a class in this module is its published name. Objects are shared with the library: they live as long as
// either side needs them.
template <class T>
using Class = py::class_<T, std::shared_ptr<T>>;

// Lets Python's other threads run during a call, but not while its arguments and its result are converted.
using FileWork = py::call_guard<py::gil_scoped_release>;

template <class T>
using ReadText = std::string (T::*)() const;
template <class T>
using ReadChangingText = std::string (T::*)();
template <class T>
using ReadTextReference = const std::string& (T::*)() const;
template <class T>
using WriteText = void (T::*)(std::string);
template <class T>
using WriteTextView = void (T::*)(std::string_view);

template <class T>
void text(Class<T>& bound, const char* name, ReadText<T> read, const char* doc) {
    bound.def_property_readonly(
        name, [read](const T& object) { return Text{(object.*read)()}; }, doc);
}

template <class T>
void text(Class<T>& bound, const char* name, ReadText<T> read, WriteText<T> write, const char* doc) {
    bound.def_property(
        name, [read](const T& object) { return Text{(object.*read)()}; },
        [write](T& object, Text value) { (object.*write)(std::move(value.utf8)); }, doc);
}

template <class T>
void text(Class<T>& bound, const char* name, ReadTextReference<T> read, const char* doc) {
    bound.def_property_readonly(
        name, [read](const T& object) { return Text{(object.*read)()}; }, doc);
}

template <class T>
void fileText(Class<T>& bound, const char* name, ReadText<T> read, const char* doc) {
    bound.def_property_readonly(
        name, py::cpp_function([read](const T& object) { return Text{(object.*read)()}; }, FileWork()), doc);
}

template <class T>
void fileText(Class<T>& bound, const char* name, ReadText<T> read, WriteTextView<T> write, const char* doc) {
    bound.def_property(
        name, py::cpp_function([read](const T& object) { return Text{(object.*read)()}; }, FileWork()),
        py::cpp_function([write](T& object, const Text& value) { (object.*write)(value.utf8); }, FileWork()), doc);
}

template <class T>
void fileText(Class<T>& bound, const char* name, ReadChangingText<T> read, WriteTextView<T> write, const char* doc) {
    bound.def_property(
        name, py::cpp_function([read](T& object) { return Text{(object.*read)()}; }, FileWork()),
        py::cpp_function([write](T& object, const Text& value) { (object.*write)(value.utf8); }, FileWork()), doc);
}

template <class T, std::integral N>
void number(Class<T>& bound, const char* name, N (T::*read)() const, void (T::*write)(N), const char* doc) {
    bound.def_property(
        name, [read](const T& object) { return (object.*read)(); },
        [write](T& object, Number<N> value) { (object.*write)(value.value); }, doc);
}

// A property of any other kind that may touch the file.
template <class T, class Read>
void fileProperty(Class<T>& bound, const char* name, Read read, const char* doc) {
    bound.def_property_readonly(name, py::cpp_function(read, FileWork()), doc);
}

template <class T>
void lastError(Class<T>& bound) {
    bound.def_property_readonly("LastError", &T::LastError,
                                "A new TagError that shows what this object records of its latest failure.");
}

// xml() and xml_element().
template <class T>
void xml(Class<T>& bound, const char* doc) {
    bound.def(
        "xml", [](T& object) { return Text{object.xml()}; }, FileWork(), doc);
    bound.def(
        "xml_element",
        [](T& object) {
            std::string document;
            {
                const py::gil_scoped_release unlocked;
                document = object.xml();
            }
            return elementOf(document);
        },
        "The root element of xml(), an xml.etree.ElementTree.Element, as the imports take it. Fails where xml() "
        "fails.");
}

} // namespace corvane::python
