// The plugin as Qt Designer's own libraries load it; it brings the shared library of the controls, and so does this
// test.
#include "corvane/controls/ControlEnumerations.h"

#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QDir>
#include <QFormBuilder>
#include <QIcon>
#include <QLineEdit>
#include <QPluginLoader>
#include <QUiLoader>
#include <QXmlStreamReader>
#include <QtTest>
#include <memory>

namespace {

const QString kFolder = QStringLiteral(DESIGNER_PLUGIN_FOLDER);
const QString kPlugin = QStringLiteral(DESIGNER_PLUGIN);

constexpr const char* kForm = R"(<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <layout class="QVBoxLayout">
   <item><widget class="corvane::controls::Corvane" name="container"/></item>
   <item><widget class="corvane::controls::ID3v1" name="tag">
     <property name="Title" stdset="0"><string>Größe</string></property>
     <property name="Genre" stdset="0"><number>17</number></property>
     <property name="Locked" stdset="0"><bool>true</bool></property>
     <property name="VisibilityMode" stdset="0"><enum>%1</enum></property>
   </widget></item>
   <item><widget class="corvane::controls::ID3v2" name="frames">
     <property name="Mode" stdset="0"><enum>v2aWide</enum></property>
     <property name="FrameListVisible" stdset="0"><bool>false</bool></property>
   </widget></item>
   <item><widget class="corvane::controls::Lyrics" name="words">
     <property name="Enabled" stdset="0"><bool>false</bool></property>
   </widget></item>
  </layout>
 </widget>
 <customwidgets>
  <customwidget><class>corvane::controls::Corvane</class><extends>QWidget</extends></customwidget>
  <customwidget><class>corvane::controls::ID3v1</class><extends>QWidget</extends></customwidget>
  <customwidget><class>corvane::controls::ID3v2</class><extends>QWidget</extends></customwidget>
  <customwidget><class>corvane::controls::Lyrics</class><extends>QWidget</extends></customwidget>
 </customwidgets>
</ui>)";

QByteArray formWith(const char* mode) { return QString::fromUtf8(kForm).arg(QLatin1String(mode)).toUtf8(); }

void checkForm(const QWidget& form) {
    QVERIFY(form.findChild<QWidget*>("container")->inherits("corvane::controls::Corvane"));
    const auto* tag = form.findChild<QWidget*>("tag");
    QVERIFY(tag && tag->inherits("corvane::controls::ID3v1"));
    QCOMPARE(tag->findChild<QLineEdit*>("txtTitle")->text(), QString::fromUtf8("Größe"));
    QCOMPARE(tag->property("Genre").toInt(), 17);
    QVERIFY(tag->property("Locked").toBool());
    QCOMPARE(tag->property("VisibilityMode").toInt(), 1);
    QCOMPARE(form.findChild<QWidget*>("frames")->property("Mode").toInt(), 1);
    QCOMPARE(form.findChild<QWidget*>("frames")->property("FrameListVisible").toBool(), false);
    QCOMPARE(form.findChild<QWidget*>("words")->property("Enabled").toBool(), false);
}

} // namespace

class DesignerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loadsAFormWithEveryControl_data();
    void loadsAFormWithEveryControl();
    void buildsAFormWithEveryControl();
    void everyControlTellsWhatDesignerShows_data();
    void everyControlTellsWhatDesignerShows();
    void everyControlHasAnIconOfPixelsAndOfItsOwn_data() { everyControlTellsWhatDesignerShows_data(); }
    void everyControlHasAnIconOfPixelsAndOfItsOwn();
    void aNewControlIsWellFormed_data() { everyControlTellsWhatDesignerShows_data(); }
    void aNewControlIsWellFormed();
    void everyHintBelongsToAProperty_data() { everyControlTellsWhatDesignerShows_data(); }
    void everyHintBelongsToAProperty();
    void propertyEditorGroupsAndExplainsEveryPropertyThatCanBeSet_data() { everyControlTellsWhatDesignerShows_data(); }
    void propertyEditorGroupsAndExplainsEveryPropertyThatCanBeSet();

private:
    QDesignerCustomWidgetInterface* control();

    QPluginLoader plugin_{kPlugin};
};

void DesignerTest::loadsAFormWithEveryControl_data() {
    QTest::addColumn<QByteArray>("mode");
    QTest::newRow("by its name") << QByteArray("temEditMany");
    QTest::newRow("by its full name") << QByteArray("corvane::controls::ETagEditModeConstants::temEditMany");
}

void DesignerTest::loadsAFormWithEveryControl() {
    QFETCH(QByteArray, mode);
    QUiLoader loader;
    loader.clearPluginPaths();
    QVERIFY(!loader.availableWidgets().contains("corvane::controls::ID3v1"));
    loader.addPluginPath(kFolder);
    for (const char* name : {"Corvane", "ID3v1", "ID3v2", "Lyrics"}) {
        QVERIFY(loader.availableWidgets().contains(QStringLiteral("corvane::controls::") + QLatin1String(name)));
    }
    QByteArray text = formWith(mode);
    QBuffer file(&text);
    const std::unique_ptr<QWidget> form(loader.load(&file));
    QVERIFY2(form, qPrintable(loader.errorString()));
    checkForm(*form);
}

