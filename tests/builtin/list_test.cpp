// Colour lists: order and keys, and the contents of their files.
#include "support/native.h"
#include "support/profile_builder.h"

#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace chroma;
using namespace chroma::test;

namespace {

namespace fs = std::filesystem;

id newList(std::string_view name) { return created("NSColorList", "initWithName:", string(name)); }
id listNamed(std::string_view name) { return sendClass("NSColorList", "colorListNamed:", string(name)); }
id listFrom(const fs::path& file) {
    return created("NSColorList", "initWithName:fromFile:", string("Read"), string(file.c_str()));
}
bool write(id list, const fs::path& path) { return send<BOOL>(list, "writeToFile:", string(path.c_str())) != 0; }
void set(id list, id color, std::string_view key) { send<void>(list, "setColor:forKey:", color, string(key)); }
void remove(id list, std::string_view key) { send<void>(list, "removeColorWithKey:", string(key)); }
id colorWithKey(id list, std::string_view key) { return send(list, "colorWithKey:", string(key)); }

void insert(id list, id color, std::string_view key, std::uintptr_t index) {
    send<void>(list, "insertColor:key:atIndex:", color, string(key), index);
}

std::string keysOf(id list) {
    std::string keys;
    const id enumerator = send(send(list, "allKeys"), "objectEnumerator");
    while (const id key = send(enumerator, "nextObject"))
        keys += textOf(key) + " ";
    return keys;
}

std::string contentsOf(const fs::path& file) {
    std::ostringstream contents;
    contents << std::ifstream(file, std::ios::binary).rdbuf();
    return contents.str();
}

// Counts the syncs of files and folders. The sync with the number failingSync fails; 0 means none.
int syncs = 0, failingSync = 0;

} // namespace

// Replaces the C library's function, also for the platform's library.
extern "C" __attribute__((visibility("default"))) int fsync(int) { return ++syncs == failingSync ? -1 : 0; }

// Creates a folder for files, which is also the user's data folder.
class ColorLists : public PlatformTest {
protected:
    ColorLists() {
        std::string pattern = testing::TempDir() + "builtin-lists-XXXXXX";
        folder = mkdtemp(pattern.data());
        file = folder / "mine.clr";
        setenv("XDG_DATA_HOME", folder.c_str(), 1);
    }
    ~ColorLists() override { fs::remove_all(folder); }

    // Returns the number of files in the folder and its subfolders.
    std::ptrdiff_t fileCount() const {
        return std::count_if(fs::recursive_directory_iterator(folder), {},
                             [](const auto& entry) { return entry.is_regular_file(); });
    }

    fs::path folder, file;
    id list = newList("Mine"), red = color("redColor"), blue = calibratedRGB(0, 0, 1);
};

TEST_F(ColorLists, KeepInsertionOrder) {
    EXPECT_EQ(textOf(send(list, "name")), "Mine");
    EXPECT_TRUE(send<BOOL>(list, "isEditable"));
    for (const char* const key : {"a", "b", "c"})
        set(list, red, key);
    const std::tuple<const char*, std::uintptr_t, const char*> inserted[] = {
        {"d", 0, "d a b c "}, {"d", 2, "a b d c "}, {"c", 0, "c a b d "}, {"c", 4, "a b d c "}};
    for (const auto& [key, index, keys] : inserted) {
        insert(list, blue, key, index);
        EXPECT_EQ(keysOf(list), keys);
    }
    set(list, blue, "a");
    EXPECT_EQ(keysOf(list), "a b d c ") << "a replacement stays in place";
    EXPECT_EQ(colorWithKey(list, "a"), blue);
    EXPECT_EQ(colorWithKey(list, "b"), red);
    EXPECT_EQ(colorWithKey(list, "B"), nullptr);
    EXPECT_EQ(send(list, "colorWithKey:", id{}), nullptr);
    remove(list, "d");
    remove(list, "unknown");
    EXPECT_EQ(keysOf(list), "a b c ");
}

