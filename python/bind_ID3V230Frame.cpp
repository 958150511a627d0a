#include "corvane/id3v230/ID3V230Frame.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/FrameValue.h"

namespace corvane::python {

namespace {

using Frame = ID3V230Frame;
using Bool = bool (Frame::*)() const;
using SetBool = void (Frame::*)(bool);

void flag(Class<Frame>& frame, const char* name, Bool read, SetBool write, const char* doc) {
    frame.def_property(name, read, write, doc);
}

void bindFlags(Class<Frame>& frame) {
    flag(frame, "Deleted", &Frame::Deleted, &Frame::Deleted,
         "Whether the frame is to be left out of the tag at the next save.");
    flag(frame, "bChanged", &Frame::bChanged, &Frame::bChanged,
         "Whether the value was changed since the frame was read; True for a record made in memory.");
    flag(frame, "IsNew", &Frame::IsNew, &Frame::IsNew, "Whether the record was made in memory.");
    flag(frame, "bDupe", &Frame::bDupe, &Frame::bDupe,
         "Whether an earlier record of the tag has the same frame number and description.");
}

void bindNumbers(Class<Frame>& frame) {
    number<Frame, std::int16_t>(frame, "eType", &Frame::eType, &Frame::eType,
                                "The number of the frame (ID3_FrameID); 0 for a frame that the library does not know.");
    number<Frame, std::int32_t>(frame, "FrameHandle", &Frame::FrameHandle, &Frame::FrameHandle,
                                "The number of the frame in the tag that it was read from, from 1; 0 for a record made "
                                "in memory.");
    number<Frame, std::int32_t>(frame, "Position", &Frame::Position, &Frame::Position,
                                "Place in the tag's collection, from 1.");
}

py::object languageOf(const Frame& frame) {
    Variant language;
    {
        const py::gil_scoped_release unlocked;
        language = frame.vLanguage();
    }
    if (const auto* letters = std::get_if<std::string>(&language)) return py::cast(Text{*letters});
    if (const auto* number = std::get_if<std::int32_t>(&language)) return py::int_(*number);
    return py::none();
}

void setLanguage(Frame& frame, const py::object& language) {
    frame.vLanguage(language.is_none() ? Variant() : Variant(argumentOf<Text>(language).utf8));
}

py::object valueOf(const Frame& frame) {
    FrameVariant value;
    {
        const py::gil_scoped_release unlocked;
        value = frame.vValue();
    }
    return objectOf(value);
}

void bindContent(Class<Frame>& frame) {
    frame.def_property(
        "vValue", valueOf, [](Frame& object, const py::object& value) { object.vValue(frameValueOf(value)); },
        "The value: str, the year when it was set as a number and the count of PCNT (int), the picture of APIC "
        "(Picture); None for frames without a value of these kinds.");
    frame.def_property(
        "sDescription", py::cpp_function([](const Frame& object) { return Text{object.sDescription()}; }, FileWork()),
        [](Frame& object, Text value) { object.sDescription(std::move(value.utf8)); },
        "The description of a comment, of lyrics, of a user text or address and of a picture; \"\" for other frames.");
    frame.def_property("vLanguage", languageOf, setLanguage,
                       "The language of comments and lyrics, three letters; None for frames without one.");
    frame.def_property(
        "Picture", py::cpp_function([](const Frame& object) { return object.Picture(); }, FileWork()),
        [](Frame& object, std::shared_ptr<Picture> value) { object.Picture(std::move(value)); },
        "The picture of APIC; None without one, or when it is no JPEG, PNG, GIF or BMP image.");
    frame.def_property_readonly("PictureRAW", py::cpp_function(&Frame::PictureRAW, FileWork()),
                                "The bytes of the picture, also when they are no image that the library knows.");
}

} // namespace

void bindID3V230Frame(py::module_& corvane) {
    Class<Frame> frame(corvane, "ID3V230Frame",
                       "One frame of an ID3v2.3 tag as ID3V230 holds it in memory; ID3V230.Frames gives it. A large "
                       "payload stands in the file until it is asked for: members raise Error when that file was "
                       "changed by somebody else meanwhile or is gone.");
    bindNumbers(frame);
    bindFlags(frame);
    bindContent(frame);
    frame.def(
        "Delete", [](Frame& object) { return objectOf(object.Delete()); },
        "Marks the frame to be left out of the tag at the next save. The record stays in its collection.");
    text(frame, "FrameAbbr", &Frame::FrameAbbr,
         "The four letters of the frame, \"????\" for one that the library does not know; \"\" for a number of none.");
    text(frame, "FrameTitle", &Frame::FrameTitle, "The frame's title in English; \"\" for a number of none.");
    frame.def(
        "Load", [](Frame& object, Number<std::int32_t> handle) { object.Load(handle.value); }, "FrameHandle"_a,
        FileWork(), "Lists the fields of the frame with this number in the record's tag.");
}

} // namespace corvane::python
