// The XML document of a file: shown, copied, exported. The document is made when it is first looked at. Long values,
// such as pictures, are shortened on the screen and nowhere else.
#pragma once

#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>
#include <optional>
#include <string>

namespace corvane::editor {

class XmlView : public QWidget {
    Q_OBJECT

public:
    explicit XmlView(QWidget* parent = nullptr);

    // "" for no file.
    void setFile(const std::string& path);
    // The whole document, UTF-8; "" when there is none.
    const std::string& document();
    // Writes the document as the bytes that its declaration tells. Gives the reason when that fails, else "".
    QString writeTo(const QString& file);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void load();
    void copy();
    void exportFile();

    QPlainTextEdit* text_;
    QPushButton *copy_, *export_;
    std::string path_;
    std::optional<std::string> document_;
};

// The document as the screen shows it: indented, long values shortened.
QString forScreen(const QString& document);

} // namespace corvane::editor
