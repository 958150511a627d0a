#include "corvane/id3v230/ID3V230Field.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

namespace {

template <class Value>
void fieldNumber(Class<ID3V230Field>& field, const char* name, Value ID3V230Field::*member, const char* doc) {
    field.def_property(
        name, [member](const ID3V230Field& object) { return object.*member; },
        [member](ID3V230Field& object, Number<std::int32_t> value) {
            object.*member = static_cast<Value>(value.value);
        },
        doc);
}

} // namespace

void bindID3V230Field(py::module_& corvane) {
    Class<ID3V230Field> field(corvane, "ID3V230Field", "One field of a frame: what it is, and how much it holds.");
    field.def(py::init<>());
    fieldNumber(field, "FieldID", &ID3V230Field::FieldID, "Which field (ID3_FieldID).");
    fieldNumber(field, "FieldType", &ID3V230Field::FieldType,
                "For hosts (ID3_FieldType): reading a frame leaves it alone.");
    fieldNumber(field, "NumTextItems", &ID3V230Field::NumTextItems,
                "Number of texts in the field, 0 when it is no text.");
    fieldNumber(field, "Size", &ID3V230Field::Size, "Size in bytes.");
}

} // namespace corvane::python
