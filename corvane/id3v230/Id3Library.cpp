#include "corvane/id3v230/Id3Library.h"

#include <dlfcn.h>
#include <id3.h>

#include <algorithm>
#include <new>
#include <optional>
#include <vector>

namespace corvane {

// Each with the type that id3lib's own header gives it.
struct Id3Library::Functions {
    decltype(&::ID3Tag_New) newTag = nullptr;
    decltype(&::ID3Tag_Delete) deleteTag = nullptr;
    decltype(&::ID3Tag_Link) link = nullptr;
    decltype(&::ID3Tag_AttachFrame) attachFrame = nullptr;
    decltype(&::ID3Tag_UpdateByTagType) updateByTagType = nullptr;
    decltype(&::ID3Tag_Clear) clear = nullptr;
    decltype(&::ID3Frame_NewID) newFrame = nullptr;
    decltype(&::ID3Frame_Delete) deleteFrame = nullptr;
    decltype(&::ID3Frame_GetField) getField = nullptr;
    decltype(&::ID3Field_Clear) clearField = nullptr;
    decltype(&::ID3Field_SetINT) setInt = nullptr;
    decltype(&::ID3Field_SetASCII) setAscii = nullptr;
    decltype(&::ID3Field_SetUNICODE) setUnicode = nullptr;
    decltype(&::ID3Field_SetEncoding) setEncoding = nullptr;
    decltype(&::ID3Field_SetBINARY) setBinary = nullptr;

    bool resolveAll(void* library);
};

namespace {

template <class Function>
bool resolve(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

ID3Tag* id3(Id3Library::Tag* tag) { return reinterpret_cast<ID3Tag*>(tag); }
ID3Frame* id3(Id3Library::Frame* frame) { return reinterpret_cast<ID3Frame*>(frame); }
ID3Field* id3(Id3Library::Field* field) { return reinterpret_cast<ID3Field*>(field); }

template <class Object>
Object* made(Object* object) {
    if (object == nullptr) throw std::bad_alloc();
    return object;
}

} // namespace

bool Id3Library::Functions::resolveAll(void* library) {
    return resolve(library, "ID3Tag_New", newTag) && resolve(library, "ID3Tag_Delete", deleteTag) &&
           resolve(library, "ID3Tag_Link", link) && resolve(library, "ID3Tag_AttachFrame", attachFrame) &&
           resolve(library, "ID3Tag_UpdateByTagType", updateByTagType) && resolve(library, "ID3Tag_Clear", clear) &&
           resolve(library, "ID3Frame_NewID", newFrame) && resolve(library, "ID3Frame_Delete", deleteFrame) &&
           resolve(library, "ID3Frame_GetField", getField) && resolve(library, "ID3Field_Clear", clearField) &&
           resolve(library, "ID3Field_SetINT", setInt) && resolve(library, "ID3Field_SetASCII", setAscii) &&
           resolve(library, "ID3Field_SetUNICODE", setUnicode) &&
           resolve(library, "ID3Field_SetEncoding", setEncoding) && resolve(library, "ID3Field_SetBINARY", setBinary);
}

// The library is never closed again: objects of other threads may be in it. Whoever only reads a tag asks whether the
// library is there and calls nothing in it, which makes binding all its references at once most of the cost; the loader
// checks at once in any case that the libraries it needs are there in the versions it needs.
const Id3Library* Id3Library::loaded() {
    static const std::optional<Functions> functions = []() -> std::optional<Functions> {
        void* const library = ::dlopen(kId3LibraryFile, RTLD_LAZY | RTLD_LOCAL);
        Functions found;
        return library != nullptr && found.resolveAll(library) ? std::optional(found) : std::nullopt;
    }();
    static const Id3Library library(functions ? &*functions : nullptr);
    return functions ? &library : nullptr;
}

Id3Library::Tag* Id3Library::newTag() const { return reinterpret_cast<Tag*>(made(functions_->newTag())); }
void Id3Library::deleteTag(Tag* tag) const { functions_->deleteTag(id3(tag)); }
void Id3Library::link(Tag* tag, const std::string& path) const { functions_->link(id3(tag), path.c_str()); }
void Id3Library::attachFrame(Tag* tag, Frame* frame) const { functions_->attachFrame(id3(tag), id3(frame)); }
void Id3Library::update(Tag* tag) const { functions_->updateByTagType(id3(tag), ID3TT_ID3V2); }
void Id3Library::clear(Tag* tag) const { functions_->clear(id3(tag)); }

Id3Library::Frame* Id3Library::newFrame(std::int32_t frame) const {
    return reinterpret_cast<Frame*>(made(functions_->newFrame(static_cast<::ID3_FrameID>(frame))));
}

void Id3Library::deleteFrame(Frame* frame) const { functions_->deleteFrame(id3(frame)); }

Id3Library::Field* Id3Library::field(Frame* frame, std::int32_t field) const {
    return reinterpret_cast<Field*>(functions_->getField(id3(frame), static_cast<::ID3_FieldID>(field)));
}

void Id3Library::setNumber(Field* field, std::uint32_t number) const { functions_->setInt(id3(field), number); }

void Id3Library::setText(Field* field, const std::string& text) const {
    functions_->setAscii(id3(field), text.c_str());
}

// id3lib takes the units of its own big-endian store.
void Id3Library::setUtf16(Field* field, const std::u16string& text) const {
    functions_->setEncoding(id3(field), ID3TE_UTF16);
    std::vector<unicode_t> units(text.size() + 1, 0);
    std::transform(text.begin(), text.end(), units.begin(),
                   [](char16_t unit) { return static_cast<unicode_t>(unit << 8 | unit >> 8); });
    functions_->setUnicode(id3(field), units.data());
}

void Id3Library::setBytes(Field* field, Bytes bytes) const {
    functions_->clearField(id3(field));
    functions_->setBinary(id3(field), bytes.data(), bytes.size());
}

Id3LibraryCheck checkId3Library() {
    if (Id3Library::loaded() != nullptr) return {.present = true, .message = {}};
    return {.present = false,
            .message = std::string("The DLL '") + kId3LibraryFile +
                       "' is not present.\r\nPlease install it into the program directory."};
}

} // namespace corvane
