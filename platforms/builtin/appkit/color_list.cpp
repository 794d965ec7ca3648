#include "appkit/color_list.h"

#include "appkit/catalog.h"
#include "appkit/color_list_file.h"
#include "builtin/constants.h"
#include "foundation/array.h"
#include "foundation/data.h"
#include "foundation/files.h"
#include "text/encoding.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unistd.h>

namespace chroma::builtin {

ClassObject ColorList::cls;

namespace {

String notEditable{"NSColorListNotEditableException"};

const Message lengthMessage{"length"};
const Message colorSpaceNameMessage{"colorSpaceName"};

// The lists that colorListNamed: has read, while they are alive and their files are unchanged.
ColorList* firstShared = nullptr;

ColorList* sharedList(const std::string& path) {
    ColorList* list = firstShared;
    while (list && list->file != path)
        list = list->nextShared;
    return list;
}

void share(ColorList* list) {
    list->nextShared = firstShared;
    firstShared = list;
}

void unshare(const ColorList* list) {
    for (ColorList** place = &firstShared; *place; place = &(*place)->nextShared) {
        if (*place != list) continue;
        *place = list->nextShared;
        return;
    }
}

// Replaces the key's colour, or appends it.
ColorList::Entry* put(ColorList* list, const String& key, Color* color) {
    const auto [entry, isNew] = list->colors.try_emplace(key.text());
    entry->second = color;
    if (isNew) list->entries.push_back(&*entry);
    return &*entry;
}

// Paths, in UTF-8.

// Returns "" for text that a path cannot contain.
std::string utf8Text(std::u16string_view text) {
    std::string bytes(3 * text.size() + 1, '\0'); // a unit takes at most three bytes
    const bool isPath = text.find(u'\0') == text.npos && encodeCString(text, encoding::utf8, bytes.data(), bytes.size());
    bytes.resize(isPath ? std::strlen(bytes.c_str()) : 0);
    return bytes;
}

std::string userFolder() {
    const std::string data = userDataFolder();
    return data.empty() ? "" : data + "/chromabridge/colors";
}

// Returns "" if the list's name is not a file name or there is no folder.
std::string fileIn(const std::string& folder, const std::string& name) {
    const bool isFileName = !name.empty() && name.find('/') == std::string::npos;
    return folder.empty() || !isFileName ? "" : folder + "/" + name + ".clr";
}

// Returns where writeToFile: writes the list: to the file itself, to a file with the list's name in a folder, or for nil in
// the user's folder.
std::string targetFile(ColorList* list, String* path) {
    const std::string name = utf8Text(list->name);
    if (!path) {
        const std::string folder = userFolder();
        return makeFolders(folder) ? fileIn(folder, name) : "";
    }
    const std::string file = utf8Text(path->text());
    return isFolder(file) ? fileIn(file, name) : file;
}

bool readList(ColorList* list, const std::string& path) {
    Data* const contents = data(nullptr, 0);
    if (!readFile(path.c_str(), contents->bytes)) return false;
    list->file = path;
    list->isEditable = !isWriteProtected(path);
    return readEntries({reinterpret_cast<const char*>(contents->bytes.data()), contents->bytes.size()}, *list);
}

bool writeList(ColorList* list, const std::string& path) {
    std::string text;
    if (path.empty() || !writeEntries(*list, text) || !replaceFile(path, text)) return false;
    if (ColorList* const shared = sharedList(path); shared && shared != list) unshare(shared);
    list->file = path;
    return true;
}

// Checks of the editing messages: the list must be editable, key and colour must not be nil.

void requireEditable(ColorList* list, SEL selector) {
    if (list->isEditable) return;
    raise(notEditable, formatted("-[NSColorList %s]: color list %s is not editable", sel_getName(selector),
                                 printable(string(list->name))));
}

template <class Instance>
Instance* required(id object, const Message& expected, SEL selector, const char* what) {
    if (!object)
        raise(exceptionName::invalidArgument, formatted("-[NSColorList %s]: %s is nil", sel_getName(selector), what));
    return argument<Instance>(object, expected);
}

String* requiredKey(id key, SEL selector) { return required<String>(key, lengthMessage, selector, "the key"); }

Color* requiredColor(id color, SEL selector) { return required<Color>(color, colorSpaceNameMessage, selector, "the color"); }

// Releases the new object and returns nil, for initialisers that fail. A list must have a name.
ColorList* abandoned(ColorList* list) {
    release(list);
    return nullptr;
}

ColorList* initWithName(ColorList* self, SEL, id nameObject) {
    const String* const name = argument<String>(nameObject, lengthMessage);
    if (!name) return abandoned(self);
    self->name = name->text();
    return self;
}

ColorList* initWithNameFromFile(ColorList* self, SEL, id nameObject, id pathObject) {
    const String* const name = argument<String>(nameObject, lengthMessage);
    String* const path = argument<String>(pathObject, lengthMessage);
    if (!name || !path || !readList(self, utf8Text(path->text()))) return abandoned(self);
    self->name = name->text();
    return self;
}

ColorList* systemList() {
    static ColorList* const list = [] {
        ColorList* const created = makeImmortal(make<ColorList>());
        created->name = u"System";
        created->isEditable = false;
        const CatalogColors colors = catalogColors();
        for (std::size_t i = 0; i < colors.count; ++i)
            put(created, *autorelease(newAsciiString(colors.colors[i].name)), colorOf(colors.colors[i]));
        return created;
    }();
    return list;
}

// Returns the platform's list or a list saved in the user's folder, the same object as long as it is alive. Returns nil if
// no list has the name.
ColorList* colorListNamed(ClassObject*, SEL, id nameObject) {
    const String* const name = argument<String>(nameObject, lengthMessage);
    if (!name) return nullptr;
    if (name->text() == systemList()->name) return systemList();
    const std::string path = fileIn(userFolder(), utf8Text(name->text()));
    if (ColorList* const shared = sharedList(path); shared && access(path.c_str(), F_OK) == 0) return shared;
    ColorList* const list = autorelease(make<ColorList>());
    list->name = name->text();
    if (!readList(list, path)) return nullptr;
    share(list);
    return list;
}

String* name(ColorList* self, SEL) { return string(self->name); }

BOOL isEditable(ColorList* self, SEL) { return self->isEditable; }

Array* allKeys(ColorList* self, SEL) {
    auto* const keys = autorelease(make<Array>());
    for (const ColorList::Entry* const entry : self->entries)
        keys->append(string(entry->first));
    return keys;
}

Color* colorWithKey(ColorList* self, SEL, id keyObject) {
    const String* const key = argument<String>(keyObject, lengthMessage);
    if (!key) return nullptr;
    const auto entry = self->colors.find(std::u16string(key->text()));
    return entry == self->colors.end() ? nullptr : entry->second.get();
}

// Moves a key that the list already has.
void insertColor(ColorList* self, SEL selector, id colorObject, id keyObject, std::uintptr_t index) {
    requireEditable(self, selector);
    Color* const color = requiredColor(colorObject, selector);
    const String* const key = requiredKey(keyObject, selector);
    auto& entries = self->entries;
    if (index > entries.size()) {
        raise(exceptionName::range, formatted("-[NSColorList %s]: index %zu beyond count %zu", sel_getName(selector),
                                              static_cast<std::size_t>(index), entries.size()));
    }
    ColorList::Entry* const placed = put(self, *key, color);
    const auto entry = std::find(entries.rbegin(), entries.rend(), placed).base() - 1;
    const auto last = static_cast<std::ptrdiff_t>(entries.size()) - 1;
    const auto target = entries.begin() + std::min(static_cast<std::ptrdiff_t>(index), last);
    if (entry < target) std::rotate(entry, entry + 1, target + 1);
    if (target < entry) std::rotate(target, entry, entry + 1);
}

void setColor(ColorList* self, SEL selector, id colorObject, id keyObject) {
    requireEditable(self, selector);
    Color* const color = requiredColor(colorObject, selector);
    const String* const key = requiredKey(keyObject, selector);
    put(self, *key, color);
}

void removeColorWithKey(ColorList* self, SEL selector, id keyObject) {
    requireEditable(self, selector);
    const String* const key = requiredKey(keyObject, selector);
    const auto entry = self->colors.find(std::u16string(key->text()));
    if (entry == self->colors.end()) return;
    Color* const color = entry->second.detach();
    self->entries.erase(std::find(self->entries.begin(), self->entries.end(), &*entry));
    self->colors.erase(entry);
    release(color);
}

BOOL writeToFile(ColorList* self, SEL, id pathObject) {
    String* const path = argument<String>(pathObject, lengthMessage);
    return writeList(self, targetFile(self, path));
}

// A list that was neither read nor written has no file.
void removeFile(ColorList* self, SEL) {
    if (self->file.empty()) return;
    unlink(self->file.c_str());
    if (const ColorList* const shared = sharedList(self->file)) unshare(shared);
    self->file.clear();
}

} // namespace

ColorList::~ColorList() { unshare(this); }

ClassTable tableOfNSColorList() {
    static const MethodEntry methods[] = {
        initialiser<initWithName>("initWithName:"),
        initialiser<initWithNameFromFile>("initWithName:fromFile:"),
        method<name>("name"),
        method<isEditable>("isEditable"),
        method<allKeys>("allKeys"),
        method<colorWithKey>("colorWithKey:"),
        method<insertColor>("insertColor:key:atIndex:"),
        method<setColor>("setColor:forKey:"),
        method<removeColorWithKey>("removeColorWithKey:"),
        method<writeToFile>("writeToFile:"),
        method<removeFile>("removeFile"),
    };
    static const MethodEntry classMethods[] = {method<colorListNamed>("colorListNamed:")};
    return classTable<ColorList>("NSColorList", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin

namespace chroma {

const id NSColorListNotEditableException = &builtin::notEditable;

} // namespace chroma
