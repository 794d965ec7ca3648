// Feeds untrusted colour list files. Each is refused, or it is written and read again as the same list.
#include "require.h"

#include "appkit/color_list_file.h"
#include "builtin/introspection.h"
#include "runtime/autorelease.h"

#include <cstdint>

using namespace chroma;
using namespace chroma::builtin;
using fuzz::require;

namespace {

std::size_t living() {
    return builtin_liveInstances("NSColor") + builtin_liveInstances("NSColorList") + builtin_liveInstances("NSColorSpace") +
           builtin_liveInstances("NSImage");
}

void readAndWrite(std::string_view text) {
    ColorList* const list = autorelease(make<ColorList>());
    if (!readEntries(text, *list)) return;
    require(list->entries.size() == list->colors.size(), "every colour has an entry");
    std::string written, rewritten;
    require(writeEntries(*list, written), "a list that was read can be written");

    ColorList* const again = autorelease(make<ColorList>());
    require(readEntries(written, *again), "a list that was written can be read");
    require(writeEntries(*again, rewritten) && rewritten == written, "writing and reading a list changes nothing");
    for (std::size_t i = 0; i < list->entries.size(); ++i)
        require(again->entries.at(i)->first == list->entries[i]->first,
                "writing and reading keeps the keys and their order");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::size_t before = living();
    const std::size_t height = autoreleaseHeight();
    readAndWrite({reinterpret_cast<const char*>(data), size});
    drainAutoreleased(height);
    require(living() == before, "nothing is leaked");
    return 0;
}
