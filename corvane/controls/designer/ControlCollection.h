// Qt Designer's plugin: the visual controls, to be put on forms.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QList>
#include <QObject>

namespace corvane::controls {

class ControlCollection : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit ControlCollection(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return widgets_; }

private:
    QList<QDesignerCustomWidgetInterface*> widgets_; // children of this object
};

} // namespace corvane::controls
