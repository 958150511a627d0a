// The least that a program with TagLib does for one file: `title-taglib FILE` prints its title.
#include <fileref.h>
#include <tag.h>

#include <iostream>

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return 2;
    const TagLib::FileRef file(arguments[1]);
    if (file.isNull()) return 1;
    std::cout << file.tag()->title().to8Bit(true) << '\n';
}
