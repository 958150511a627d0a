#include "tests/support/LyricsBuilder.h"

#include <stdexcept>
#include <string>

namespace corvane::test {

namespace {

std::string digits(std::size_t number, std::size_t width) {
    const std::string text = std::to_string(number);
    if (text.size() > width) throw std::length_error("a Lyrics3 length does not fit its digits");
    return std::string(width - text.size(), '0') + text;
}

} // namespace

LyricsBuilder& LyricsBuilder::field(std::string_view id, std::string_view data) {
    return field(id, digits(data.size(), 5), data);
}

LyricsBuilder& LyricsBuilder::field(std::string_view id, std::string_view length, std::string_view data) {
    fields_.text(id).text(length).text(data);
    return *this;
}

LyricsBuilder& LyricsBuilder::raw(std::string_view bytes) {
    fields_.text(bytes);
    return *this;
}

ByteArray LyricsBuilder::body() const { return ByteBuilder().text("LYRICSBEGIN").bytes(fields_.done()).done(); }

ByteArray LyricsBuilder::done() const { return done(digits(body().size(), 6)); }

ByteArray LyricsBuilder::done(std::string_view size) const {
    return ByteBuilder().bytes(body()).text(size).text("LYRICS200").done();
}

ByteArray lyricsV100(std::string_view lyrics) {
    return ByteBuilder().text("LYRICSBEGIN").text(lyrics).text("LYRICSEND").done();
}

} // namespace corvane::test
