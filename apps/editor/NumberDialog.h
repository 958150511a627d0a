// Asks how the selected files are to be numbered.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QSpinBox>

namespace corvane::editor {

class NumberDialog : public QDialog {
    Q_OBJECT

public:
    // For so many files, in the order of the list.
    NumberDialog(int fileCount, QWidget* parent);

    int first() const { return first_->value(); }
    // How many tracks there are altogether; 0 when that is not to be written.
    int total() const { return withTotal_->isChecked() ? total_->value() : 0; }

private:
    QSpinBox* first_;
    QCheckBox* withTotal_;
    QSpinBox* total_;
};

} // namespace corvane::editor
