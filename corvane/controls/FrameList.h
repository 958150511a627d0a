// The list of a tag's frames.
#pragma once

#include "corvane/controls/FrameRows.h"

#include <QTreeWidget>

namespace corvane::controls {

class FrameList : public QTreeWidget {
    Q_OBJECT

public:
    explicit FrameList(QWidget* parent);

    void showRows(const std::vector<FrameRow>& rows);
};

} // namespace corvane::controls
