#include "builtins/builtins.h"
#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/record_writing.h"
#include "system/files.h"
#include "system/interruption.h"
#include "text/utf8.h"
#include "values/host_version.h"
#include "values/strings.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace host {

// Functions of different classes have equal names. This namespace distinguishes them in files that are compiled together.
namespace folder_items {
namespace {

namespace fs = std::filesystem;

// The path is absolute after the constructor. Before, it is empty and names no file.
fs::path& pathOf(const Object* item) { return *static_cast<fs::path*>(item->own.address); }

void construct(Object* item) { item->own = Slot::ofAddress(new fs::path()); }
void destroy(Object* item) { delete &pathOf(item); }

// Returns the absolute path without a trailing slash. Returns nullopt and records an exception if the text is not a path.
// The target of ".." depends on links before it, so such a path is resolved in the file system.
std::optional<fs::path> located(const fs::path& path) {
    std::error_code error;
    fs::path absolute = fs::absolute(path, error);
    const bool climbs = std::find(absolute.begin(), absolute.end(), "..") != absolute.end();
    if (!error) absolute = climbs ? fs::weakly_canonical(absolute, error) : absolute.lexically_normal();
    if (path.string().find('\0') != std::string::npos) error = std::make_error_code(std::errc::invalid_argument);
    if (error) {
        raise("IOException", "\"" + path.string() + "\" is not a path: " + error.message() + ".", error.value());
        return std::nullopt;
    }
    return absolute.has_filename() || absolute == absolute.root_path() ? absolute : absolute.parent_path();
}

void initialize(Object* item, String* path) {
    if (const std::optional<fs::path> found = located(utf8Of(path))) pathOf(item) = *found;
}

String* name(Object* item, REALword) { return newString(pathOf(item).filename().string()); }
String* nativePath(Object* item, REALword) { return newString(pathOf(item).string()); }

String* urlPath(Object* item, REALword) {
    static constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    static constexpr char digits[] = "0123456789ABCDEF";
    if (pathOf(item).empty()) return nullptr;
    std::string url = "file://";
    for (const char c : pathOf(item).string()) {
        if (plain.find(c) != std::string_view::npos) {
            url += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            url.append({'%', digits[byte >> 4], digits[byte & 0xF]});
        }
    }
    return newString(url);
}

HostBoolean exists(Object* item, REALword) {
    std::error_code error;
    return fs::exists(pathOf(item), error);
}

HostBoolean isFolder(Object* item, REALword) {
    std::error_code error;
    return fs::is_directory(pathOf(item), error);
}

// Returns a new item, which the caller owns, or null if memory is exhausted.
Object* newItem(const fs::path& path) {
    Object* const item = newObject(*registry().find("FolderItem"));
    if (item) pathOf(item) = path;
    return item;
}

Object* parent(Object* item, REALword) {
    const fs::path path = pathOf(item).parent_path();
    return path == pathOf(item) ? nullptr : newItem(path);
}

Object* child(Object* item, String* name) {
    const std::optional<fs::path> found = located(pathOf(item) / std::string(utf8Of(name)));
    return found ? newItem(*found) : nullptr;
}

HostInteger length(Object* item, REALword) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(pathOf(item), error);
    return error ? 0 : static_cast<HostInteger>(size);
}

// Raises an IOException with the system's reason and number, if there is one.
void raiseAbout(const Object* item, const char* what, std::error_code reason = {}) {
    raise("IOException", "\"" + pathOf(item).string() + "\" " + what + (reason ? ": " + reason.message() + "." : "."),
          reason.value());
}

std::error_code lastError() { return {errno, std::generic_category()}; }

// Returns the contents of the file. Returns nullopt and records an exception if the file cannot be read or has more than
// `most` bytes.
std::optional<std::string> contents(const Object* item, std::size_t most) {
    std::error_code error;
    std::ifstream file;
    errno = EISDIR;
    if (!fs::is_directory(pathOf(item), error)) file.open(pathOf(item), std::ios::binary);
    std::string bytes;
    std::array<char, 1 << 16> chunk;
    while (file.is_open() && bytes.size() <= most && (file.read(chunk.data(), chunk.size()), file.gcount() > 0)) {
        bytes.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
        checkInterruption();
    }
    const bool tooLarge = bytes.size() > most;
    if (file.is_open() && !file.bad() && !tooLarge) return bytes;
    raiseAbout(item, "cannot be read", tooLarge ? std::make_error_code(std::errc::file_too_large) : lastError());
    return std::nullopt;
}

void write(const Object* item, std::string_view bytes) {
    if (const std::error_code error = replaceFile(pathOf(item), bytes)) raiseAbout(item, "cannot be written", error);
}

MemoryBlock* readBytes(Object* item) {
    std::error_code error;
    const bool isFile = fs::is_regular_file(pathOf(item), error); // reading a device may never end
    const std::optional<std::string> bytes =
        contents(item, isFile ? std::numeric_limits<std::int32_t>::max() : maxTextBytes);
    if (!bytes) return nullptr;
    MemoryBlock* const block = newMemoryBlock(static_cast<std::int32_t>(bytes->size()));
    if (block) std::copy(bytes->begin(), bytes->end(), bytesOf(block));
    if (!block) raiseAbout(item, "cannot be read", std::make_error_code(std::errc::not_enough_memory));
    return block;
}

void writeBytes(Object* item, MemoryBlock* block) {
    if (!block) return write(item, {});
    write(item, {reinterpret_cast<const char*>(bytesOf(block)), static_cast<std::size_t>(sizeOf(block))});
}

String* readText(Object* item) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::optional<std::string> bytes = contents(item, maxTextBytes);
    if (!bytes) return nullptr;
    if (utf8::findInvalid(*bytes) != std::string_view::npos) {
        raiseAbout(item, "is not valid UTF-8 text");
        return nullptr;
    }
    std::string_view text = *bytes;
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) text.remove_prefix(byteOrderMark.size());
    return newString(text);
}

