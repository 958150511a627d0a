#include "corvane/controls/Corvane.h"

#include "corvane/controls/VersionTexts.h"
#include "corvane/core/FileHandler.h"

#include <QVBoxLayout>

namespace corvane::controls {

namespace {

constexpr int kSideMargin = 20; // pixels; where the lines begin, and what stays free behind them

// A font has its size in points or in pixels.
QFont large(QFont font) {
    font.setBold(true);
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * 1.5);
    } else {
        font.setPixelSize(font.pixelSize() * 3 / 2);
    }
    return font;
}

} // namespace

Corvane::Corvane(QWidget* parent) : QWidget(parent), fileHandler_(std::make_shared<corvane::FileHandler>()) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(kSideMargin, kSideMargin / 2, kSideMargin, kSideMargin / 2);
    lines->addWidget(addLine("lblManufacturer", kCompanyName));
    QLabel* caption = addLine("lblCaption", kProductName);
    caption->setFont(large(caption->font()));
    lines->addWidget(caption);
    lines->addWidget(addLine("lblCopyright", kLegalCopyright));
    lines->addStretch();
}

Corvane::~Corvane() = default;

// A line may become narrower than its text: it always takes the width that the control has for it.
QLabel* Corvane::addLine(const char* name, const char* text) {
    auto* line = new QLabel(QString::fromUtf8(text), this);
    line->setObjectName(QLatin1String(name));
    line->setTextFormat(Qt::PlainText);
    line->setMinimumWidth(1);
    return line;
}

} // namespace corvane::controls
