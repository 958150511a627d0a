#include "apps/editor/Leftovers.h"

#include "corvane/platform/FileReplacement.h"

#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using namespace corvane::editor;
using namespace corvane::test;
using corvane::ByteArray;

namespace {

constexpr std::chrono::seconds kNoAge{0};
constexpr auto kName = "tmp0123456789ABCDEF.tmp";

// What a save leaves when it is killed: a new tag, and as much of the rest of a file as it had copied.
ByteArray cutOff(const Mp3File& file, std::size_t missing) {
    ByteArray content = Id3v2Builder().text("TIT2", "Never saved").padding(40).done();
    ByteArray rest = Mp3File::usualRest();
    rest.resize(rest.size() - missing);
    content.insert(content.end(), rest.begin(), rest.end());
    if (file.content().size() <= missing) qFatal("nothing is left");
    return content;
}

bool isThere(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

} // namespace

class LeftoversTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NameIsExactlyThatOfATemporaryFile_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isLeftover");
        QTest::newRow("one of ours") << kName << true;
        QTest::newRow("letters that are no digits") << "tmpGHIJKLMNOPQRSTUV.tmp" << false;
        QTest::newRow("small letters") << "tmp0123456789abcdef.tmp" << false;
        QTest::newRow("fewer digits") << "tmp0123456789ABCDE.tmp" << false;
        QTest::newRow("more digits") << "tmp0123456789ABCDEF0.tmp" << false;
        QTest::newRow("another beginning") << "TMP0123456789ABCDEF.tmp" << false;
        QTest::newRow("another end") << "tmp0123456789ABCDEF.mp3" << false;
        QTest::newRow("a user's file") << "song.tmp" << false;
        QTest::newRow("nothing") << "" << false;
    }
    void NameIsExactlyThatOfATemporaryFile() {
        QFETCH(QString, name);
        QTEST(isLeftoverName(name.toStdString()), "isLeftover");
    }

    // The names are those that a replacement really gives, should they ever change.
    void KilledReplacementLeavesAFileThatIsFound() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "T");
        const pid_t child = ::fork();
        if (child == 0) {
            corvane::FileReplacement replacement(file.path());
            replacement.copy(0, replacement.originalSize());
            ::raise(SIGKILL);
        }
        int status = 0;
        QVERIFY(::waitpid(child, &status, 0) == child && WIFSIGNALED(status));
        const auto found = leftoversIn(folder.path(), kNoAge);
        QCOMPARE(found.size(), std::size_t{1});
        QCOMPARE(removeLeftover(found.front(), kNoAge), std::string());
        QVERIFY(!isThere(found.front()));
        QVERIFY(file.isUnchanged());
    }

    void OnlyWhatIsCertainlyALeftoverIsFound_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("isFound");
        for (const char* what : {"cut off", "whole"}) QTest::newRow(what) << what << true;
        for (const char* what :
             {"empty", "a tag alone", "a tag cut off", "other audio", "longer than the file", "a text",
              "of another name", "read-only link to it", "with a second name", "too young", "open"}) {
            QTest::newRow(what) << what << false;
        }
    }
    void OnlyWhatIsCertainlyALeftoverIsFound() {
        QFETCH(QString, what);
        QFETCH(bool, isFound);
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "T");
        ByteArray content = cutOff(file, what == "whole" ? 0 : 200);
        if (what == "empty") content.clear();
        if (what == "a tag alone") content.resize(Id3v2Builder().text("TIT2", "Never saved").padding(40).done().size());
        if (what == "a tag cut off") content.resize(20);
        if (what == "other audio") content.back() ^= 1;
        if (what == "longer than the file") content.insert(content.end(), 300, 0);
        if (what == "a text") content.assign(5000, 'x');
        const std::string path = folder.write(what == "of another name" ? "tmp.tmp" : kName, content);
        if (what == "read-only link to it") {
            QVERIFY(::rename(path.c_str(), folder.path("elsewhere").c_str()) == 0);
            QVERIFY(::symlink(folder.path("elsewhere").c_str(), path.c_str()) == 0);
        }
        if (what == "with a second name") QVERIFY(::link(path.c_str(), folder.path("second").c_str()) == 0);
        const int open = what == "open" ? ::open(path.c_str(), O_RDWR | O_CLOEXEC) : -1;
        const auto age = what == "too young" ? kLeftoverAge : kNoAge;
        QCOMPARE(leftoversIn(folder.path(), age).size(), std::size_t{isFound ? 1U : 0U});
        QCOMPARE(removeLeftover(path, age).empty(), isFound);
        QCOMPARE(isThere(path), !isFound);
        QVERIFY(file.isUnchanged());
        if (open >= 0) ::close(open);
    }

    void FolderWithHardLinksKeepsEverything() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "T");
        const std::string path = folder.write(kName, cutOff(file, 200));
        QVERIFY(::link(file.path().c_str(), folder.path("b.mp3").c_str()) == 0);
        QVERIFY(leftoversIn(folder.path(), kNoAge).empty());
        QVERIFY(!removeLeftover(path, kNoAge).empty());
        QVERIFY(isThere(path));
    }

    void WindowAsksBeforeItRemovesThem_data() {
        QTest::addColumn<bool>("isAgreed");
        QTest::newRow("removed") << true;
        QTest::newRow("kept") << false;
    }
    void WindowAsksBeforeItRemovesThem() {
        QFETCH(bool, isAgreed);
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "T");
        const std::string path = window.folder().write(kName, cutOff(file, 200));
        window->loader().findLeftoversOfAge(kNoAge);
        QVERIFY(window.open({window.folder().path()}));
        QDialog* dialog = window.waitForDialog("leftovers");
        QVERIFY(dialog != nullptr);
        auto* box = qobject_cast<QMessageBox*>(dialog);
        QVERIFY(box->detailedText().contains(QLatin1String(kName)));
        QVERIFY(isThere(path));
        QVERIFY(box->defaultButton() == box->button(QMessageBox::No));
        QTest::mouseClick(box->button(isAgreed ? QMessageBox::Yes : QMessageBox::No), Qt::LeftButton);
        QTRY_COMPARE(isThere(path), !isAgreed);
        QVERIFY(file.isUnchanged());
    }
};

static const bool kIsRegisteredLeftoversTest = corvane::test::registerTest<LeftoversTest>("LeftoversTest");
#include <LeftoversTest.moc>
