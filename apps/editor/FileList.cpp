#include "apps/editor/FileList.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace corvane::editor {

namespace {

constexpr int kSelectionDelay = 30; // milliseconds
constexpr int kRowMargin = 6;       // pixels
constexpr std::array<int, FileTable::ColumnCount> kLetters{26, 28, 22, 22, 8, 8, 14, 9, 12, 20, 40};

} // namespace

FileList::FileList(FileTable& table, QWidget* parent) : QWidget(parent), table_(table) {
    filter_.setSourceModel(&table_);
    words_ = new QLineEdit(this);
    words_->setObjectName(QStringLiteral("filter"));
    words_->setPlaceholderText(tr("Filter: words in any column"));
    words_->setAccessibleName(tr("Filter"));
    words_->setClearButtonEnabled(true);
    connect(words_, &QLineEdit::textChanged, &filter_, &FileFilter::setWords);
    makeView();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 0);
    column->addWidget(words_);
    column->addWidget(view_, 1);

    selectionTimer_.setSingleShot(true);
    selectionTimer_.setInterval(kSelectionDelay);
    connect(&selectionTimer_, &QTimer::timeout, this, &FileList::selectionChanged);
    const auto changed = [this] { selectionTimer_.start(); };
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, changed);
    connect(&filter_, &QAbstractItemModel::modelReset, this, changed);
    connect(&filter_, &QAbstractItemModel::layoutChanged, this, changed); // the order of the selected files
    connect(&filter_, &QAbstractItemModel::rowsInserted, this, &FileList::countChanged);
    connect(&filter_, &QAbstractItemModel::rowsRemoved, this, &FileList::countChanged);
    connect(&filter_, &QAbstractItemModel::modelReset, this, &FileList::countChanged);
}

void FileList::makeView() {
    view_ = new QTableView(this);
    view_->setObjectName(QStringLiteral("files"));
    view_->setAccessibleName(tr("Files"));
    view_->setModel(&filter_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setSortingEnabled(true);
    view_->sortByColumn(-1, Qt::AscendingOrder); // as they come, in the order of their paths
    view_->setAlternatingRowColors(true);
    view_->setShowGrid(false);
    view_->setWordWrap(false);
    view_->setTabKeyNavigation(false);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + kRowMargin);
    QHeaderView* header = view_->horizontalHeader();
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setSortIndicatorClearable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, &FileList::showHeaderMenu);
    const int letter = view_->fontMetrics().averageCharWidth();
    for (int column = 0; column < FileTable::ColumnCount; ++column) {
        const int width = kLetters[static_cast<std::size_t>(column)] * letter;
        view_->setColumnWidth(column, std::max(width, header->sectionSizeHint(column)));
    }
}

void FileList::showHeaderMenu(const QPoint& at) {
    QHeaderView* header = view_->horizontalHeader();
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("columns"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int column = FileTable::Title; column < FileTable::ColumnCount; ++column) {
        QAction* action = menu->addAction(table_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!header->isSectionHidden(column));
        connect(action, &QAction::toggled, header,
                [header, column](bool on) { header->setSectionHidden(column, !on); });
    }
    menu->popup(header->mapToGlobal(at));
}

std::vector<std::string> FileList::selectedPaths() const {
    std::vector<int> rows;
    for (const QModelIndex& index : view_->selectionModel()->selectedRows()) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    std::vector<std::string> paths;
    paths.reserve(rows.size());
    for (const int row : rows) paths.push_back(table_.path(filter_.mapToSource(filter_.index(row, 0)).row()));
    return paths;
}

QByteArray FileList::columns() const { return view_->horizontalHeader()->saveState(); }

void FileList::setColumns(const QByteArray& state) { view_->horizontalHeader()->restoreState(state); }

} // namespace corvane::editor
