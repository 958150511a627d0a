#include "corvane/controls/LyricsPanel.h"

#include <QVBoxLayout>

namespace corvane::controls {

namespace {

QPlainTextEdit* box(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* made = new QPlainTextEdit(parent);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(accessibleName);
    made->setTabChangesFocus(true);
    return made;
}

} // namespace

LyricsPanel::LyricsPanel(QWidget* parent)
    : QWidget(parent),
      sstLyrics(new QTabBar(this)),
      txtLyrics(box(this, "txtLyrics", tr("Unsynchronised lyrics"))),
      txtSyncedLyrics(box(this, "txtSyncedLyrics", tr("Synchronised lyrics"))),
      boxes_(new QStackedWidget(this)) {
    setObjectName(QStringLiteral("grpBottom"));
    sstLyrics->setObjectName(QStringLiteral("sstLyrics"));
    sstLyrics->setAccessibleName(tr("Kind of lyrics"));
    sstLyrics->setDrawBase(false);
    sstLyrics->setExpanding(false);
    sstLyrics->addTab(tr("L&yrics"));
    sstLyrics->addTab(tr("Sy&nchronised Lyrics"));
    boxes_->addWidget(txtLyrics);
    boxes_->addWidget(txtSyncedLyrics);
    connect(sstLyrics, &QTabBar::currentChanged, boxes_, &QStackedWidget::setCurrentIndex);
    boxes_->setMinimumWidth(sstLyrics->sizeHint().width()); // so that no tab has to be scrolled to
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(sstLyrics);
    column->addWidget(boxes_, 1);
}

} // namespace corvane::controls
