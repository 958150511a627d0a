#include "corvane/controls/PropertyBag.h"

#include <utility>

namespace corvane::controls {

PropertyBag::PropertyBag(QVariantMap contents) : contents_(std::move(contents)) {}

QVariant PropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const {
    return contents_.value(name, defaultValue);
}

void PropertyBag::WriteProperty(const QString& name, const QVariant& value) { contents_.insert(name, value); }

} // namespace corvane::controls
