// The genres that ID3v1 numbers, to choose one from: found as you type.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QTreeWidget>
#include <string>

namespace corvane::editor {

class GenreDialog : public QDialog {
    Q_OBJECT

public:
    explicit GenreDialog(QWidget* parent);

    // The name of the chosen genre; "" when none is chosen.
    std::string genre() const;

private:
    void filter(const QString& words);

    QTreeWidget* list_;
};

} // namespace corvane::editor
