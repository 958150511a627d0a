#include "corvane/controls/designer/ControlPlugin.h"

#include <QIcon>
#include <QXmlStreamWriter>
#include <utility>

namespace corvane::controls {

namespace {

void writeGeometry(QXmlStreamWriter& xml, const QSize& size) {
    xml.writeStartElement("property");
    xml.writeAttribute("name", "geometry");
    xml.writeStartElement("rect");
    xml.writeTextElement("x", "0");
    xml.writeTextElement("y", "0");
    xml.writeTextElement("width", QString::number(size.width()));
    xml.writeTextElement("height", QString::number(size.height()));
    xml.writeEndElement();
    xml.writeEndElement();
}

} // namespace

ControlPlugin::ControlPlugin(ControlKind kind, QObject* parent) : QObject(parent), kind_(std::move(kind)) {}

QString ControlPlugin::name() const { return QLatin1String(kind_.className); }

QString ControlPlugin::group() const { return tr("Corvane Tag Editors"); }

QString ControlPlugin::toolTip() const { return kind_.toolTip; }

QString ControlPlugin::whatsThis() const { return kind_.description; }

QString ControlPlugin::includeFile() const { return QLatin1String(kind_.header); }

// As pixels: Designer shows its own picture for an icon that is drawn only when it is painted.
QIcon ControlPlugin::icon() const {
    const QIcon drawing(QStringLiteral(":/corvane/designer/") + QLatin1String(kind_.icon));
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) icon.addPixmap(drawing.pixmap(QSize(side, side), 1.0));
    return icon;
}

void ControlPlugin::initialize(QDesignerFormEditorInterface* /*core*/) { initialized_ = true; }

QString ControlPlugin::domXml() const {
    QString text;
    QXmlStreamWriter xml(&text);
    xml.writeStartElement("ui");
    xml.writeAttribute("language", "c++");
    xml.writeAttribute("displayname", kind_.displayName);
    xml.writeStartElement("widget");
    xml.writeAttribute("class", name());
    xml.writeAttribute("name", QLatin1String(kind_.objectName));
    writeGeometry(xml, kind_.size);
    xml.writeEndElement();
    xml.writeStartElement("customwidgets");
    xml.writeStartElement("customwidget");
    xml.writeTextElement("class", name());
    xml.writeTextElement("extends", "QWidget");
    xml.writeStartElement("propertyspecifications");
    for (const PropertyHint& hint : kind_.properties) {
        xml.writeStartElement("tooltip");
        xml.writeAttribute("name", QLatin1String(hint.property));
        xml.writeCharacters(hint.toolTip);
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return text;
}

} // namespace corvane::controls