void writeText(Object* item, String* text) {
    const std::string bytes = utf8Of(text);
    if (bytes.empty() && text) return raiseAbout(item, "cannot be written: the text is invalid in its encoding");
    write(item, bytes);
}

// Returns the entries of the folder, sorted by name. Returns nullopt and records an exception if the item cannot be read as
// a folder.
std::optional<std::vector<fs::path>> entries(const Object* item) {
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator entry(pathOf(item), error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        paths.push_back(entry->path());
    if (error) {
        raiseAbout(item, "cannot be read as a folder", error);
        return std::nullopt;
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

Array* children(Object* item) {
    const std::optional<std::vector<fs::path>> paths = entries(item);
    if (!paths) return nullptr;
    Array* const items = newArray(Type::object("FolderItem"));
    for (const fs::path& path : *paths) {
        Object* const found = newItem(path);
        appendElement(items, Slot::ofObject(found));
        unlock(found);
    }
    return items;
}

HostInteger count(Object* item, REALword) {
    const std::optional<std::vector<fs::path>> paths = entries(item);
    return paths ? static_cast<HostInteger>(paths->size()) : 0;
}

void createFolder(Object* item) {
    std::error_code error;
    fs::create_directory(pathOf(item), error);
    if (!error && !fs::is_directory(pathOf(item), error)) error = std::make_error_code(std::errc::file_exists);
    if (error) raiseAbout(item, "cannot be created as a folder", error);
}

void remove(Object* item) {
    std::error_code error;
    const bool removed = fs::remove(pathOf(item), error);
    if (!removed && !error) error = std::make_error_code(std::errc::no_such_file_or_directory);
    if (error) raiseAbout(item, "cannot be removed", error);
}

// The last property was introduced in version 2013.0.
REALproperty properties[] = {
    readOnlyProperty("Name", "String", name),      readOnlyProperty("URLPath", "String", urlPath),
    readOnlyProperty("Exists", "Boolean", exists), readOnlyProperty("IsFolder", "Boolean", isFolder),
    readOnlyProperty("Length", "Integer", length), readOnlyProperty("Parent", "FolderItem", parent),
    readOnlyProperty("Count", "Integer", count),   readOnlyProperty("NativePath", "String", nativePath),
};

REALmethodDefinition methods[] = {
    method("Constructor(path as string)", initialize),
    method("Child(name as string) as FolderItem", child),
    method("ReadBytes as MemoryBlock", readBytes),
    method("WriteBytes(bytes as MemoryBlock)", writeBytes),
    method("ReadText as String", readText),
    method("WriteText(text as String)", writeText),
    method("Children as FolderItem()", children),
    method("CreateFolder", createFolder),
    method("Delete", remove),
};

} // namespace
} // namespace folder_items

void registerFolderItemClass(Registry& registry) {
    using namespace folder_items;
    static REALclassDefinition record = builtInRecord("FolderItem", nullptr, 0, construct, destroy);
    setRows(record.properties, record.propertyCount, properties);
    if (hostVersion() < REAL_SINCE_NATIVE_PATHS) --record.propertyCount;
    setRows(record.methods, record.methodCount, methods);
    registry.add(record, true);
}

} // namespace host
