#include "apps/editor/XmlView.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/Text.h"
#include "corvane/core/FileHandler.h"
#include "corvane/xml/XmlText.h"

#include "apps/editor/FileName.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLocale>
#include <QMessageBox>
#include <QSaveFile>
#include <QVBoxLayout>

namespace corvane::editor {

namespace {

constexpr qsizetype kLineLimit = 2000; // characters; far longer lines make a text box slow
constexpr qsizetype kKept = 200;

} // namespace

QString shortened(const QString& document) {
    QStringList lines = document.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.size() <= kLineLimit) continue;
        const qsizetype hidden = line.size() - 2 * kKept;
        line = line.left(kKept) + XmlView::tr(" … %1 characters … ").arg(QLocale().toString(hidden)) + line.right(kKept);
    }
    return lines.join(QLatin1Char('\n'));
}

XmlView::XmlView(QWidget* parent) : QWidget(parent) {
    text_ = new QPlainTextEdit(this);
    text_->setObjectName(QStringLiteral("xmlText"));
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setAccessibleName(tr("XML document"));
    copy_ = new QPushButton(tr("&Copy"), this);
    export_ = new QPushButton(tr("E&xport…"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy_);
    buttons->addWidget(export_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(text_, 1);
    column->addLayout(buttons);
    connect(copy_, &QPushButton::clicked, this, [this] { copy(); });
    connect(export_, &QPushButton::clicked, this, [this] { exportFile(); });
    setFile({});
}

void XmlView::setFile(const std::string& path) {
    path_ = path;
    document_.reset();
    text_->clear();
    copy_->setEnabled(!path.empty());
    export_->setEnabled(!path.empty());
    if (isVisible()) load();
}

const std::string& XmlView::document() {
    if (!document_) {
        document_.emplace();
        controls::behindWall("XmlView", [this] {
            FileHandler file;
            if (!path_.empty() && file.Create(path_)) document_ = file.xml();
        });
    }
    return *document_;
}

void XmlView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    load();
}

void XmlView::load() {
    if (!document_) text_->setPlainText(shortened(controls::toQt(document())));
}

void XmlView::copy() { QGuiApplication::clipboard()->setText(controls::toQt(document())); }

QString XmlView::writeTo(const QString& file) {
    QSaveFile out(file);
    const QByteArray bytes = QByteArray::fromStdString(latin1Document(document()));
    if (out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.commit()) return {};
    return out.errorString();
}

void XmlView::exportFile() {
    const QString proposal = shownPath(path_) + QStringLiteral(".xml");
    const QString file = QFileDialog::getSaveFileName(this, tr("Export the document"), proposal, tr("XML (*.xml)"));
    if (file.isEmpty()) return;
    const QString failure = writeTo(file);
    if (!failure.isEmpty()) QMessageBox::warning(this, {}, tr("%1 was not written: %2").arg(file, failure));
}

} // namespace corvane::editor
