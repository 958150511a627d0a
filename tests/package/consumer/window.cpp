// A host with a window that knows nothing but the installed controls.
#include <corvane/controls/Controls.h>

#include <QApplication>
#include <iostream>

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    corvane::controls::ID3v1 editor;
    editor.Title("Größe");
    editor.show();
    std::cout << editor.property("Title").toString().toStdString() << '\n';
}
