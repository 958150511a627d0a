#include "apps/editor/FieldNames.h"

#include "corvane/controls/Text.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::editor {

namespace {

struct FieldName {
    std::string_view inPlan;
    const char* name;
};

// In the order of Field; the picture, which is none, comes last.
constexpr std::array<FieldName, kFieldCount + 1> kNames{{
    {"title", QT_TRANSLATE_NOOP("Fields", "title")},
    {"artist", QT_TRANSLATE_NOOP("Fields", "artist")},
    {"album", QT_TRANSLATE_NOOP("Fields", "album")},
    {"year", QT_TRANSLATE_NOOP("Fields", "year")},
    {"track", QT_TRANSLATE_NOOP("Fields", "track")},
    {"genre", QT_TRANSLATE_NOOP("Fields", "genre")},
    {"comment", QT_TRANSLATE_NOOP("Fields", "comment")},
    {"composer", QT_TRANSLATE_NOOP("Fields", "composer")},
    {"original-artist", QT_TRANSLATE_NOOP("Fields", "original artist")},
    {"copyright", QT_TRANSLATE_NOOP("Fields", "copyright")},
    {"url", QT_TRANSLATE_NOOP("Fields", "URL")},
    {"encoded-by", QT_TRANSLATE_NOOP("Fields", "encoded by")},
    {"lyrics", QT_TRANSLATE_NOOP("Fields", "lyrics")},
    {"synced-lyrics", QT_TRANSLATE_NOOP("Fields", "synchronised lyrics")},
    {"picture", QT_TRANSLATE_NOOP("Fields", "picture")},
}};

} // namespace

const char* fieldName(Field field) { return kNames[static_cast<std::size_t>(field)].name; }

QString shownFieldName(const std::string& planName) {
    const auto* found = std::ranges::find(kNames, planName, &FieldName::inPlan);
    return found == kNames.end() ? controls::toQt(planName) : QCoreApplication::translate("Fields", found->name);
}

} // namespace corvane::editor
