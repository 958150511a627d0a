#include "apps/editor/ChangeDialog.h"

#include "apps/editor/ChangeTree.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::editor {

QString summaryOf(const SaveResults& results, SaveJob::Mode mode) {
    const SaveCounts counts = countsOf(results);
    const bool isPreview = mode == SaveJob::Mode::Preview;
    QStringList parts{(isPreview ? ChangeDialog::tr("Files that will change: %1") : ChangeDialog::tr("Files saved: %1"))
                          .arg(counts.changed)};
    if (counts.failed > 0) {
        parts << (isPreview ? ChangeDialog::tr("that cannot be saved: %1") : ChangeDialog::tr("failed: %1"))
                     .arg(counts.failed);
    }
    if (counts.warned > 0) parts << ChangeDialog::tr("with warnings: %1").arg(counts.warned);
    return parts.join(QStringLiteral(", ")) + QLatin1Char('.');
}

ChangeDialog::ChangeDialog(const SaveResults& results, SaveJob::Mode mode, QWidget* parent) : QDialog(parent) {
    const bool isPreview = mode == SaveJob::Mode::Preview;
    setObjectName(isPreview ? QStringLiteral("preview") : QStringLiteral("report"));
    setWindowTitle(isPreview ? tr("Preview of the changes") : tr("Report of the last save"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(820, 520);
    auto* summary = new QLabel(summaryOf(results, mode), this);
    summary->setObjectName(QStringLiteral("summary"));
    auto* tree = new ChangeTree(this);
    tree->show(results);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* copy = buttons->addButton(tr("Copy as &text"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [text = textOf(results)] { QGuiApplication::clipboard()->setText(text); });
    if (isPreview) {
        QPushButton* save = buttons->addButton(QDialogButtonBox::Save);
        save->setEnabled(countsOf(results).changed > 0);
        save->setDefault(true);
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(summary);
    column->addWidget(tree, 1);
    column->addWidget(buttons);
}

} // namespace corvane::editor