TEST_F(ColorLists, RaiseForInvalidChanges) {
    EXPECT_TRUE(raises("NSRangeException", [&] { insert(list, red, "a", 1); }));
    EXPECT_TRUE(raises("NSRangeException", [&] { insert(list, red, "a", std::numeric_limits<std::uintptr_t>::max()); }));
    EXPECT_TRUE(refuses([&] { set(list, nullptr, "a"); }));
    EXPECT_TRUE(refuses([&] { set(list, string("a"), "b"); }));
    EXPECT_TRUE(refuses([&] { send<void>(list, "setColor:forKey:", red, id{}); }));
    EXPECT_TRUE(refuses([&] { send<void>(list, "removeColorWithKey:", id{}); }));
    EXPECT_EQ(keysOf(list), "");
    EXPECT_EQ(created("NSColorList", "initWithName:", id{}), nullptr);

    const id system = listNamed("System");
    EXPECT_EQ(colorWithKey(system, "textColor"), color("textColor"));
    EXPECT_EQ(system, listNamed("System"));
    EXPECT_FALSE(send<BOOL>(system, "isEditable"));
    for (const char* const key : {"textColor", "new"}) {
        EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { set(system, red, key); }));
        EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { insert(system, red, key, 0); }));
        EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { remove(system, key); }));
    }
}

