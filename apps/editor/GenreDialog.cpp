#include "apps/editor/GenreDialog.h"

#include "corvane/controls/Text.h"
#include "corvane/id3v1/GenreTable.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::editor {

GenreDialog::GenreDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Genres"));
    resize(360, 480);
    auto* words = new QLineEdit(this);
    words->setObjectName(QStringLiteral("genreFilter"));
    words->setPlaceholderText(tr("Filter"));
    words->setAccessibleName(tr("Filter"));
    words->setClearButtonEnabled(true);
    list_ = new QTreeWidget(this);
    list_->setObjectName(QStringLiteral("genres"));
    list_->setAccessibleName(tr("Genres"));
    list_->setHeaderLabels({tr("Genre"), tr("Number")});
    list_->setRootIsDecorated(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setStretchLastSection(false);
    for (const GenreRow& row : kGenreTable) {
        if (row.number == kUndefinedGenre) continue;
        auto* item = new QTreeWidgetItem(list_, {controls::toQt(row.name)});
        item->setData(1, Qt::DisplayRole, row.number);
    }
    list_->setSortingEnabled(true);
    list_->sortByColumn(0, Qt::AscendingOrder);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* set = buttons->button(QDialogButtonBox::Ok);
    set->setText(tr("&Set genre"));
    set->setEnabled(false);
    connect(words, &QLineEdit::textChanged, this, &GenreDialog::filter);
    connect(list_, &QTreeWidget::itemSelectionChanged, set, [this, set] { set->setEnabled(!genre().empty()); });
    connect(list_, &QTreeWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(words);
    column->addWidget(list_, 1);
    column->addWidget(buttons);
}

void GenreDialog::filter(const QString& words) {
    for (int at = 0; at < list_->topLevelItemCount(); ++at) {
        QTreeWidgetItem* item = list_->topLevelItem(at);
        item->setHidden(!item->text(0).contains(words.trimmed(), Qt::CaseInsensitive));
    }
}

std::string GenreDialog::genre() const {
    const auto chosen = list_->selectedItems();
    return chosen.isEmpty() || chosen.front()->isHidden() ? std::string() : controls::fromQt(chosen.front()->text(0));
}

} // namespace corvane::editor
