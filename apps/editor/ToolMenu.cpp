#include "apps/editor/ToolMenu.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/PictureFile.h"

#include "apps/editor/CaseDialog.h"
#include "apps/editor/FileName.h"
#include "apps/editor/GenreDialog.h"
#include "apps/editor/Icon.h"
#include "apps/editor/NumberDialog.h"
#include "apps/editor/Tools.h"

#include <QFileDialog>
#include <QMessageBox>
#include <utility>

namespace corvane::editor {

ToolMenu::ToolMenu(Editing& editing, QWidget* parent) : QMenu(tr("Tag&s"), parent), editing_(editing) {
    addTool("copyToV2", tr("Copy ID3v&1 to ID3v2"), withCopyToV2);
    addTool("copyToV1", tr("Copy ID3v&2 to ID3v1"), withCopyToV1);
    addSeparator();
    add("convertCase", tr("Convert &case…"), {}, [this] { convertCase(); });
    add("numberTracks", tr("&Number the tracks…"), {}, [this] { numberTracks(); })->setIcon(iconOf("number"));
    add("chooseGenre", tr("&Genre…"), QKeySequence(QStringLiteral("Ctrl+G")), [this] {
        chooseGenre();
    })->setIcon(iconOf("genre"));
    addSeparator();
    add("loadPicture", tr("Load &picture…"), QKeySequence(QStringLiteral("Ctrl+Shift+P")), [this] {
        loadPicture();
    })->setIcon(iconOf("picture"));
    addTool("removePicture", tr("R&emove picture"),
            [](FileTags tags) { return withPicture(std::move(tags), nullptr); });
    addSeparator();
    addTool("removeV1", tr("Remove &ID3v1 tag"), withoutV1);
    addTool("removeV2", tr("Remove ID3&v2 tag"), withoutV2);
    addTool("removeBoth", tr("Remove &both tags"), [](FileTags tags) { return withoutV1(withoutV2(std::move(tags))); });
}

QAction* ToolMenu::add(const char* name, const QString& text, const QKeySequence& keys, std::function<void()> run) {
    QAction* action = addAction(text, keys, this, [run = std::move(run)] { controls::behindWall("ToolMenu", run); });
    action->setObjectName(QLatin1String(name));
    return action;
}

void ToolMenu::addTool(const char* name, const QString& text, const Tool& tool) {
    QString step = text;
    add(name, text, {}, [this, step = step.remove(QLatin1Char('&')), tool] { editing_.apply(tool, step); });
}

void ToolMenu::updateActions(bool isUsable) {
    for (QAction* action : actions()) action->setEnabled(isUsable);
}

void ToolMenu::convertCase() {
    auto* dialog = new CaseDialog(parentWidget());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        const auto fields = dialog->fields();
        const auto conversion = dialog->conversion();
        editing_.apply([&](FileTags tags) { return withCase(std::move(tags), fields, conversion); },
                       tr("case conversion"));
    });
    dialog->open();
}

void ToolMenu::numberTracks() {
    auto* dialog = new NumberDialog(static_cast<int>(editing_.editable().size()), parentWidget());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        const int first = dialog->first(), total = dialog->total();
        editing_.applyNumbered(
            [=](FileTags tags, int place) { return withTrack(std::move(tags), first + place, total); },
            tr("numbering"));
    });
    dialog->open();
}

void ToolMenu::chooseGenre() {
    auto* dialog = new GenreDialog(parentWidget());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        const std::string genre = dialog->genre();
        if (genre.empty()) return;
        editing_.apply([&](FileTags tags) { return withText(std::move(tags), Field::Genre, genre); }, tr("genre"));
    });
    dialog->open();
}

void ToolMenu::loadPicture() {
    QFileDialog dialog(parentWidget());
    controls::askForPicture(dialog, folderOf(editing_.editable().front()));
    if (dialog.exec() != QDialog::Accepted) return;
    const QString name = dialog.selectedFiles().value(0);
    const auto picture = controls::pictureOfFile(name);
    if (!picture) {
        QMessageBox::warning(parentWidget(), {}, tr("%1 is no picture that a tag can hold.").arg(asWritten(name)));
        return;
    }
    editing_.apply([&](FileTags tags) { return withPicture(std::move(tags), picture); }, tr("picture"));
}

} // namespace corvane::editor