TEST_F(ColorLists, RoundTripThroughFilesBitForBit) {
    const id image = created("NSImage", "initWithSize:", Size{8, CGFloat(0.1)});
    const id inks =
        created("NSColorSpace", "initWithICCProfileData:", dataOf(profile("6CLR", {{"desc", plainText("Inks")}})));
    const float inf = std::numeric_limits<float>::infinity(), tiny = std::numeric_limits<float>::denorm_min();
    constexpr UniChar unpaired[] = {0xDE00, u'x', 0xD83D, u'y', 0xD83D};
    const std::pair<id, id> entries[] = {
        {string("plain"), calibratedRGB(0.1f, -0.f, 1e30f, inf)},
        {string("a \"quoted\" \\ key"), colorIn(standardSpace("deviceCMYKColorSpace"), {tiny, 0.2f, 0.3f, 0.4f, 1})},
        {string("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), colorIn(standardSpace("displayP3ColorSpace"), {1, 0, 0, 1})},
        {string("new\nline\x7F"), colorIn(inks, {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f})},
        {string(" "), colorIn(inks, {1, 1, 1, 1, 1, 1, 1})},
        {string(""), color("headerTextColor")},
        {send(CFStringCreateWithCharacters(nullptr, unpaired, 5), "autorelease"), red}};
    for (const auto& [key, color] : entries)
        send<void>(list, "setColor:forKey:", color, key);
    ASSERT_TRUE(write(list, file));
    const id same = listFrom(file), keys = send(same, "allKeys");
    ASSERT_EQ(send<std::uintptr_t>(keys, "count"), std::size(entries));
    for (std::uintptr_t i = 0; i < std::size(entries); ++i) {
        const auto& [key, color] = entries[i];
        EXPECT_TRUE(isEqual(send(keys, "objectAtIndex:", i), key)) << i;
        EXPECT_TRUE(isEqual(send(same, "colorWithKey:", key), color)) << i;
    }
    EXPECT_TRUE(std::signbit(componentsOf(colorWithKey(same, "plain"))[1]));
    EXPECT_EQ(send(colorWithKey(same, "plain"), "colorSpace"), standardSpace("genericRGBColorSpace"));
    const id space = send(colorWithKey(same, " "), "colorSpace");
    EXPECT_EQ(textOf(send(space, "localizedName")), "Inks");
    EXPECT_EQ(send(colorWithKey(same, "new\nline\x7F"), "colorSpace"), space) << "a space is written once";
    ASSERT_TRUE(write(same, folder / "again.clr"));
    EXPECT_EQ(contentsOf(folder / "again.clr"), contentsOf(file));

    set(list, color("colorWithPatternImage:", image), "a tile"); // only the size is kept
    ASSERT_TRUE(write(list, file));
    const auto size = send<Size>(send(colorWithKey(listFrom(file), "a tile"), "patternImage"), "size");
    EXPECT_EQ(std::pair(size.width, size.height), std::pair(CGFloat(8), CGFloat(0.1)));
    EXPECT_NE(contentsOf(file).find("\"a tile\" pattern 41000000 "), std::string::npos) << "a float takes 32 bits";
}

TEST_F(ColorLists, SaveUnderTheirNameIfNoPathIsGiven) {
    constexpr const char* name = "Caf\xC3\xA9";
    const id cafe = newList(name);
    set(cafe, red, "a");
    EXPECT_EQ(listNamed(name), nullptr);
    EXPECT_TRUE(send<BOOL>(cafe, "writeToFile:", id{}));
    const id found = listNamed(name);
    EXPECT_TRUE(isEqual(colorWithKey(found, "a"), red));
    EXPECT_EQ(textOf(send(found, "name")), name);
    EXPECT_TRUE(send<BOOL>(found, "isEditable"));
    EXPECT_TRUE(write(cafe, folder));
    EXPECT_TRUE(fs::exists(folder / "Caf\xC3\xA9.clr"));

    send<void>(found, "removeFile");
    EXPECT_EQ(listNamed(name), nullptr);
    EXPECT_TRUE(fs::exists(folder / "Caf\xC3\xA9.clr")) << "a list removes only its own file";
    send<void>(cafe, "removeFile");
    EXPECT_EQ(fileCount(), 0);
    ASSERT_TRUE(write(found, folder));
    send<void>(cafe, "removeFile");
    EXPECT_EQ(fileCount(), 1) << "a list removes its file once";

    for (const char* const noFile : {"../outside", "", "a/b"}) {
        EXPECT_FALSE(send<BOOL>(newList(noFile), "writeToFile:", id{})) << noFile;
        EXPECT_EQ(listNamed(noFile), nullptr) << noFile;
    }
    EXPECT_EQ(sendClass("NSColorList", "colorListNamed:", id{}), nullptr);
}

TEST_F(ColorLists, KeepLinksPermissionsAndOwnersOfFiles) {
    const fs::path link = folder / "link.clr";
    ASSERT_TRUE(write(list, file));
    fs::create_symlink(file, link);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_write);
    set(list, red, "a");
    ASSERT_TRUE(write(list, link));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_write);
    EXPECT_EQ(keysOf(listFrom(file)), "a ");

    const bool changesOwner = chown(file.c_str(), 12, 34) == 0; // only the superuser may
    ASSERT_TRUE(write(list, file));
    struct stat status;
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    if (changesOwner) {
        EXPECT_EQ(std::pair(status.st_uid, status.st_gid), std::pair(uid_t{12}, gid_t{34}));
        // Another user of a shared folder keeps the group only.
        fs::permissions(folder, fs::perms::all);
        EXPECT_EQ(setegid(34) + seteuid(56), 0);
        EXPECT_TRUE(write(list, file));
        EXPECT_EQ(seteuid(0) + setegid(0) + stat(file.c_str(), &status), 0);
        EXPECT_EQ(std::pair(status.st_uid, status.st_gid), std::pair(uid_t{56}, gid_t{34}));
    }

    const fs::path dangling = folder / "dangling.clr", circle = folder / "circle.clr", pipe = folder / "pipe";
    fs::create_symlink("later.clr", dangling);
    EXPECT_TRUE(write(list, dangling));
    EXPECT_TRUE(fs::is_symlink(dangling));
    EXPECT_EQ(keysOf(listFrom(folder / "later.clr")), "a ");
    EXPECT_EQ(fs::status(dangling).permissions() & fs::perms(0111), fs::perms::none);
    fs::create_symlink("circle.clr", circle);
    EXPECT_FALSE(write(list, circle));
    EXPECT_TRUE(fs::is_symlink(circle));
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink(pipe, folder / "to pipe");
    for (const fs::path& path : {pipe, folder / "to pipe"})
        EXPECT_FALSE(write(list, path));
    EXPECT_TRUE(fs::is_fifo(pipe));

    fs::permissions(file, fs::perms::owner_read);
    const id read = listFrom(file);
    EXPECT_FALSE(send<BOOL>(read, "isEditable"));
    EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { remove(read, "a"); }));
}

TEST_F(ColorLists, AreSharedByNameWhileRetained) {
    set(list, color("textColor"), "a");
    ASSERT_TRUE(send<BOOL>(list, "writeToFile:", id{}));
    const id shared = listNamed("Mine");
    EXPECT_TRUE(send<BOOL>(shared, "writeToFile:", id{}));
    EXPECT_EQ(listNamed("Mine"), shared);
    EXPECT_EQ(colorWithKey(shared, "a"), color("textColor")) << "catalog colours are single objects";
    set(list, blue, "b");
    ASSERT_TRUE(send<BOOL>(list, "writeToFile:", id{}));
    EXPECT_EQ(keysOf(listNamed("Mine")), "a b ") << "the file holds another list now";
    fs::remove_all(folder / "chromabridge");
    EXPECT_EQ(listNamed("Mine"), nullptr);
}

