#include "corvane/controls/FieldLimit.h"

#include "corvane/controls/Text.h"

namespace corvane::controls {

FieldLimit::FieldLimit(QLineEdit& box, int limit, QWidget* parent) : WarningLabel(parent), box_(box), limit_(limit) {
    setObjectName(QStringLiteral("lblLimit") + box.objectName().mid(3));
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000/00")));
    connect(&box, &QLineEdit::textChanged, this, [this] { look(); });
    look();
}

void FieldLimit::setLimit(int limit) {
    if (limit == limit_) return;
    limit_ = limit;
    look();
}

void FieldLimit::look() {
    const auto count = characterCount(box_.text());
    const bool cut = count > limit_;
    setText(cut ? QStringLiteral("%1/%2").arg(count).arg(limit_) : QString());
    const QString hint = cut ? tr("Only the first %1 characters are stored.").arg(limit_) : QString();
    setToolTip(hint);
    box_.setToolTip(hint);
    box_.setAccessibleDescription(hint);
}

} // namespace corvane::controls
