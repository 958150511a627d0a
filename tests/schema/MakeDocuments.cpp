// `make-documents FILES DOCUMENTS [VARIANTS]` writes the documents of every regular file below FILES into the folder
// DOCUMENTS, as the bytes that the command would write: the document of the file and those of its objects,
// NUMBER-CLASS.xml. Each file is read as it stands and in so many VARIANTS with some bytes changed; documents of files
// that cannot be opened are there too where the library makes them.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/xml/XmlNode.h"
#include "corvane/xml/XmlText.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::test {
namespace {

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + path.string());
}

std::string bytesIn(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class Documents {
public:
    explicit Documents(std::filesystem::path folder) : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
    }

    // All documents that a file gives.
    void addThoseOf(const std::filesystem::path& path) {
        FileHandler file;
        file.Create(path.string());
        add("FileHandler", file.xml());
        add("MPEGHeader", file.MPEGHeader()->xml());
        add("ID3V1Tag", file.ID3v1xTag()->xml());
        add("ID3V2Tag", file.ID3V2Tag()->xml());
        addLyrics(*file.LyricsTag());
        ++number_;
    }

    // Those of objects that no file has filled.
    void addThoseOfNewObjects() {
        add("MPEGHeader", MPEGHeader().xml());
        add("ID3V1Tag", ID3V1Tag().xml());
        add("ID3V2Tag", ID3V2Tag().xml());
        addLyrics(LyricsTag());
        ++number_;
    }

private:
    // The document of a tag, and that of a tag that was filled from it.
    void addLyrics(const LyricsTag& tag) {
        XmlNode element;
        add("LyricsTag", tag.xml(&element));
        LyricsTag imported;
        if (!imported.CreateFromTag(element)) throw std::runtime_error(imported.LastError()->Stream());
        add("LyricsTag-imported", imported.xml());
    }

    void add(const std::string& name, const std::string& document) const {
        writeBytes(folder_ / (std::to_string(number_) + '-' + name + ".xml"), latin1Document(document));
    }

    std::filesystem::path folder_;
    unsigned number_ = 0;
};

// Up to eight bytes get another value. The generator and its use are the same on every machine.
std::string changed(std::string bytes, std::mt19937& random) {
    if (bytes.empty()) return bytes;
    for (unsigned count = 1 + random() % 8; count > 0; --count) {
        const std::size_t end = std::min<std::size_t>(bytes.size(), random() % 2 == 0 ? bytes.size() : 64);
        bytes[random() % end] = static_cast<char>(random() % 256);
    }
    return bytes;
}

void makeDocuments(const std::filesystem::path& files, const std::filesystem::path& folder, unsigned variants) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(files)) {
        if (entry.is_regular_file()) paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    Documents documents(folder);
    documents.addThoseOfNewObjects();
    const auto scratch = folder / "variant.mp3";
    std::mt19937 random(1);
    for (const auto& path : paths) {
        documents.addThoseOf(path);
        const std::string original = variants == 0 ? std::string() : bytesIn(path);
        for (unsigned variant = 0; variant < variants; ++variant) {
            writeBytes(scratch, changed(original, random));
            documents.addThoseOf(scratch);
        }
    }
    std::filesystem::remove(scratch);
    std::cout << paths.size() << " files\n";
}

} // namespace
} // namespace corvane::test

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3 && argumentCount != 4) {
        std::cerr << "usage: make-documents FILES DOCUMENTS [VARIANTS]\n";
        return 2;
    }
    try {
        const unsigned variants = argumentCount == 4 ? static_cast<unsigned>(std::stoul(arguments[3])) : 0;
        corvane::test::makeDocuments(arguments[1], arguments[2], variants);
    } catch (const std::exception& failure) {
        std::cerr << "make-documents: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
