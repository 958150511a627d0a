#include "corvane/id3v2/ID3V2Version.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindID3V2Version(py::module_& corvane) {
    Class<ID3V2Version>(corvane, "ID3V2Version", "The version of an ID3v2 tag, such as 2.3.0.")
        .def(py::init<>())
        .def_property_readonly("Major", &ID3V2Version::Major, "Always 2.")
        .def_property_readonly("Minor", &ID3V2Version::Minor,
                               "The header's major version byte: 2, 3 or 4; 0 without a tag.")
        .def_property_readonly("Revision", &ID3V2Version::Revision, "The header's second version byte.");
}

} // namespace corvane::python
