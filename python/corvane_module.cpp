// The Python module `corvane`: the library's published classes, enumerations and members under their own names, and
// `scan`. This file only calls the sources of the classes; a class stands behind those that its members return.
#include "python/Bindings.h"

PYBIND11_MODULE(corvane, corvane) {
    using namespace corvane::python;
    corvane.doc() = "Reads, edits and writes everything that is inside an MP3 file.";
    bindError(corvane);
    bindScan(corvane);
}
