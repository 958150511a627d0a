#include "corvane/xml/DocumentEncoding.h"

#include "corvane/platform/RuntimeFailure.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace corvane {

namespace {

using namespace std::string_view_literals;

// The longer ones first where one begins as another does.
struct FirstBytes {
    std::string_view bytes;
    const char* encoding;
};
constexpr std::array kFirstBytes{
    FirstBytes{"\xEF\xBB\xBF"sv, "UTF-8"},    FirstBytes{"\xFF\xFE\0\0"sv, "UTF-32LE"},
    FirstBytes{"\0\0\xFE\xFF"sv, "UTF-32BE"}, FirstBytes{"<\0\0\0"sv, "UTF-32LE"},
    FirstBytes{"\0\0\0<"sv, "UTF-32BE"},      FirstBytes{"\xFF\xFE"sv, "UTF-16LE"},
    FirstBytes{"\xFE\xFF"sv, "UTF-16BE"},     FirstBytes{"<\0"sv, "UTF-16LE"},
    FirstBytes{"\0<"sv, "UTF-16BE"},
};

bool beginsWith(Bytes document, std::string_view bytes) {
    return document.size() >= bytes.size() &&
           std::ranges::equal(document.first(bytes.size()), bytes, {}, {},
                              [](char byte) { return static_cast<std::uint8_t>(byte); });
}

RuntimeFailure unknownEncoding(const std::string& encoding) {
    return {FailureNumber::ObjectDefined, "XML", "The document's encoding \"" + encoding + "\" is not known"};
}

RuntimeFailure noText(const std::string& encoding) {
    return {FailureNumber::ObjectDefined, "XML",
            "The document holds bytes that are no text in its encoding, " + encoding};
}

class Converter {
public:
    explicit Converter(const std::string& encoding) : state_(::iconv_open("UTF-8", encoding.c_str())) {
        if (state_ == kNone) throw unknownEncoding(encoding);
    }
    ~Converter() { ::iconv_close(state_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Appends what comes of the bytes, as far as they are text; takes these off `rest`.
    void convert(std::string_view& rest, std::string& text) {
        std::array<char, 4096> block;
        auto* input = const_cast<char*>(rest.data()); // iconv only reads through it
        std::size_t left = rest.size();
        bool isFull = true;
        while (isFull) {
            char* output = block.data();
            std::size_t room = block.size();
            isFull = ::iconv(state_, &input, &left, &output, &room) == kFailed && errno == E2BIG;
            text.append(block.data(), block.size() - room);
        }
        rest = rest.substr(rest.size() - left);
    }

private:
    static constexpr auto kFailed = static_cast<std::size_t>(-1);
    inline static const iconv_t kNone = reinterpret_cast<iconv_t>(-1); // NOLINT: so iconv says it

    iconv_t state_;
};

} // namespace

const char* visibleEncoding(Bytes document) {
    const auto found = std::ranges::find_if(
        kFirstBytes, [document](const FirstBytes& first) { return beginsWith(document, first.bytes); });
    return found == kFirstBytes.end() ? nullptr : found->encoding;
}

std::string utf8Document(Bytes document, const std::string& encoding) {
    Converter converter(encoding);
    std::string_view rest(reinterpret_cast<const char*>(document.data()), document.size());
    std::string text;
    text.reserve(rest.size());
    converter.convert(rest, text);
    if (!rest.empty()) throw noText(encoding);
    return text;
}

} // namespace corvane
