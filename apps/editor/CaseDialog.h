// Asks which texts of the selected files are to be written in another case.
#pragma once

#include "apps/editor/FileTags.h"

#include <QCheckBox>
#include <QDialog>
#include <QRadioButton>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace corvane::editor {

class CaseDialog : public QDialog {
    Q_OBJECT

public:
    explicit CaseDialog(QWidget* parent);

    std::set<Field> fields() const;
    // A code of BatchString.
    std::int32_t conversion() const;

private:
    std::vector<std::pair<Field, QCheckBox*>> fields_;
    std::vector<std::pair<std::int32_t, QRadioButton*>> conversions_;
};

} // namespace corvane::editor
