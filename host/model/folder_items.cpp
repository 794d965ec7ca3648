#include "model/folder_items.h"

#include "model/builtins.h"
#include "model/entries.h"
#include "model/exceptions.h"
#include "model/memory_blocks.h"
#include "model/strings.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace host {

namespace {

namespace fs = std::filesystem;

// Absolute from the constructor on; empty before, which names no file.
fs::path& pathOf(const Object* item) { return *static_cast<fs::path*>(item->own.address); }

void construct(Object* item) { item->own = Slot::ofAddress(new fs::path()); }
void destroy(Object* item) { delete &pathOf(item); }

void initialize(Object* item, String* path) {
    std::error_code error;
    pathOf(item) = fs::absolute(utf8Of(path), error).lexically_normal();
    if (error) raise("IOException", "\"" + utf8Of(path) + "\" is no path: " + error.message() + ".");
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

// A new item, which the caller owns; null when memory is exhausted.
Object* newItem(const fs::path& path) {
    Object* const item = newObject(*registry().find("FolderItem"));
    if (item) pathOf(item) = path;
    return item;
}

Object* parent(Object* item, REALword) {
    const fs::path path = pathOf(item).parent_path();
    return path == pathOf(item) ? nullptr : newItem(path);
}

Object* child(Object* item, String* name) { return newItem(pathOf(item) / std::string(utf8Of(name))); }

HostInteger length(Object* item, REALword) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(pathOf(item), error);
    return error ? 0 : static_cast<HostInteger>(size);
}

MemoryBlock* readBytes(Object* item) {
    std::ifstream file(pathOf(item), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    MemoryBlock* const block = file ? newMemoryBlock(static_cast<std::int32_t>(bytes.size())) : nullptr;
    if (!block) {
        raise("IOException", "\"" + pathOf(item).string() + "\" cannot be read.");
        return nullptr;
    }
    std::copy(bytes.begin(), bytes.end(), bytesOf(block));
    return block;
}

void writeBytes(Object* item, MemoryBlock* block) {
    std::ofstream file(pathOf(item), std::ios::binary | std::ios::trunc);
    if (block) file.write(reinterpret_cast<const char*>(bytesOf(block)), sizeOf(block));
    file.close();
    if (!file) raise("IOException", "\"" + pathOf(item).string() + "\" cannot be written.");
}

void remove(Object* item) {
    std::error_code error;
    if (!fs::remove(pathOf(item), error)) raise("IOException", "\"" + pathOf(item).string() + "\" cannot be removed.");
}

// The last one came with version 2013.0.
REALproperty properties[] = {
    readOnlyProperty("Name", "String", name),
    readOnlyProperty("URLPath", "String", urlPath),
    readOnlyProperty("Exists", "Boolean", exists),
    readOnlyProperty("IsFolder", "Boolean", isFolder),
    readOnlyProperty("Length", "Integer", length),
    readOnlyProperty("Parent", "FolderItem", parent),
    readOnlyProperty("NativePath", "String", nativePath),
};

REALmethodDefinition methods[] = {
    method("Constructor(path as string)", initialize),
    method("Child(name as string) as FolderItem", child),
    method("ReadBytes as MemoryBlock", readBytes),
    method("WriteBytes(bytes as MemoryBlock)", writeBytes),
    method("Delete", remove),
};

} // namespace

void registerFolderItemClass(Registry& registry) {
    static REALclassDefinition record = builtInRecord("FolderItem", nullptr, 0, construct, destroy);
    record.properties = properties;
    record.propertyCount = std::size(properties);
    if (hostVersion() < 2013.0) --record.propertyCount;
    record.methods = methods;
    record.methodCount = std::size(methods);
    registry.add(record, true);
}

} // namespace host
