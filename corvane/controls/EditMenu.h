// The context menu of text boxes: Undo, Cut, Copy, Paste, Delete and Select all, each enabled only when it is possible,
// and Format, which converts the case of the whole text. It opens with the right mouse button and with the menu key,
// over boxes that are enabled.
#pragma once

#include "corvane/controls/cTextBox.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <cstdint>
#include <map>

namespace corvane::controls {

class EditMenu : public QObject {
    Q_OBJECT

public:
    // Makes the menu and its entries, which belong to the owner of the boxes.
    explicit EditMenu(QWidget& owner);

    // Gives a text box this menu instead of its own. The box belongs to the owner.
    void attach(QWidget& box);

    // Closes the menu if it is open. The owner does so before it enables or disables boxes, because the box of an open
    // menu is enabled when the menu closes.
    void close();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Attached {
        QPointer<QWidget> box;
        cTextBox* commands = nullptr; // of that box
    };

    using Command = void (*)(cTextBox& box);

    QAction* addEntry(QMenu& menu, const QString& name, const QString& text);
    QAction* addCommand(const QString& name, const QString& text, QKeySequence::StandardKey key, Command command);
    void addFormat(const QString& name, const QString& text, std::int32_t conversion);
    void makeEntries();

    template <class Body>
    void run(Body&& body);
    void show(const Attached& attached, const QPoint& position);
    void enableWhatIsPossible();
    void giveBack() const;
    void convert(std::int32_t conversion) const;

    QWidget& owner_;
    QMenu* menu_;
    QMenu* formats_ = nullptr;
    QAction *undo_ = nullptr, *cut_ = nullptr, *copy_ = nullptr, *paste_ = nullptr, *delete_ = nullptr,
            *selectAll_ = nullptr;
    std::map<const QObject*, Attached> attached_; // by the widgets that get the box's events
    Attached current_;                            // whose menu is or was shown last
};

} // namespace corvane::controls
