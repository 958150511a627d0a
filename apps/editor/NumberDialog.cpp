#include "apps/editor/NumberDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace corvane::editor {

namespace {

constexpr int kLargestNumber = 9999;

} // namespace

NumberDialog::NumberDialog(int fileCount, QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Number the tracks"));
    auto* text = new QLabel(
        tr("The selected files (%1) get track numbers in the order in which the list shows them.").arg(fileCount),
        this);
    text->setWordWrap(true);
    first_ = new QSpinBox(this);
    first_->setObjectName(QStringLiteral("first"));
    first_->setRange(1, kLargestNumber);
    withTotal_ = new QCheckBox(tr("Write the &total, as in 3/12:"), this);
    withTotal_->setObjectName(QStringLiteral("withTotal"));
    withTotal_->setChecked(true);
    total_ = new QSpinBox(this);
    total_->setObjectName(QStringLiteral("total"));
    total_->setRange(1, kLargestNumber);
    total_->setValue(fileCount);
    connect(withTotal_, &QCheckBox::toggled, total_, &QWidget::setEnabled);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Number"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* form = new QFormLayout(this);
    form->addRow(text);
    form->addRow(tr("&First number:"), first_);
    form->addRow(withTotal_, total_);
    form->addRow(buttons);
}

} // namespace corvane::editor
