#include "corvane/id3v230/FieldWriter.h"

#include "corvane/id3v230/SpreadText.h"
#include "corvane/platform/MessageBox.h"
#include "corvane/platform/Numbers.h"

namespace corvane {

std::string fieldText(const FrameVariant& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* year = std::get_if<std::int16_t>(&value)) return std::to_string(*year);
    if (const auto* count = std::get_if<std::int32_t>(&value)) return std::to_string(*count);
    return {};
}

void reportMissingField(const FrameVariant& value, ID3_FieldID field) {
    showMessageBox({.text = "Unable to write data to field.\r\n"
                            "ID3V230::id3SetField()\r\n"
                            "Field '" +
                            std::to_string(static_cast<std::int32_t>(field)) +
                            "' doesn't exist.\r\n"
                            "Data: " +
                            fieldText(value),
                    .caption = hostTexts().title + " - Store ID3v2 Field",
                    .icon = MessageBoxIcon::Stop});
}

void id3SetField(FieldWriter& frame, const FrameVariant& value, ID3_FieldID field) {
    const std::string text = fieldText(value);
    if (!frame.has(field)) {
        reportMissingField(text, field);
    } else if (field == ID3_FieldID::ID3FN_NOFIELD) {
        frame.setNumber(field, static_cast<std::uint32_t>(parseNumber<std::int32_t>(text).value_or(0)));
    } else if (field == ID3_FieldID::ID3FN_DATA) {
        frame.setBytes(field, spreadText(text));
    } else {
        frame.setText(field, text);
    }
}

} // namespace corvane
