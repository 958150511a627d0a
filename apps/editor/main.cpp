// corvane-editor [FILE|FOLDER...]
#include "corvane/Version.h"
#include "corvane/controls/Text.h"

#include "apps/editor/MainWindow.h"
#include "apps/editor/Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <filesystem>

namespace {

// The operands as bytes: a file name need not be text.
std::vector<std::string> operandsIn(int count, char** arguments) {
    std::vector<std::string> paths;
    bool onlyOperands = false;
    for (int at = 1; at < count; ++at) {
        const std::string word = arguments[at];
        if (!onlyOperands && word == "--") {
            onlyOperands = true;
        } else if (onlyOperands || !word.starts_with('-')) {
            std::error_code ignored;
            paths.push_back(std::filesystem::absolute(word, ignored).string());
        }
    }
    return paths;
}

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QApplication::setOrganizationName(QStringLiteral("corvane"));
    QApplication::setApplicationName(QStringLiteral("corvane-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Corvane Editor"));
    QApplication::setApplicationVersion(corvane::controls::toQt(corvane::kVersion));
    QApplication::setDesktopFileName(QStringLiteral("corvane-editor"));

    const corvane::editor::Translations texts{QLocale()};

    QCommandLineParser parser;
    parser.setApplicationDescription(QApplication::tr("Edits the tags of MP3 files."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("PATH"), QApplication::tr("Files and folders to open."),
                                 QStringLiteral("[PATH...]"));
    parser.process(application);

    QSettings settings;
    corvane::editor::MainWindow window(settings);
    window.show();
    const auto paths = operandsIn(count, arguments);
    if (!paths.empty()) window.open(paths);
    return QApplication::exec();
}
