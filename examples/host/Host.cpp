// A host of the controls: its own window around the container, both tag editors and the Lyrics3 viewer.
//
//     host-example FILE            opens the window
//     host-example FILE PICTURE    takes a picture of the window and ends
#include <corvane/controls/Controls.h>
#include <corvane/corvane.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>
#include <iostream>

namespace {

class Window : public QWidget {
public:
    Window() {
        auto* column = new QVBoxLayout(this);
        auto* tabs = new QTabWidget;
        tabs->addTab(&id3v2_, "ID3v2");
        tabs->addTab(&id3v1_, "ID3v1");
        tabs->addTab(&lyrics_, "Lyrics3");
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close);
        column->addWidget(&container_);
        column->addWidget(tabs, 1);
        column->addWidget(buttons);
        buttons->button(QDialogButtonBox::Save)->setShortcut(QKeySequence::Save);
        buttons->button(QDialogButtonBox::Close)->setShortcut(QKeySequence::Close);
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { save(); });
        connect(buttons, &QDialogButtonBox::rejected, this, [this] { close(); });
    }

    bool open(const std::string& file) {
        const auto handler = container_.FileHandler();
        if (!handler->Create(file)) return told(false, handler->LastError());
        setWindowTitle(QString::fromStdString(file));
        id3v1_.ID3v1xTag(handler->ID3v1xTag());
        id3v2_.ID3V2Tag(handler->HasID3V2Tag() ? handler->ID3V2Tag() : nullptr);
        lyrics_.LyricsTag(handler->HasLyricsTag() ? handler->LyricsTag() : nullptr);
        std::cout << "ID3v1 " << id3v1_.HasTag() << ", ID3v2 " << id3v2_.HasTag() << ", Lyrics3 " << lyrics_.HasTag()
                  << ", title " << id3v1_.Title() << '\n';
        return true;
    }

private:
    // The controls tell what the user wants; the host does it. A year that is no number fails, and Qt's event loop,
    // which calls this, carries no failures.
    void save() try {
        const auto handler = container_.FileHandler();
        if (id3v1_.saveTag()) handler->ID3v1xTag(id3v1_.ID3v1xTag());
        if (id3v1_.saveTag()) told(handler->writeID3v1xTag(), handler->LastError());
        if (id3v1_.removeTag()) told(handler->removeID3V1xTag(), handler->LastError());
        const auto tag = id3v2_.ID3V2Tag();
        if (id3v2_.saveTag()) told(tag->saveTag(), tag->LastError());
        // Nothing for a file without a tag of this version.
        const auto reader = id3v2_.removeTag() ? tag->ID3V23Tag() : nullptr;
        if (reader) told(reader->removeTag(), reader->LastError());
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }

    static bool told(bool done, const std::shared_ptr<corvane::TagError>& error) {
        if (!done) std::cerr << error->Stream() << '\n';
        return done;
    }

    corvane::controls::Corvane container_;
    corvane::controls::ID3v1 id3v1_;
    corvane::controls::ID3v2 id3v2_;
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
    if (!window.open(arguments[1])) return 1;
    window.show();
    if (words.size() > 2) {
        QTimer::singleShot(
            0, &window, [&window, picture = words.at(2)] { QApplication::exit(window.grab().save(picture) ? 0 : 1); });
    }
    return QApplication::exec();
}
