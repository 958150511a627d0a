#include "apps/editor/About.h"

#include "corvane/Version.h"
#include "corvane/controls/Corvane.h"
#include "corvane/controls/Text.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane::editor {

void showAbout(QWidget& parent) {
    const auto text = [](const char* source) { return QCoreApplication::translate("About", source); };
    auto* box = new QDialog(&parent);
    box->setObjectName(QStringLiteral("about"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(text(QT_TRANSLATE_NOOP("About", "About Corvane Editor")));
    auto* icon = new QLabel(box);
    icon->setPixmap(QIcon(QStringLiteral(":/corvane-editor.svg")).pixmap(64, 64));
    icon->setAlignment(Qt::AlignTop);
    icon->setContentsMargins(20, 12, 0, 0);
    auto* head = new QHBoxLayout;
    head->addWidget(icon);
    head->addWidget(new controls::Corvane(box), 1);
    auto* facts = new QLabel(text(QT_TRANSLATE_NOOP("About", "Version %1. Edits the tags of MP3 files; the audio is "
                                                             "never touched."))
                                 .arg(controls::toQt(kVersion)),
                             box);
    facts->setWordWrap(true);
    facts->setContentsMargins(20, 0, 20, 8);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, box);
    QObject::connect(buttons, &QDialogButtonBox::rejected, box, &QDialog::reject);
    auto* column = new QVBoxLayout(box);
    column->addLayout(head);
    column->addWidget(facts);
    column->addWidget(buttons);
    box->open();
}

} // namespace corvane::editor
