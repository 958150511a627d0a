#include "corvane/id3v1/Genres.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

namespace {

// A position (int or float) or a key (str).
std::shared_ptr<Genre> genreAt(const Genres& genres, const py::object& key) {
    if (py::isinstance<py::str>(key)) return genres.Item(Variant(argumentOf<Key>(key).bytes));
    return genres.Item(Variant(argumentOf<Position>(key).value));
}

constexpr const char* kItemDoc = "The entry at a position, a whole number from 1 to Count, or with a key, the genre "
                                 "number as str (\"0\" to \"147\", "
                                 "\"255\"). None when there is none. genres[key] is the same.";

} // namespace

void bindGenres(py::module_& corvane) {
    Class<Genres>(corvane, "Genres",
                  "The list of genres: 0 to 147 in ascending order, then 255 \"<Undefined>\". It can be indexed, "
                  "iterated and has a len(). Every list has entries of its own.")
        .def(py::init<>())
        .def("Item", genreAt, "vntIndexKey"_a, kItemDoc)
        .def("__getitem__", genreAt, "vntIndexKey"_a, kItemDoc)
        .def_property_readonly("Count", &Genres::Count, "Number of entries: 149.")
        .def("__len__", &Genres::Count)
        .def(
            "__iter__", [](const Genres& genres) { return py::make_iterator(genres.begin(), genres.end()); },
            py::keep_alive<0, 1>(), "The entries in order.")
        .def(
            "getGenreByID", [](const Genres& genres, const Key& key) { return genres.getGenreByID(key.bytes); },
            "FieldID"_a, "The entry whose key is FieldID (\"0\" to \"147\", \"255\"); None when there is none.")
        .def(
            "getGenreByIndex", [](const Genres& genres, Position index) { return genres.getGenreByIndex(index.value); },
            "Index"_a, "The entry at a position from 1 to Count; None for any other.");
}

} // namespace corvane::python
