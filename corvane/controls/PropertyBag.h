// Where a host keeps the properties of its controls between two runs: names and values, as settings or a document take
// them.
#pragma once

#include "corvane/controls/Export.h"

#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace corvane::controls {

class CORVANE_CONTROLS_EXPORT PropertyBag {
public:
    // An empty bag, or one with what another has held.
    PropertyBag() = default;
    explicit PropertyBag(QVariantMap contents);

    // The value of a name, or the default value when there is none.
    QVariant ReadProperty(const QString& name, const QVariant& defaultValue = {}) const;
    // Keeps a value under a name, in the place of the one that it has had.
    void WriteProperty(const QString& name, const QVariant& value);

    // Everything that was written.
    const QVariantMap& contents() const { return contents_; }

private:
    QVariantMap contents_;
};

} // namespace corvane::controls
