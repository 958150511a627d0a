#include "apps/editor/CaseDialog.h"

#include "corvane/controls/BatchString.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::editor {

using controls::BatchString;

CaseDialog::CaseDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Convert case"));
    auto* cases = new QGroupBox(tr("Write"), this);
    auto* caseColumn = new QVBoxLayout(cases);
    const auto addCase = [&](std::int32_t code, const QString& text) {
        auto* button = new QRadioButton(text, cases);
        caseColumn->addWidget(button);
        conversions_.emplace_back(code, button);
    };
    addCase(BatchString::kProperCase, tr("&First Letter of Each Word"));
    addCase(BatchString::kLowerCase, tr("all in &lower case"));
    addCase(BatchString::kUpperCase, tr("ALL IN &UPPER CASE"));
    caseColumn->addStretch();
    conversions_.front().second->setChecked(true);

    auto* texts = new QGroupBox(tr("In"), this);
    auto* textColumn = new QVBoxLayout(texts);
    const auto addField = [&](Field field, const QString& text, bool isOn) {
        auto* box = new QCheckBox(text, texts);
        box->setChecked(isOn);
        textColumn->addWidget(box);
        fields_.emplace_back(field, box);
    };
    addField(Field::Title, tr("&Title"), true);
    addField(Field::Artist, tr("&Artist"), true);
    addField(Field::Album, tr("Al&bum"), true);
    addField(Field::Comment, tr("Comme&nt"), false);
    addField(Field::Composer, tr("Co&mposer"), false);
    addField(Field::OriginalArtist, tr("&Original artist"), false);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Con&vert"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(cases);
    row->addWidget(texts);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(buttons);
}

std::set<Field> CaseDialog::fields() const {
    std::set<Field> wanted;
    for (const auto& [field, box] : fields_) {
        if (box->isChecked()) wanted.insert(field);
    }
    return wanted;
}

std::int32_t CaseDialog::conversion() const {
    for (const auto& [code, button] : conversions_) {
        if (button->isChecked()) return code;
    }
    return 0;
}

} // namespace corvane::editor
