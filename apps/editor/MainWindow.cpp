#include "apps/editor/MainWindow.h"

#include "corvane/controls/Text.h"

#include "apps/editor/FileName.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <utility>

// The icon of a static library is there only when somebody asks for it, outside of any namespace.
static void initIcons() { Q_INIT_RESOURCE(editor); }

namespace corvane::editor {

namespace {

constexpr auto kGeometryKey = "geometry", kStateKey = "state", kColumnsKey = "columns", kSplitterKey = "splitter",
               kFramesKey = "FRL";

constexpr QSize kFrameRoom{8, 40}; // pixels that a desktop puts around a window, with the title bar

QLabel* hintLabel() {
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("hint"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setEnabled(false); // in the colour of what is not content
    return label;
}

bool hasLocalFile(const QMimeData& data) {
    const auto urls = data.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

bool isTextBox(const QObject* widget) {
    const auto* page = qobject_cast<const QPlainTextEdit*>(widget->parent()); // of whose text the widget is the view
    return page || qobject_cast<const QLineEdit*>(widget);
}

} // namespace

MainWindow::MainWindow(QSettings& settings) : settings_(settings), recent_(settings), saving_(session_, table_, *this) {
    initIcons();
    setObjectName(QStringLiteral("MainWindow"));
    setWindowIcon(QIcon(QStringLiteral(":/corvane-editor.svg")));
    setAcceptDrops(true);
    makeView();
    editing_ = std::make_unique<Editing>(session_, table_, *pages_, *many_);
    makeMenus();
    connectParts();
    restore();
    editing_->select({});
    tellCount();
    updateActions();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::makeView() {
    list_ = new FileList(table_);
    hint_ = hintLabel();
    pages_ = new FilePages;
    many_ = new ManyPages(session_);
    below_ = new QStackedWidget;
    for (QWidget* page : {static_cast<QWidget*>(hint_), static_cast<QWidget*>(pages_), static_cast<QWidget*>(many_)}) {
        below_->addWidget(page);
    }
    splitter_ = new QSplitter(Qt::Vertical);
    splitter_->addWidget(list_);
    splitter_->addWidget(below_);
    splitter_->setChildrenCollapsible(false);
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 0);
    setCentralWidget(splitter_);
    count_ = new QLabel;
    count_->setObjectName(QStringLiteral("count"));
    jobBar_ = new JobBar;
    statusBar()->addPermanentWidget(jobBar_);
    statusBar()->addPermanentWidget(count_);
}

void MainWindow::connectParts() {
    jobBar_->watch(loader_, tr("Reading"));
    jobBar_->watch(editing_->reader(), tr("Reading tags"));
    jobBar_->watch(saving_.job(), tr("Working"));
    connect(&loader_, &Loader::loaded, this, [this](const FileRows& rows) { table_.add(rows); });
    connect(&loader_, &Loader::refused, this, [this](const QString& folder, const QString& reason) {
        statusBar()->showMessage(tr("%1 cannot be read: %2").arg(folder, reason));
    });
    connect(&loader_, &Loader::ignored, this, [this](const QString& file, const QString& reason) {
        recent_.remove(file);
        statusBar()->showMessage(tr("%1 is not opened: %2").arg(file, reason));
    });
    connect(&loader_, &Loader::leftoversFound, this, &MainWindow::offerRemoval);
    connect(list_, &FileList::selectionChanged, this, [this] {
        if (!saving_.isRunning()) editing_->select(list_->selectedPaths());
    });
    connect(list_, &FileList::countChanged, this, &MainWindow::tellCount);
    connect(editing_.get(), &Editing::shown, this, &MainWindow::showPart);
    connect(&session_, &EditSession::changed, this, &MainWindow::updateActions);
    connect(&session_, &EditSession::dirtyChanged, this, &MainWindow::setWindowModified);
    connect(&saving_, &Saving::saved, this, &MainWindow::endSave);
    connect(&saving_, &Saving::runningChanged, this, [this](bool isRunning) {
        if (isRunning) beforeRun_ = FocusPlace(*this);
        centralWidget()->setEnabled(!isRunning);
        if (!isRunning) beforeRun_.restore();
        updateActions();
        const bool isPreviewEnd = !isRunning && saving_.job().mode() == SaveJob::Mode::Preview;
        if (const auto next = isPreviewEnd ? std::exchange(afterRun_, nullptr) : nullptr) next();
    });
}

void MainWindow::open(std::vector<std::string> paths) {
    std::erase(paths, std::string()); // as an empty variable gives one to the command line
    if (paths.empty()) return;
    for (const std::string& path : paths) {
        if (isText(path)) recent_.add(shownPath(path)); // settings are text
    }
    loader_.load(std::move(paths));
}

// --- what the parts tell

void MainWindow::showPart(Editing::Shown what, const QString& hint) {
    hint_->setText(hint);
    switch (what) {
    case Editing::Shown::OneFile:
        below_->setCurrentWidget(pages_);
        break;
    case Editing::Shown::ManyFiles:
        below_->setCurrentWidget(many_);
        break;
    default:
        below_->setCurrentWidget(hint_);
    }
    showTitle();
    updateActions();
}

void MainWindow::showTitle() {
    const auto& selected = editing_->selected();
    QString title = QStringLiteral("Corvane Editor"); // which Qt appends to other titles
    if (selected.size() == 1) title = nameOf(selected.front());
    if (selected.size() > 1) title = tr("%1 files").arg(selected.size());
    const QString place = QStringLiteral("[*]"); // of the mark of changes; a name with it has it twice
    setWindowTitle(title.replace(place, place + place) + place);
}

void MainWindow::updateActions() {
    const bool isIdle = !saving_.isRunning();
    const auto& selected = editing_->selected();
    const bool hasChangedSelection = std::any_of(selected.begin(), selected.end(),
                                                 [this](const std::string& path) { return session_.isChanged(path); });
    save_->setEnabled(isIdle && session_.hasChanges());
    preview_->setEnabled(isIdle && session_.hasChanges());
    saveSelected_->setEnabled(isIdle && hasChangedSelection);
    revert_->setEnabled(isIdle && hasChangedSelection);
    report_->setEnabled(isIdle && !saving_.lastReport().isEmpty());
    undo_->setEnabled(isIdle && session_.undoStack().canUndo());
    redo_->setEnabled(isIdle && session_.undoStack().canRedo());
    toolMenu_->updateActions(isIdle && !editing_->editable().empty());
}

void MainWindow::endSave(bool isAllSaved, const QString& summary) {
    statusBar()->showMessage(summary);
    if (list_->selectedPaths() != editing_->selected()) editing_->select(list_->selectedPaths());
    updateActions();
    const std::function<void()> next = std::exchange(afterRun_, nullptr);
    if (isAllSaved && next) next();
}

void MainWindow::tellCount() {
    const int shown = list_->shownCount(), all = table_.rowCount();
    count_->setText(shown == all ? tr("Files: %1").arg(all) : tr("Files: %1 of %2").arg(shown).arg(all));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isKept = (event->type() == QEvent::ShortcutOverride && isSessionKey(watched, *event)) ||
                        (event->type() == QEvent::DragEnter && isFileOverText(watched, *event));
    if (!isKept) return QMainWindow::eventFilter(watched, event);
    event->ignore();
    return true;
}

// Undo and redo are those of the session everywhere: a text box has only its own words to take back.
bool MainWindow::isSessionKey(const QObject* watched, const QEvent& event) const {
    const auto& key = static_cast<const QKeyEvent&>(event);
    const auto* widget = qobject_cast<const QWidget*>(watched);
    const bool isUndo = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
    return isUndo && widget && below_->isAncestorOf(widget);
}

// Files are opened wherever they are dropped. A text box would write their addresses into the tag.
bool MainWindow::isFileOverText(const QObject* watched, const QEvent& event) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    return widget && isAncestorOf(widget) && isTextBox(widget) &&
           hasLocalFile(*static_cast<const QDragEnterEvent&>(event).mimeData());
}

// --- closing

void MainWindow::afterChanges(std::function<void()> next) {
    if (saving_.isRunning()) return;
    if (!session_.hasChanges()) return next();
    QMessageBox box(QMessageBox::Warning, tr("Corvane Editor"),
                    tr("There are changes that are not saved. Changed files: %1").arg(session_.changedPaths().size()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("unsaved"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        afterRun_ = std::move(next);
        return saving_.save(session_.changedPaths());
    case QMessageBox::Discard:
        session_.clear();
        return next();
    default:
        return;
    }
}

void MainWindow::closeFiles() {
    afterChanges([this] {
        loader_.abandon();
        session_.clear();
        table_.clear();
    });
}

// With changes the question comes first; the window closes itself when it is answered, which may be after a save.
void MainWindow::closeEvent(QCloseEvent* event) {
    const bool mayClose = !session_.hasChanges() && !saving_.isRunning();
    const auto closeLater = [this] { QTimer::singleShot(0, this, &QWidget::close); }; // one close at a time
    event->setAccepted(mayClose);
    if (mayClose) {
        keep();
    } else if (!saving_.isRunning()) {
        afterChanges(closeLater);
    } else {
        afterRun_ = closeLater;
        if (saving_.job().mode() == SaveJob::Mode::Save) {
            statusBar()->showMessage(tr("The window closes when the files are saved."));
        } else {
            saving_.job().cancel(); // nobody waits for a preview any more
        }
    }
}

// --- the list

void MainWindow::reload() {
    std::vector<std::string> paths;
    for (int row = 0; row < table_.rowCount(); ++row) paths.push_back(table_.path(row));
    if (!paths.empty()) loader_.load(std::move(paths));
    editing_->showAgain();
}

void MainWindow::removeFromList() {
    const std::vector<std::string> paths = list_->selectedPaths();
    const auto changed =
        std::count_if(paths.begin(), paths.end(), [this](const std::string& path) { return session_.isChanged(path); });
    if (paths.empty() || saving_.isRunning()) return;
    if (changed > 0) {
        QMessageBox box(QMessageBox::Warning, tr("Remove from the list"),
                        tr("There are changes that are not saved. Changed files: %1").arg(changed),
                        QMessageBox::Discard | QMessageBox::Cancel, this);
        box.setDefaultButton(QMessageBox::Cancel);
        if (box.exec() != QMessageBox::Discard) return;
    }
    session_.forget(paths);
    table_.remove(paths);
}

void MainWindow::offerRemoval(std::vector<std::string> paths) {
    std::erase_if(paths, [this](const std::string& path) { return !offered_.insert(path).second; });
    if (paths.empty()) return;
    auto* box = new QMessageBox(QMessageBox::Question, tr("Temporary files"),
                                tr("A save that was cut off has left temporary files behind: %1. Your files have all "
                                   "that is in them, except the "
                                   "tag that was being written.\n\nRemove the temporary files?")
                                    .arg(paths.size()),
                                QMessageBox::Yes | QMessageBox::No, this);
    box->setObjectName(QStringLiteral("leftovers"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setDefaultButton(QMessageBox::No);
    QStringList names;
    for (const std::string& path : paths) names << shownPath(path);
    box->setDetailedText(names.join(QLatin1Char('\n')));
    connect(box, &QDialog::accepted, this, [this, paths] {
        for (const std::string& path : paths) {
            const std::string reason = removeLeftover(path, loader_.leftoverAge());
            if (!reason.empty()) {
                statusBar()->showMessage(tr("%1 was not removed: %2").arg(shownPath(path), controls::toQt(reason)));
            }
        }
    });
    box->open();
}

// --- dropping

// Never as a move: whoever drags a file may delete it once it has been moved.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!hasLocalFile(*event->mimeData())) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
    std::vector<std::string> paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) paths.push_back(pathOf(url));
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    open(paths);
}

// --- settings

void MainWindow::restore() {
    resize(1180, 820);
    restoreGeometry(settings_.value(QLatin1String(kGeometryKey)).toByteArray());
    if (!isMaximized() && !isFullScreen()) resize(size().boundedTo(screen()->availableGeometry().size() - kFrameRoom));
    restoreState(settings_.value(QLatin1String(kStateKey)).toByteArray());
    list_->setColumns(settings_.value(QLatin1String(kColumnsKey)).toByteArray());
    if (!splitter_->restoreState(settings_.value(QLatin1String(kSplitterKey)).toByteArray())) {
        splitter_->setSizes({380, 400});
    }
    frames_->setChecked(settings_.value(QLatin1String(kFramesKey), false).toBool());
    pages_->showFrames(frames_->isChecked());
}

void MainWindow::keep() {
    settings_.setValue(QLatin1String(kGeometryKey), saveGeometry());
    settings_.setValue(QLatin1String(kStateKey), saveState());
    settings_.setValue(QLatin1String(kColumnsKey), list_->columns());
    settings_.setValue(QLatin1String(kSplitterKey), splitter_->saveState());
    settings_.setValue(QLatin1String(kFramesKey), frames_->isChecked());
}

} // namespace corvane::editor
