// What the file and its first MPEG audio frame are.
#pragma once

#include <QTreeWidget>
#include <string>

namespace corvane {
class FileHandler;
}

namespace corvane::editor {

class TechnicalView : public QTreeWidget {
    Q_OBJECT

public:
    explicit TechnicalView(QWidget* parent = nullptr);

    void showFile(FileHandler& file);

private:
    static void addStatus(QTreeWidgetItem* section, const std::string& path);
    void showAudio(FileHandler& file);
    QTreeWidgetItem* section(const QString& title);
    static void add(QTreeWidgetItem* section, const QString& name, const QString& value);
};

} // namespace corvane::editor
