// The preview of what saving will do, and the report of what it has done.
#pragma once

#include "apps/editor/SaveJob.h"

#include <QDialog>

namespace corvane::editor {

class ChangeDialog : public QDialog {
    Q_OBJECT

public:
    // A preview can be accepted, which means: save.
    ChangeDialog(const SaveResults& results, SaveJob::Mode mode, QWidget* parent);
};

// "Files saved: 3, failed: 1, with warnings: 2."
QString summaryOf(const SaveResults& results, SaveJob::Mode mode);

} // namespace corvane::editor
