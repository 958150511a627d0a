// The child widgets of the ID3v2 editor, by their names, and the two ways in which they stand.
#pragma once

#include "corvane/controls/ControlEnumerations.h"
#include "corvane/controls/EditMenu.h"
#include "corvane/controls/FrameList.h"
#include "corvane/controls/GenreBox.h"
#include "corvane/controls/Id3v2Values.h"
#include "corvane/controls/LyricsPanel.h"
#include "corvane/controls/PicturePanel.h"
#include "corvane/controls/WarningLabel.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <memory>

namespace corvane::controls {

class Id3v2Form {
    Q_DECLARE_TR_FUNCTIONS(Id3v2Form)

public:
    // Makes the widgets, all of them children of the editor.
    explicit Id3v2Form(QWidget& editor);

    // The fields above the lyrics; grpBottom, the lyrics; grpPicture and lvwFrames: one below the other, or side by
    // side.
    void arrange(EID3v2Apperance mode);

    void setFieldsEnabled(bool enabled);
    void setFieldsLocked(bool locked);
    // Why the tag cannot be saved; nothing is shown for "".
    void tell(const QString& notice) const;

    // A text box, by its row in kId3v2Texts. A text that is longer than a line can be is seen in part and cannot be
    // edited, since an edit would lose the rest.
    QString text(std::size_t at) const;
    void setText(std::size_t at, const QString& text);

    QCheckBox* chkID3v2;
    QLabel *lblVersion, *lblSize;
    std::array<QWidget*, kId3v2Texts.size()> boxes; // in the order of kId3v2Texts
    GenreBox* cmbGenre;
    PicturePanel* grpPicture;
    LyricsPanel* grpBottom;
    FrameList* lvwFrames;
    QWidget *grpHead, *grpTop;
    WarningLabel* lblNotice;
    EditMenu* editMenu;

private:
    void makeBoxes();
    void layOutHead() const;
    void layOutTop();
    void addRow(QGridLayout& grid, const QString& text, std::size_t at);
    QLabel* label(const QString& text, QWidget& field) const;
    void orderTabs() const;
    void lock(std::size_t at);
    void paintFields();

    QGridLayout* grid_;
    std::unique_ptr<QObject> paletteWatch_;
    bool locked_ = false;
    std::array<bool, kId3v2Texts.size()> cut_{}; // by box: it shows only the beginning of its text
};

} // namespace corvane::controls
