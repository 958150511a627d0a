// One control as Qt Designer knows it.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QList>
#include <QObject>
#include <QSize>
#include <QString>

namespace corvane::controls {

// What Designer shows about a property.
struct PropertyHint {
    const char* property;
    QString toolTip;
};

struct ControlKind {
    const char* className; // with its namespaces
    const char* header;
    const char* objectName; // of a new control in a form
    const char* icon;       // file among the resources
    QString displayName;
    QString toolTip;
    QString description;
    QSize size; // of a new control, pixels
    QList<PropertyHint> properties;
    QWidget* (*make)(QWidget* parent);
};

class ControlPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    ControlPlugin(ControlKind kind, QObject* parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    QString domXml() const override;
    bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override { return kind_.make(parent); }
    bool isInitialized() const override { return initialized_; }
    void initialize(QDesignerFormEditorInterface* core) override;

private:
    const ControlKind kind_;
    bool initialized_ = false;
};

} // namespace corvane::controls
