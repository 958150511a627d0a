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
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace corvane::editor {

namespace {

constexpr qsizetype kValueLimit = 2000; // characters; far longer lines make a text box slow
constexpr qsizetype kKept = 200;

QString shortened(const QString& value) {
    if (value.size() <= kValueLimit) return value;
    const qsizetype hidden = value.size() - 2 * kKept;
    return value.left(kKept) + XmlView::tr(" … %1 characters … ").arg(QLocale().toString(hidden)) + value.right(kKept);
}

void copyElement(const QXmlStreamReader& from, QXmlStreamWriter& to) {
    to.writeStartElement(from.qualifiedName().toString());
    for (const QXmlStreamAttribute& attribute : from.attributes()) {
        to.writeAttribute(attribute.qualifiedName().toString(), shortened(attribute.value().toString()));
    }
}

} // namespace

QString forScreen(const QString& document) {
    QString text;
    QXmlStreamReader from(document);
    QXmlStreamWriter to(&text);
    to.setAutoFormatting(true);
    to.setAutoFormattingIndent(2);
    while (!from.atEnd()) {
        switch (from.readNext()) {
        case QXmlStreamReader::StartElement:
            copyElement(from, to);
            break;
        case QXmlStreamReader::EndElement:
            to.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            if (!from.isWhitespace()) to.writeCharacters(shortened(from.text().toString()));
            break;
        case QXmlStreamReader::Comment:
            to.writeComment(from.text().toString());
            break;
        default:
            break;
        }
    }
    return from.hasError() ? shortened(document) : text.trimmed();
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
    export_->setObjectName(QStringLiteral("exportDocument"));
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
    if (document_) return;
    text_->setPlainText(forScreen(controls::toQt(document())));
    text_->setPlaceholderText(path_.empty() ? QString() : tr("This file cannot be read any more."));
}

void XmlView::copy() {
    if (!document().empty()) QGuiApplication::clipboard()->setText(controls::toQt(document()));
}

QString XmlView::writeTo(const QString& file) {
    if (document().empty()) return tr("there is no document of a file that cannot be read");
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
    if (!failure.isEmpty()) QMessageBox::warning(this, {}, tr("%1 was not written: %2").arg(asWritten(file), failure));
}

} // namespace corvane::editor
