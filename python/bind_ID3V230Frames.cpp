#include "corvane/id3v230/ID3V230Frames.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

namespace {

std::shared_ptr<ID3V230Frame> frameAt(const ID3V230Frames& frames, Position index) { return frames.Item(index.value); }

constexpr const char* kFrameItemDoc =
    "The record at a position from 1 to Count, None for any other. frames[position] is the same.";

} // namespace

void bindID3V230Frames(py::module_& corvane) {
    Class<ID3V230Frames>(corvane, "ID3V230Frames",
                         "The frame records of an ID3V230, in the order of the tag and then of addition. It can be "
                         "indexed, iterated and has a len(). The records are the tag's own, not copies.")
        .def_property_readonly("Count", &ID3V230Frames::Count, "Number of records.")
        .def("__len__", &ID3V230Frames::Count)
        .def("Item", frameAt, "Index"_a, kFrameItemDoc)
        .def("__getitem__", frameAt, "Index"_a, kFrameItemDoc)
        .def(
            "__iter__",
            [](const ID3V230Frames& frames) {
                // Of a copy of the list: the tag may get more records meanwhile.
                py::list records;
                for (const auto& record : frames) records.append(record);
                return py::iter(records);
            },
            "The records in order.");
}

} // namespace corvane::python
