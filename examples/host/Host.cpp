// A host of the controls: its own window around the container, the ID3v1 editor and the Lyrics3 viewer.
//
//     host-example FILE            opens the window
//     host-example FILE PICTURE    takes a picture of the window and ends
#include <corvane/controls/Controls.h>
#include <corvane/corvane.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <iostream>

namespace {

class Window : public QWidget {
public:
    Window() {
        auto* column = new QVBoxLayout(this);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close);
        for (QWidget* part : {static_cast<QWidget*>(&container_), static_cast<QWidget*>(&editor_),
                              static_cast<QWidget*>(&lyrics_), static_cast<QWidget*>(buttons)}) {
            column->addWidget(part);
        }
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { save(); });
        connect(buttons, &QDialogButtonBox::rejected, this, [this] { close(); });
    }

    bool open(const std::string& file) {
        const auto handler = container_.FileHandler();
        if (!handler->Create(file)) return false;
        setWindowTitle(QString::fromStdString(file));
        editor_.ID3v1xTag(handler->ID3v1xTag());
        lyrics_.LyricsTag(handler->HasLyricsTag() ? handler->LyricsTag() : nullptr);
        std::cout << "title: " << editor_.Title() << "\nlyrics: " << (lyrics_.HasTag() ? "yes" : "no") << '\n';
        return true;
    }

    std::string lastError() const { return container_.FileHandler()->LastError()->Stream(); }

private:
    // The controls tell what the user wants; the host does it.
    void save() {
        const auto handler = container_.FileHandler();
        bool done = true;
        if (editor_.saveTag()) {
            handler->ID3v1xTag(editor_.ID3v1xTag());
            done = handler->writeID3v1xTag();
        } else if (editor_.removeTag()) {
            done = handler->removeID3V1xTag();
        }
        if (!done) QMessageBox::warning(this, windowTitle(), QString::fromStdString(lastError()));
    }

    corvane::controls::Corvane container_;
    corvane::controls::ID3v1 editor_;
    corvane::controls::Lyrics lyrics_;
};

} // namespace

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    const QStringList words = QApplication::arguments();
    if (words.size() < 2) {
        std::cerr << "usage: host-example FILE [PICTURE]\n";
        return 2;
    }
    Window window;
    if (!window.open(arguments[1])) {
        std::cerr << window.lastError() << '\n';
        return 1;
    }
    window.show();
    if (words.size() > 2) {
        QTimer::singleShot(
            0, &window, [&window, picture = words.at(2)] { QApplication::exit(window.grab().save(picture) ? 0 : 1); });
    }
    return QApplication::exec();
}
