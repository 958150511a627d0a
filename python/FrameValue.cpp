#include "python/FrameValue.h"

#include "python/Binding.h"

#include <limits>

namespace corvane::python {

namespace {

struct MakeObject {
    py::object operator()(const NoValue&) const { return py::none(); }
    py::object operator()(std::int32_t number) const { return py::int_(number); }
    py::object operator()(const std::string& text) const { return py::cast(Text{text}); }
    py::object operator()(const std::shared_ptr<Picture>& picture) const { return py::cast(picture); }
};

bool fitsYear(std::int32_t number) {
    using Year = std::numeric_limits<std::int16_t>;
    return number >= Year::min() && number <= Year::max();
}

} // namespace

py::object objectOf(const FrameVariant& value) { return std::visit(MakeObject(), value); }

FrameVariant frameValueOf(const py::object& object) {
    if (object.is_none()) return NoValue();
    if (py::isinstance<py::str>(object)) return argumentOf<Text>(object).utf8;
    if (py::isinstance<Picture>(object)) return object.cast<std::shared_ptr<Picture>>();
    const auto number = argumentOf<Number<std::int32_t>>(object).value;
    if (fitsYear(number)) return static_cast<std::int16_t>(number);
    return number;
}

} // namespace corvane::python
