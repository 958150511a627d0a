#include "corvane/controls/FrameList.h"

#include "corvane/controls/Text.h"

#include <QHeaderView>
#include <QLocale>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace corvane::controls {

namespace {

enum Column : int { Frame, Value, Description, Language };

constexpr int kLeastRows = 6;               // seen even in a small window
constexpr qsizetype kShownCharacters = 300; // of one value; a row has no room for more

// A row is one line high, whatever the frame's text is.
class OneLine : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& /*locale*/) const override {
        QString text = value.toString().left(kShownCharacters).simplified();
        text.removeIf([](QChar character) { return character.category() == QChar::Other_Control; });
        return text;
    }
};

} // namespace

FrameList::FrameList(QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("lvwFrames"));
    setAccessibleName(FrameList::tr("Frames of the tag"));
    setHeaderLabels(
        {FrameList::tr("Frame"), FrameList::tr("Value"), FrameList::tr("Description"), FrameList::tr("Language")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setItemDelegate(new OneLine(this));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(Value, QHeaderView::Stretch);
    for (const auto& [column, characters] :
         {std::pair(Frame, 10), std::pair(Description, 18), std::pair(Language, 12)}) {
        const int room = fontMetrics().averageCharWidth() * characters;
        header()->resizeSection(column, std::max(room, header()->sectionSizeHint(column)));
    }
    setMinimumHeight(header()->sizeHint().height() + kLeastRows * fontMetrics().lineSpacing());
}

void FrameList::showRows(const std::vector<FrameRow>& rows) {
    clear();
    QList<QTreeWidgetItem*> items;
    for (const FrameRow& row : rows) {
        items.push_back(new QTreeWidgetItem(
            QStringList{toQt(row.frame), toQt(row.value), toQt(row.description), toQt(row.language)}));
    }
    addTopLevelItems(items);
}

} // namespace corvane::controls
