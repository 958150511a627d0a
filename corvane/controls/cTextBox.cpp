#include "corvane/controls/cTextBox.h"

#include "corvane/controls/EditBox.h"
#include "corvane/controls/FailureWall.h"
#include "corvane/controls/Text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>

namespace corvane::controls {

namespace {

Undoable undoableBy(const Variant& allowUndo) {
    const auto* number = std::get_if<std::int32_t>(&allowUndo);
    const auto* text = std::get_if<std::string>(&allowUndo);
    const bool refused = (number && *number == 0) || (text && (*text == "False" || *text == "0"));
    return refused ? Undoable::No : Undoable::Yes;
}

// On some platforms the window system's request for a menu comes with the press and on others with the release; both
// belong to the one right click that the host's menu answers.
bool isRightRelease(const QEvent& event) {
    return event.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
}

bool isMenuRequestOfMouse(const QEvent& event) {
    return event.type() == QEvent::ContextMenu &&
           static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
}

} // namespace

cTextBox::cTextBox(QObject* parent) : QObject(parent), box_(std::make_unique<EditBox>()) {}

cTextBox::~cTextBox() { release(); }

void cTextBox::release() {
    DisableContextMenu(false);
    if (watched_) watched_->removeEventFilter(this);
    watched_ = nullptr;
    *box_ = {};
}

void cTextBox::TextBox(QWidget* txtThis) {
    release();
    *box_ = EditBox(txtThis);
    watched_ = box_->surface();
    if (watched_) watched_->installEventFilter(this);
}

void cTextBox::Cut() { box_->cut(); }

void cTextBox::Copy() { box_->copy(); }

// A box would paste the addresses of copied files.
void cTextBox::Paste() {
    if (CanPaste()) box_->paste();
}

void cTextBox::Undo() { box_->undo(); }

void cTextBox::SelectAll() { box_->selectAll(); }

bool cTextBox::CanCut() const { return !box_->isLocked() && CanCopy(); }

bool cTextBox::CanCopy() const { return box_->selectedLength() > 0; }

bool cTextBox::CanPaste() const {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    return content && content->hasFormat(QStringLiteral("text/plain")); // hasText is true for copied files as well
}

bool cTextBox::CanUndo() const { return box_->canUndo(); }

bool cTextBox::CanSelectAll() const { return !CanCopy() && !box_->text().isEmpty(); }

void cTextBox::ReplaceSelection(std::string_view sText, const Variant& bAllowUndo) {
    box_->replaceSelection(toQt(sText), undoableBy(bAllowUndo));
}

void cTextBox::Delete(const Variant& /*bAllowUndo*/) { box_->replaceSelection({}, Undoable::No); }

void cTextBox::DisableContextMenu(bool disable) {
    QWidget* box = box_->widget();
    if (!box) {
        disableContextMenu_ = false; // a box that is gone took its menu with it
        return;
    }
    if (disable == disableContextMenu_) return;
    disableContextMenu_ = disable;
    if (disable) formerPolicy_ = box->contextMenuPolicy();
    box->setContextMenuPolicy(disable ? Qt::PreventContextMenu : formerPolicy_);
}

bool cTextBox::popUp() {
    return QMetaObject::invokeMethod(menuObject_, "PopupMenu", Qt::DirectConnection,
                                     Q_ARG(QMenu*, contextMenu_.data()));
}

bool cTextBox::eventFilter(QObject* watched, QEvent* event) {
    if (!contextMenu_ || !menuObject_ || !watched_ || !watched_->isEnabled())
        return QObject::eventFilter(watched, event);
    if (isMenuRequestOfMouse(*event)) return true;
    if (!isRightRelease(*event)) return QObject::eventFilter(watched, event);
    behindWall("cTextBox", [this] { popUp(); });
    return true;
}

} // namespace corvane::controls
