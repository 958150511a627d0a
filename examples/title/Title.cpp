#include <corvane/corvane.h>

#include <iostream>

int main(int argumentCount, char** arguments) {
    corvane::FileHandler file;
    if (argumentCount < 2 || !file.Create(arguments[1])) return 1;
    std::cout << file.ID3V2Tag()->Title() << ", " << file.MPEGHeader()->Duration() << " s\n";
    file.ID3v1xTag()->Comment("Heard today");
    if (!file.writeID3v1xTag()) std::cerr << file.LastError()->Stream() << '\n';
}
