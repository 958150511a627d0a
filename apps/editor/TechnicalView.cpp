#include "apps/editor/TechnicalView.h"

#include "corvane/controls/Text.h"
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/RuntimeFailure.h"

#include "apps/editor/FileName.h"

#include <sys/stat.h>

#include <QDateTime>
#include <QLocale>

namespace corvane::editor {

using controls::toQt;

namespace {

QString yesNo(bool value) { return value ? TechnicalView::tr("yes") : TechnicalView::tr("no"); }

// A VBR header that lies can make the bit rate any number.
QString bitRate(const MPEGHeader& header) {
    try {
        const std::int32_t kbps = header.BitRate();
        if (kbps < 0) return TechnicalView::tr("unknown");
        return header.VBR() ? TechnicalView::tr("%1 kbit/s, variable, average").arg(kbps)
                            : TechnicalView::tr("%1 kbit/s").arg(kbps);
    } catch (const RuntimeFailure&) {
        return TechnicalView::tr("unknown");
    }
}

QString frequency(const MPEGHeader& header) {
    try {
        return TechnicalView::tr("%1 Hz").arg(QLocale().toString(header.Frequency()));
    } catch (const RuntimeFailure&) {
        return TechnicalView::tr("unknown");
    }
}

QString bytes(qint64 count) { return TechnicalView::tr("%1 bytes").arg(QLocale().toString(count)); }

QString tagNames(FileHandler& file) {
    QStringList names;
    if (file.HasID3V2Tag()) {
        const auto version = file.ID3V2Tag()->Version();
        names << QStringLiteral("ID3v2.%1.%2").arg(version->Minor()).arg(version->Revision());
    }
    if (file.HasLyricsTag()) {
        const bool second = file.LyricsTag()->Version() == ELyricsVersionConstants::lvcV200;
        names << (second ? QStringLiteral("Lyrics3 v2.00") : QStringLiteral("Lyrics3 v1.00"));
    }
    if (file.HasID3V1Tag()) {
        const bool second = file.ID3v1xTag()->TagType() == EID3TagConstants::ID3V11;
        names << (second ? QStringLiteral("ID3v1.1") : QStringLiteral("ID3v1"));
    }
    return names.isEmpty() ? TechnicalView::tr("none") : names.join(QStringLiteral(", "));
}

} // namespace

TechnicalView::TechnicalView(QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("technical"));
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Technical data"));
}

QTreeWidgetItem* TechnicalView::section(const QString& title) {
    auto* made = new QTreeWidgetItem(this, {title});
    made->setFirstColumnSpanned(true);
    QFont bold = font();
    bold.setBold(true);
    made->setFont(0, bold);
    made->setExpanded(true);
    return made;
}

void TechnicalView::add(QTreeWidgetItem* section, const QString& name, const QString& value) {
    auto* line = new QTreeWidgetItem(section, {name, value});
    line->setToolTip(1, asWritten(value));
}

void TechnicalView::showFile(FileHandler& file) {
    clear();
    auto* facts = section(tr("File"));
    add(facts, tr("Path"), shownPath(file.FileName()));
    addStatus(facts, file.FileName());
    add(facts, tr("Tags"), tagNames(file));
    showAudio(file);
    resizeColumnToContents(0);
}

// The name is given as bytes: no text leads to a file whose name is none.
void TechnicalView::addStatus(QTreeWidgetItem* section, const std::string& path) {
    struct stat status {};
    const bool isThere = ::stat(path.c_str(), &status) == 0;
    const QDateTime changed = QDateTime::fromSecsSinceEpoch(status.st_mtim.tv_sec);
    add(section, tr("Size"), isThere ? bytes(status.st_size) : tr("unknown"));
    add(section, tr("Changed"), isThere ? QLocale().toString(changed, QLocale::LongFormat) : tr("unknown"));
}

void TechnicalView::showAudio(FileHandler& file) {
    const MPEGHeader& header = *file.MPEGHeader();
    auto* audio = section(tr("Audio"));
    if (Internals<MPEGHeader>::headerPosition(header) == 0) return add(audio, tr("No MPEG audio frame was found"), {});
    const std::int32_t seconds = header.Duration();
    add(audio, tr("Format"), tr("%1 Layer %2").arg(toQt(header.Version()), toQt(header.Layer())));
    add(audio, tr("Mode"), toQt(header.Mode()));
    add(audio, tr("Bit rate"), bitRate(header));
    add(audio, tr("Frequency"), frequency(header));
    add(audio, tr("Length"), seconds < 0 ? tr("unknown") : tr("%1 s").arg(QLocale().toString(seconds)));
    add(audio, tr("Frames"), tr("%1 of %2").arg(QLocale().toString(header.NumFrames()), bytes(header.FrameSize())));
    add(audio, tr("Audio"), bytes(header.AudioSize()));
    add(audio, tr("Emphasis"), toQt(header.Emphasis()));
    add(audio, tr("Checksum"), yesNo(header.CRC()));
    add(audio, tr("Copyright"), yesNo(header.Copyright()));
    add(audio, tr("Original"), yesNo(header.Original()));
}

} // namespace corvane::editor
