#include "corvane/xml/XmlParser.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/DocumentEncoding.h"
#include "corvane/xml/TreeBuilder.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <new>
#include <set>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::array<std::string_view, 5> kPredefined{"amp", "apos", "gt", "lt", "quot"};

// One entity within the other takes stack for each; documents of people have some hundred names of characters.
constexpr std::size_t kMostEntities = 1000;

RuntimeFailure failureOf(const std::string& text) { return {FailureNumber::ObjectDefined, "XML", text}; }

const char* reasonOf(XML_Error error) {
    return error == XML_ERROR_INVALID_TOKEN ? "invalid token" : XML_ErrorString(error);
}

// One run of the parser over a document. The parser bounds by itself how much text entities may make of it.
class Run {
public:
    explicit Run(const char* encoding);
    ~Run() { XML_ParserFree(parser_); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // The document. nullptr when only unknownEncoding() stops it.
    std::shared_ptr<pugi::xml_document> parse(std::string_view text);
    const std::string& unknownEncoding() const { return unknownEncoding_; }

private:
    template <class Body>
    static void guarded(void* self, Body&& body);
    void setElementHandlers();
    void setTextHandlers();
    void setTypeHandlers();
    void addEntity(std::string_view name);
    void refuseForeignEntities(std::string_view text) const;

    XML_Parser parser_;
    TreeBuilder tree_;
    std::set<std::string, std::less<>> entities_; // general ones that the document declares
    bool hasForeignDeclarations_ = false;         // there is a document type outside that might declare more
    std::string unknownEncoding_;
    std::exception_ptr failure_; // of a handler: it must not pass through the parser's frames
};

Run::Run(const char* encoding) : parser_(XML_ParserCreateNS(encoding, TreeBuilder::kSeparator)) {
    if (parser_ == nullptr) throw std::bad_alloc();
    XML_SetReturnNSTriplet(parser_, 1);
    XML_SetUserData(parser_, this);
    setElementHandlers();
    setTextHandlers();
    setTypeHandlers();
}

template <class Body>
void Run::guarded(void* self, Body&& body) {
    auto& run = *static_cast<Run*>(self);
    if (run.failure_) return; // the parser may call some more handlers when it was stopped
    try {
        std::forward<Body>(body)(run);
    } catch (...) {
        run.failure_ = std::current_exception();
        XML_StopParser(run.parser_, XML_FALSE);
    }
}

void Run::setElementHandlers() {
    XML_SetElementHandler(
        parser_,
        [](void* self, const XML_Char* name, const XML_Char** attributes) {
            guarded(self, [&](Run& run) { run.tree_.beginElement(name, attributes); });
        },
        [](void* self, const XML_Char*) { guarded(self, [](Run& run) { run.tree_.endElement(); }); });
    XML_SetStartNamespaceDeclHandler(parser_, [](void* self, const XML_Char* prefix, const XML_Char* uri) {
        guarded(self, [&](Run& run) { run.tree_.declare(prefix ? prefix : "", uri ? uri : ""); });
    });
}

void Run::setTextHandlers() {
    XML_SetCharacterDataHandler(parser_, [](void* self, const XML_Char* text, int size) {
        guarded(self, [&](Run& run) { run.tree_.text({text, static_cast<std::size_t>(size)}); });
    });
    XML_SetCdataSectionHandler(
        parser_, [](void* self) { guarded(self, [](Run& run) { run.tree_.beginCdata(); }); },
        [](void* self) { guarded(self, [](Run& run) { run.tree_.endCdata(); }); });
}

void Run::setTypeHandlers() {
    XML_SetEntityDeclHandler(parser_, [](void* self, const XML_Char* name, int isParameter, const XML_Char*, int,
                                         const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
        if (isParameter == 0) guarded(self, [&](Run& run) { run.addEntity(name); });
    });
    XML_SetNotStandaloneHandler(parser_, [](void* self) {
        static_cast<Run*>(self)->hasForeignDeclarations_ = true;
        return static_cast<int>(XML_STATUS_OK);
    });
    XML_SetExternalEntityRefHandler(parser_, [](XML_Parser, const XML_Char*, const XML_Char*, const XML_Char*,
                                                const XML_Char*) { return static_cast<int>(XML_STATUS_ERROR); });
    XML_SetUnknownEncodingHandler(
        parser_,
        [](void* self, const XML_Char* name, XML_Encoding*) {
            guarded(self, [&](Run& run) { run.unknownEncoding_ = name; });
            return static_cast<int>(XML_STATUS_ERROR);
        },
        this);
}

void Run::addEntity(std::string_view name) {
    entities_.emplace(name);
    if (entities_.size() > kMostEntities) {
        throw failureOf("The document declares more than " + std::to_string(kMostEntities) + " entities");
    }
}

std::shared_ptr<pugi::xml_document> Run::parse(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw failureOf("The document is too large");
    }
    const bool isParsed = XML_Parse(parser_, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
    if (failure_) std::rethrow_exception(failure_);
    if (!isParsed && !unknownEncoding_.empty()) return nullptr;
    if (!isParsed) {
        throw failureOf("The document is not well-formed: line " + std::to_string(XML_GetCurrentLineNumber(parser_)) +
                        ": " + reasonOf(XML_GetErrorCode(parser_)));
    }
    if (hasForeignDeclarations_) refuseForeignEntities(text);
    return tree_.done();
}

// Where an entity might be declared outside, a parser may leave it out in silence. A reference in a comment is refused
// too, which harms nobody.
void Run::refuseForeignEntities(std::string_view text) const {
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
        const std::string_view name = text.substr(at + 1, text.find(';', at) - at - 1);
        if (name.starts_with('#') || std::ranges::find(kPredefined, name) != kPredefined.end()) continue;
        if (entities_.contains(name)) continue;
        throw failureOf("The document uses an entity that only its document type outside may declare");
    }
}

} // namespace

std::shared_ptr<pugi::xml_document> parsedText(std::string_view text) { return Run("UTF-8").parse(text); }

std::shared_ptr<pugi::xml_document> parsedFile(Bytes document) {
    if (const char* encoding = visibleEncoding(document)) return parsedText(utf8Document(document, encoding));
    Run run(nullptr);
    auto parsed = run.parse({reinterpret_cast<const char*>(document.data()), document.size()});
    return parsed ? parsed : parsedText(utf8Document(document, run.unknownEncoding()));
}

} // namespace corvane