TEST_F(ColorLists, KeepTheOldFileIfWritingFails) {
    set(list, red, "a");
    ASSERT_TRUE(write(list, file));
    const std::string old = contentsOf(file);
    for (int i = 0; i < 200; ++i)
        set(list, blue, "key " + std::to_string(i));
    // The disk becomes full halfway through.
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool isWritten = write(list, file);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(contentsOf(file), old);
    EXPECT_FALSE(write(list, folder / "missing" / "mine.clr"));
    EXPECT_FALSE(write(list, ""));
    failingSync = syncs + 1;
    EXPECT_FALSE(write(list, file)) << "the contents may not have reached the disk";
    EXPECT_EQ(contentsOf(file), old);
    failingSync = 0;
    EXPECT_EQ(fileCount(), 1) << "no temporary file remains";
    syncs = 0;
    EXPECT_TRUE(write(list, file));
    EXPECT_EQ(syncs, 2) << "the file, and the folder with its name";
    EXPECT_EQ(fileCount(), 1);

    // A process that is killed while it writes leaves a partial file. The next save removes that file, but not one whose
    // process still writes.
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGXFSZ, SIG_DFL);
        setrlimit(RLIMIT_FSIZE, &small);
        write(list, file);
        _exit(0);
    }
    int end = 0;
    waitpid(child, &end, 0);
    EXPECT_TRUE(WIFSIGNALED(end));
    EXPECT_EQ(fileCount(), 2);
    const fs::path used = folder / ".mine.clr.saving-1-0";
    const int lock = open(used.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_TRUE(write(list, file));
    EXPECT_EQ(fileCount(), 2);
    EXPECT_TRUE(fs::exists(used));
    close(lock);
    EXPECT_TRUE(write(list, file));
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ColorLists, RejectMalformedFiles) {
    set(list, calibratedRGB(0.1f, 0.2f, 0.3f), "a");
    set(list, colorIn(standardSpace("sRGBColorSpace"), {0.1f, 0.2f, 0.3f, 1}), "b\n");
    set(list, color("textColor"), "c");
    ASSERT_TRUE(write(list, file));
    const std::string complete = contentsOf(file);
    const auto read = [&](const std::string& contents) {
        std::ofstream(file, std::ios::binary) << contents;
        return listFrom(file);
    };
    EXPECT_EQ(listFrom(folder / "missing.clr"), nullptr);
    EXPECT_EQ(listFrom(folder), nullptr);
    EXPECT_NE(read(complete), nullptr);
    EXPECT_EQ(read(complete + "\n"), nullptr);
    for (const char* const last : {"end\n", "\"\\u041\n"})
        EXPECT_EQ(read(std::string("chromabridge color list 1\n") + last), nullptr) << last;
    for (std::size_t size = 0; size < complete.size(); ++size)
        EXPECT_EQ(read(complete.substr(0, size)), nullptr) << "cut to " << size;
    // The text to replace and its replacements.
    const std::pair<std::string_view, std::vector<std::string_view>> changes[] = {
        {"list 1", {"list 2"}},
        {"genericRGB", {"noRGB", "genericRGB x"}},
        {"space 1 standard sRGB", {"space 0 standard sRGB", "space 1 profile 00ff", "space 1 profile 0f0"}},
        {"components 0", {"components 2", "components 0 00000000"}},
        {"3dcccccd", {"3dccccc", "3dcccccg"}},
        {"\\u000a", {"\\u00", "\\x"}},
        {"\"a\"", {"\"\xFF\"", "\"c\"", "\"a\"."}}, // the second: one key twice
        {"System textColor", {"System noColor", "Crayons textColor"}},
        {"end 3", {"end 2"}}};
    for (const auto& [from, replacements] : changes) {
        const std::size_t place = complete.find(from);
        ASSERT_NE(place, std::string::npos) << from;
        for (const std::string_view to : replacements) {
            std::string changed = std::string(complete).replace(place, from.size(), to);
            EXPECT_EQ(read(changed), nullptr) << from << " to " << to;
            EXPECT_EQ(read(changed.replace(changed.size() - 2, 1, "2")), nullptr) << from << " to " << to << " of two";
        }
    }
}
