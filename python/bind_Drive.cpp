#include "corvane/platform/Drive.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

void bindDrive(py::module_& corvane) {
    Class<Drive> drive(corvane, "Drive",
                       "The drive that holds a file: the mount through which the file is seen, with the state at the "
                       "time of the call. What has no equivalent on this system is \"\".");
    drive.def_static(
        "ofFile", [](const FileName& path) { return Drive::ofFile(path.bytes); }, "path"_a, FileWork(),
        "The drive of a file. Raises Error with errno's number and text when there is no such file.");
    drive.def_property_readonly("DriveType", &Drive::DriveType,
                                "0 unknown, 1 removable, 2 fixed, 3 network, 4 optical, 5 RAM disk.");
    text(drive, "VolumeName", &Drive::VolumeName, "The label of its file system, when the system shows it.");
    text(drive, "DriveLetter", &Drive::DriveLetter, "Always \"\": there are no drive letters here.");
    text(drive, "FileSystem", &Drive::FileSystem, "Kind of its file system, \"ext4\".");
    text(drive, "SerialNumber", &Drive::SerialNumber, "The UUID of its file system, when the system shows it.");
    text(drive, "ShareName", &Drive::ShareName, "What a network drive is mounted from, \"server:/music\"; else \"\".");
    drive
        .def_property_readonly(
            "Path", [](const Drive& object) { return FileName{object.Path()}; },
            "The folder where it is mounted, \"/\" or \"/media/stick\".")
        .def_property_readonly(
            "RootFolder", [](const Drive& object) { return FileName{object.RootFolder()}; },
            "The same with its trailing separator.")
        .def_property_readonly("AvailableSpace", &Drive::AvailableSpace, "Bytes that this user can still write.")
        .def_property_readonly("FreeSpace", &Drive::FreeSpace,
                               "Bytes that are not in use, those reserved for root included.")
        .def_property_readonly("TotalSize", &Drive::TotalSize, "Bytes.");
}

} // namespace corvane::python
