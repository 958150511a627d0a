#include "corvane/platform/File.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindFile(py::module_& corvane) {
    Class<File> file(corvane, "File",
                     "The entry of a file in the file system, with the state at the time of the call; links are "
                     "followed. Dates are local time, \"dd/mm/yyyy hh:mm:ss\".");
    file.def_static(
        "ofPath", [](const FileName& path) { return File::ofPath(path.bytes); }, "path"_a, FileWork(),
        "The entry of a file. Raises Error with errno's number and text when there is no such file.");
    text(file, "DateCreated", &File::DateCreated, "\"\" where the file system does not keep it.");
    text(file, "DateLastAccessed", &File::DateLastAccessed, "\"\" where the file system does not keep it.");
    text(file, "DateLastModified", &File::DateLastModified, "\"\" where the file system does not keep it.");
    text(file, "TypeName", &File::TypeName, "What kind of file the name says it is, \"MPEG audio\".");
    file.def_property_readonly(
            "Name", [](const File& object) { return FileName{object.Name()}; }, "Without the folder, \"a.mp3\".")
        .def_property_readonly(
            "Path", [](const File& object) { return FileName{object.Path()}; }, "As seen from the root.")
        .def_property_readonly("Size", &File::Size, "Bytes.");
}

} // namespace corvane::python
