#include "corvane/controls/EditMenu.h"

#include "corvane/controls/BatchString.h"
#include "corvane/controls/EditBox.h"
#include "corvane/controls/FailureWall.h"
#include "corvane/controls/Text.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <utility>

namespace corvane::controls {

EditMenu::EditMenu(QWidget& owner) : QObject(&owner), owner_(owner), menu_(new QMenu(&owner)) {
    menu_->setObjectName(QStringLiteral("mnuEdit"));
    makeEntries();
    connect(menu_, &QMenu::aboutToHide, this, [this] { giveBack(); });
}

template <class Body>
void EditMenu::run(Body&& body) {
    if (current_.box) behindWall("EditMenu", std::forward<Body>(body));
}

void EditMenu::makeEntries() {
    undo_ =
        addCommand(QStringLiteral("mnuEditUndo"), tr("&Undo"), QKeySequence::Undo, [](cTextBox& box) { box.Undo(); });
    menu_->addSeparator();
    cut_ = addCommand(QStringLiteral("mnuEditCut"), tr("Cu&t"), QKeySequence::Cut, [](cTextBox& box) { box.Cut(); });
    copy_ =
        addCommand(QStringLiteral("mnuEditCopy"), tr("&Copy"), QKeySequence::Copy, [](cTextBox& box) { box.Copy(); });
    paste_ = addCommand(QStringLiteral("mnuEditPaste"), tr("&Paste"), QKeySequence::Paste,
                        [](cTextBox& box) { box.Paste(); });
    delete_ = addCommand(QStringLiteral("mnuEditDelete"), tr("&Delete"), QKeySequence::UnknownKey,
                         [](cTextBox& box) { box.Delete(); });
    menu_->addSeparator();
    selectAll_ = addCommand(QStringLiteral("mnuEditSelectAll"), tr("Select &All"), QKeySequence::SelectAll,
                            [](cTextBox& box) { box.SelectAll(); });
    menu_->addSeparator();
    formats_ = menu_->addMenu(tr("&Format"));
    formats_->setObjectName(QStringLiteral("mnuFormat"));
    addFormat(QStringLiteral("mnuFormatFirstLetter"), tr("&First Letter of Each Word Upper Case"),
              BatchString::kProperCase);
    addFormat(QStringLiteral("mnuFormatLowerCase"), tr("&Lower Case"), BatchString::kLowerCase);
    addFormat(QStringLiteral("mnuFormatUpperCase"), tr("&Upper Case"), BatchString::kUpperCase);
}

QAction* EditMenu::addEntry(QMenu& menu, const QString& name, const QString& text) {
    auto* entry = new QAction(text, &owner_);
    entry->setObjectName(name);
    menu.addAction(entry);
    return entry;
}

// The keys are those of the box itself; the menu only tells them.
QAction* EditMenu::addCommand(const QString& name, const QString& text, QKeySequence::StandardKey key,
                              Command command) {
    QAction* entry = addEntry(*menu_, name, text);
    entry->setShortcut(key);
    entry->setShortcutContext(Qt::WidgetShortcut);
    entry->setShortcutVisibleInContextMenu(true);
    connect(entry, &QAction::triggered, this,
            [this, command] { run([this, command] { command(*current_.commands); }); });
    return entry;
}

void EditMenu::addFormat(const QString& name, const QString& text, std::int32_t conversion) {
    connect(addEntry(*formats_, name, text), &QAction::triggered, this,
            [this, conversion] { run([this, conversion] { convert(conversion); }); });
}

void EditMenu::attach(QWidget& box) {
    const Attached attached{&box, new cTextBox(this)};
    attached.commands->TextBox(&box);
    attached.commands->DisableContextMenu(true);
    for (QWidget* target : {&box, EditBox(&box).surface()}) {
        attached_[target] = attached;
        target->installEventFilter(this);
    }
}

bool EditMenu::eventFilter(QObject* watched, QEvent* event) {
    const auto found = attached_.find(watched);
    const bool ours = found != attached_.end() && found->second.box && found->second.box->isEnabled();
    if (!ours) return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<const QMouseEvent*>(event);
        if (press->button() != Qt::RightButton) return false;
        show(found->second, press->globalPosition().toPoint());
        return true;
    }
    if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(watched, event);
    // The mouse's own request follows a press that has shown the menu already.
    const auto* request = static_cast<const QContextMenuEvent*>(event);
    if (request->reason() != QContextMenuEvent::Mouse) show(found->second, request->globalPos());
    return true;
}

// The box is disabled while its menu is open. It gives the focus away before, in the way in which a menu takes it: a
// box that loses the focus otherwise loses its selection as well.
void EditMenu::show(const Attached& attached, const QPoint& position) {
    if (!attached.box || menu_->isVisible()) return;
    current_ = attached;
    behindWall("EditMenu", [this] { enableWhatIsPossible(); });
    if (current_.box->hasFocus()) owner_.setFocus(Qt::PopupFocusReason);
    current_.box->setEnabled(false);
    menu_->popup(position);
    if (!menu_->isVisible()) giveBack();
}

void EditMenu::close() { menu_->close(); }

void EditMenu::giveBack() const {
    if (!current_.box) return;
    current_.box->setEnabled(true);
    current_.box->setFocus(Qt::PopupFocusReason);
}

void EditMenu::enableWhatIsPossible() {
    const EditBox box(current_.box);
    const cTextBox& commands = *current_.commands;
    undo_->setEnabled(commands.CanUndo());
    cut_->setEnabled(commands.CanCut());
    copy_->setEnabled(commands.CanCopy());
    paste_->setEnabled(commands.CanPaste() && !box.isLocked());
    delete_->setEnabled(commands.CanCut());
    selectAll_->setEnabled(commands.CanSelectAll());
    formats_->setEnabled(!box.isLocked() && !box.text().isEmpty());
}

void EditMenu::convert(std::int32_t conversion) const {
    const QString text = EditBox(current_.box).text();
    BatchString batch;
    batch.Conversion(conversion);
    batch.Initialize(fromQt(text));
    const std::string converted = batch.Convert();
    if (toQt(converted) == text) return;
    current_.commands->SelectAll();
    current_.commands->ReplaceSelection(converted);
}

} // namespace corvane::controls
