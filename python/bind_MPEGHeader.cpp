#include "corvane/mpeg/MPEGHeader.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

namespace {

void bindTexts(Class<MPEGHeader>& header) {
    text(header, "Version", &MPEGHeader::Version, "\"MPEG 1.0\", \"MPEG 2.0\", \"MPEG 2.5\" or \"Reserved\".");
    text(header, "Layer", &MPEGHeader::Layer, "\"1\", \"2\", \"3\" or \"Reserved\".");
    text(header, "Mode", &MPEGHeader::Mode, "\"Stereo\", \"Joint Stereo\", \"Dual Channel\" or \"Single Channel\".");
    text(header, "Emphasis", &MPEGHeader::Emphasis, "\"None\", \"Unknown\" (1) or \"CCITT j.17\" (3).");
}

void bindNumbers(Class<MPEGHeader>& header) {
    using Header = MPEGHeader;
    header.def_property_readonly("VersionID", &Header::VersionID, "3 MPEG 1, 2 MPEG 2, 1 reserved, 0 MPEG 2.5.")
        .def_property_readonly("LayerID", &Header::LayerID, "3 Layer I, 2 Layer II, 1 Layer III, 0 reserved.")
        .def_property_readonly("ModeID", &Header::ModeID, "0 to 3, in the order of the names of Mode.")
        .def_property_readonly("BitRate", &Header::BitRate,
                               "kbit/s, rounded down; an average with VBR, and -1 when a VBR file does not tell its "
                               "frame count. Raises Error (6) when it does not fit 32 bits.")
        .def_property_readonly("Frequency", &Header::Frequency,
                               "Hz. With MPEG 2.5 32000, 16000 or 8000, which are not the frequencies that the stream "
                               "is played at. Raises Error (9) when the header's index has no frequency.")
        .def_property_readonly("Duration", &Header::Duration, "Whole seconds; -1 when the bit rate is not known.")
        .def_property_readonly("AudioSize", &Header::AudioSize,
                               "Bytes from the frame to the end of the file, with all tags at the end, less 2; or what "
                               "the Xing header says.")
        .def_property_readonly("FrameSize", &Header::FrameSize, "Bytes; an average with VBR.")
        .def_property_readonly("EmphasisID", &Header::EmphasisID, "0 to 3.")
        .def_property_readonly("FileSize", &Header::FileSize,
                               "Bytes; 0 for a file of 2 GB (2**31 bytes) or more, whose header is not looked for.")
        .def_property_readonly("NumFrames", &Header::NumFrames,
                               "The Xing header's frame count when it is above 0, else AudioSize / FrameSize; 0 when "
                               "the frame size is 0.");
}

void bindFlags(Class<MPEGHeader>& header) {
    using Header = MPEGHeader;
    header.def_property_readonly("CRC", &Header::CRC, "Whether a CRC follows the frame's header.")
        .def_property_readonly("Copyright", &Header::Copyright, "Whether the copyright bit is set.")
        .def_property_readonly("Original", &Header::Original, "Whether the original bit is set.")
        .def_property_readonly("VBR", &Header::VBR, "Whether a Xing header was found.")
        .def_property_readonly("PaddingBit", &Header::PaddingBit, "Whether the padding bit is set.")
        .def_property_readonly("PrivateBit", &Header::PrivateBit, "Whether the private bit is set.")
        .def_property_readonly("ProtectionBit", &Header::ProtectionBit, "The raw bit: the opposite of CRC.");
}

} // namespace

void bindMPEGHeader(py::module_& corvane) {
    Class<MPEGHeader> header(corvane, "MPEGHeader",
                             "The technical data of an MP3 file: the fields of its first MPEG audio frame and what "
                             "follows from them. Read only; FileHandler fills it. An object that was never filled "
                             "answers as the all-zero header does.");
    header.def(py::init<>());
    bindTexts(header);
    bindNumbers(header);
    bindFlags(header);
    xml(header, "The object as an XML document. Raises Error where the properties do.");
}

} // namespace corvane::python
