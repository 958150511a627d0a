// The edit commands of one text box (QLineEdit or QPlainTextEdit), the questions whether they are possible, and the
// menu that a right click shows. The box belongs to somebody else and may go first.
#pragma once

#include "corvane/controls/Export.h"
#include "corvane/platform/Variant.h"

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <memory>
#include <string_view>

namespace corvane::controls {

class EditBox;

class CORVANE_CONTROLS_EXPORT cTextBox : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool CanCut READ CanCut)
    Q_PROPERTY(bool CanCopy READ CanCopy)
    Q_PROPERTY(bool CanPaste READ CanPaste)
    Q_PROPERTY(bool CanUndo READ CanUndo)
    Q_PROPERTY(bool CanSelectAll READ CanSelectAll)
    Q_PROPERTY(bool DisableContextMenu READ DisableContextMenu WRITE DisableContextMenu)

public:
    // An object without a box: its commands do nothing, its questions answer no.
    explicit cTextBox(QObject* parent = nullptr);
    ~cTextBox() override;

    // Sets the box: a QLineEdit or a QPlainTextEdit; nothing, or any other widget, leaves this object without a box.
    void TextBox(QWidget* txtThis);

    // The edit commands of the box itself. A locked (read-only) box takes none that would change its text.
    void Cut();
    void Copy();
    void Paste();
    void Undo();
    void SelectAll();

    bool CanCut() const;       // not locked, and something is selected
    bool CanCopy() const;      // something is selected
    bool CanPaste() const;     // the clipboard holds text; copied files are none
    bool CanUndo() const;      // there is a step to take back
    bool CanSelectAll() const; // nothing is selected, and there is text

    // Puts a text in the place of the selection, in a locked box too. bAllowUndo: 0 or "False" for a step that cannot
    // be undone, and nothing before it either; it can when the argument is left out.
    void ReplaceSelection(std::string_view sText, const Variant& bAllowUndo = {});
    // Removes the selection, in a locked box too and never undoably: the argument is accepted and has no effect. Hosts
    // rely on that.
    void Delete(const Variant& bAllowUndo = {});

    // Whether the box is kept from showing a context menu of its own. Without a box a write has no effect.
    bool DisableContextMenu() const { return disableContextMenu_; }
    void DisableContextMenu(bool disable);

    // What a right click shows, and who shows it: an object with an invokable operation PopupMenu(QMenu*). With both, a
    // right click on the box calls that operation and goes no further. A disabled box gets no clicks.
    void ContextMenu(QMenu* theMenu) { contextMenu_ = theMenu; }
    void MenuObject(QObject* theMenuObject) { menuObject_ = theMenuObject; }

protected:
    // Catches the right click on the box.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void release();
    bool popUp();

    std::unique_ptr<EditBox> box_; // always there; may be without a widget
    QPointer<QWidget> watched_;    // what gets the mouse's events; a box that is dying may have lost it already
    bool disableContextMenu_ = false;
    Qt::ContextMenuPolicy formerPolicy_ = Qt::DefaultContextMenu; // of the box, while its menu is disabled
    QPointer<QMenu> contextMenu_;
    QPointer<QObject> menuObject_;
};

} // namespace corvane::controls
