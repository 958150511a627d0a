// The panel with both lyrics of a tag: a tab strip, and the box of the chosen tab at one and the same place.
#pragma once

#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTabBar>

namespace corvane::controls {

class LyricsPanel : public QWidget {
    Q_OBJECT

public:
    explicit LyricsPanel(QWidget* parent);

    QTabBar* const sstLyrics;
    QPlainTextEdit* const txtLyrics;       // unsynchronised
    QPlainTextEdit* const txtSyncedLyrics; // synchronised

private:
    QStackedWidget* boxes_;
};

} // namespace corvane::controls