void DesignerTest::buildsAFormWithEveryControl() {
    QFormBuilder builder;
    builder.clearPluginPaths();
    builder.addPluginPath(kFolder);
    QByteArray text = formWith("temEditMany");
    QBuffer file(&text);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> form(builder.load(&file, nullptr));
    QVERIFY2(form, qPrintable(builder.errorString()));
    checkForm(*form);
}

void DesignerTest::everyControlTellsWhatDesignerShows_data() {
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("header");
    int offset = 0;
    for (const char* control : {"Corvane", "ID3v1", "ID3v2", "Lyrics"}) {
        QTest::newRow(control) << offset++ << QStringLiteral("corvane::controls::%1").arg(control)
                               << QStringLiteral("corvane/controls/%1.h").arg(control);
    }
}

QDesignerCustomWidgetInterface* DesignerTest::control() {
    QFETCH(int, offset);
    auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(plugin_.instance());
    if (!collection) qFatal("%s", qPrintable(plugin_.errorString()));
    return collection->customWidgets().at(offset);
}

void DesignerTest::everyControlTellsWhatDesignerShows() {
    QDesignerCustomWidgetInterface* shown = control();
    QTEST(shown->name(), "name");
    QTEST(shown->includeFile(), "header");
    QCOMPARE(shown->group(), "Corvane Tag Editors");
    QVERIFY(!shown->toolTip().isEmpty() && !shown->whatsThis().isEmpty());
    QVERIFY(!shown->isContainer());
    const QImage icon = shown->icon().pixmap(22, 22).toImage();
    QVERIFY(!icon.isNull());
    QVERIFY(icon.pixelColor(11, 11) != icon.pixelColor(0, 0)); // something is drawn
    QVERIFY(!shown->isInitialized());
    shown->initialize(nullptr);
    QVERIFY(shown->isInitialized());
    QWidget parent;
    QWidget* made = shown->createWidget(&parent);
    QCOMPARE(made->parentWidget(), &parent);
    QTEST(QString::fromLatin1(made->metaObject()->className()), "name");
}

// Designer shows Qt's logo for a control whose icon has pixels only while it is painted.
void DesignerTest::everyControlHasAnIconOfPixelsAndOfItsOwn() {
    const QIcon icon = control()->icon();
    const QList<QSize> sizes = icon.availableSizes();
    QVERIFY(sizes.contains(QSize(22, 22)) && sizes.contains(QSize(44, 44)));
    const QImage shown = icon.pixmap(22, 22).toImage();
    const QDir images(QStringLiteral(":/qt-project.org/formeditor/images"));
    const QStringList logos = images.entryList({QStringLiteral("qtlogo*")});
    QVERIFY(!logos.isEmpty());
    for (const QString& logo : logos) QVERIFY(shown != QIcon(images.filePath(logo)).pixmap(22, 22).toImage());
    static QList<QImage> others;
    for (const QImage& other : others) QVERIFY(shown != other);
    others << shown;
}

void DesignerTest::aNewControlIsWellFormed() {
    QXmlStreamReader xml(control()->domXml());
    QStringList classes;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"widget") {
            classes.push_back(xml.attributes().value("class").toString());
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QFETCH(QString, name);
    QCOMPARE(classes, QStringList{name});
}

void DesignerTest::everyHintBelongsToAProperty() {
    QDesignerCustomWidgetInterface* shown = control();
    const std::unique_ptr<QWidget> made(shown->createWidget(nullptr));
    QXmlStreamReader xml(shown->domXml());
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"tooltip") continue;
        const QByteArray property = xml.attributes().value("name").toLatin1();
        QVERIFY2(made->metaObject()->indexOfProperty(property) >= 0, property.constData());
        QVERIFY(!xml.readElementText().isEmpty());
    }
}

namespace {

QStringList hintedProperties(const QString& domXml) {
    QStringList names;
    QXmlStreamReader xml(domXml);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"tooltip") continue;
        names << xml.attributes().value("name").toString();
    }
    return names;
}

} // namespace

// As Designer's own property editor sees it: what stands in the group of the control.
void DesignerTest::propertyEditorGroupsAndExplainsEveryPropertyThatCanBeSet() {
    QObject owner;
    QDesignerFormEditorInterface* designer = QDesignerComponents::createFormEditor(&owner);
    const std::unique_ptr<QWidget> made(control()->createWidget(nullptr));
    auto* sheet = qt_extension<QDesignerPropertySheetExtension*>(designer->extensionManager(), made.get());
    QVERIFY(sheet != nullptr);
    QFETCH(QString, name);
    QStringList offered;
    for (int at = 0; at < sheet->count(); ++at) {
        if (sheet->propertyGroup(at) == name && sheet->isVisible(at)) offered << sheet->propertyName(at);
    }
    QStringList hinted = hintedProperties(control()->domXml());
    offered.sort();
    hinted.sort();
    QCOMPARE(offered, hinted);
}

QTEST_MAIN(DesignerTest)

#include <DesignerTest.moc>
