#include "corvane/id3v1/Genre.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindGenre(py::module_& corvane) {
    Class<Genre> genre(corvane, "Genre", "One entry of the genre list: a number and its name.");
    genre.def(py::init<>());
    number<Genre, std::int16_t>(genre, "Num", &Genre::Num, &Genre::Num,
                                "The genre number, 16 bits. Writing it changes this object only: its list goes on "
                                "finding it under its old number. Raises Error (6) for a number that does not fit.");
    text(genre, "Description", &Genre::Description, "The name, as the list holds it.");
}

} // namespace corvane::python
