#include "appkit/color_list_file.h"

#include "appkit/catalog.h"
#include "appkit/color_list_text.h"
#include "appkit/image.h"
#include "foundation/array.h"

#include <algorithm>
#include <cstdint>

namespace chroma::builtin {
namespace {

constexpr std::string_view firstLine = "chromabridge color list 1";

// In the order of StandardSpace.
constexpr const char* standardNames[standardSpaceCount] = {
    "genericRGB", "genericGray", "genericCMYK",  "deviceRGB",          "deviceGray",
    "deviceCMYK", "sRGB",        "adobeRGB1998", "genericGamma22Gray", "displayP3"};

// Returns null for a space that does not belong to the platform.
const char* standardNameOf(const SpaceDefinition& space) {
    for (std::size_t i = 0; i < standardSpaceCount; ++i)
        if (standardDefinition(static_cast<StandardSpace>(i)).get() == &space) return standardNames[i];
    return nullptr;
}

// Writes each space once, in the order of first use, before the colours.
class ListWriter {
public:
    bool write(const ColorList::Entry& entry) {
        const ColorContents& contents = entry.second->contents;
        writeKey(entry.first, colors_);
        switch (contents.kind) {
        case Kind::components: writeComponents(contents); break;
        case Kind::catalog: colors_.append(" catalog System ").append(contents.catalogColor->name); break;
        case Kind::pattern:
            if (!isKindOf(contents.image.get(), Image::cls)) return false;
            writePattern(static_cast<const Image*>(contents.image.get())->size);
            break;
        }
        colors_.push_back('\n');
        return true;
    }

    void finish(std::size_t count, std::string& text) {
        text.append(firstLine)
            .append("\n")
            .append(spaces_)
            .append(colors_)
            .append("end ")
            .append(std::to_string(count))
            .append("\n");
    }

private:
    void writeComponents(const ColorContents& contents) {
        colors_.append(" components ").append(std::to_string(numberOf(*contents.space->definition)));
        for (std::size_t i = 0; i < contents.count(); ++i)
            writeFloat(contents.components[i], colors_);
    }

    void writePattern(Size size) {
        colors_.append(" pattern");
        writeMeasure(size.width, colors_);
        writeMeasure(size.height, colors_);
    }

    std::size_t numberOf(const SpaceDefinition& space) {
        const auto known = std::find(written_.begin(), written_.end(), &space);
        const auto number = static_cast<std::size_t>(known - written_.begin());
        if (known != written_.end()) return number;
        written_.push_back(&space);
        spaces_.append("space ").append(std::to_string(number));
        if (const char* const name = standardNameOf(space)) {
            spaces_.append(" standard ").append(name);
        } else {
            spaces_.append(" profile ");
            writeBytes(space.profile, spaces_);
        }
        spaces_.push_back('\n');
        return number;
    }

    std::vector<const SpaceDefinition*> written_;
    std::string spaces_;
    std::string colors_;
};

// Reads only into objects: the list's entries, and an array of the spaces read so far.
class ListReader {
public:
    ListReader(ColorList& list, Array& spaces) : list_(list), spaces_(spaces) {}

    bool space(LineReader line) {
        std::size_t number;
        std::string_view form;
        if (!line.keyword("space") || !line.number(number) || number != spaces_.elements.size() || !line.word(form))
            return false;
        ColorSpace* const space = form == "standard"  ? standardSpaceNamed(line)
                                  : form == "profile" ? spaceOfProfile(line)
                                                      : nullptr;
        if (space) spaces_.append(space);
        return space && line.isAtEnd();
    }

    bool color(LineReader line) {
        std::u16string key;
        std::string_view form;
        if (!line.key(key) || !line.word(form)) return false;
        const auto [entry, isNew] = list_.colors.try_emplace(std::move(key));
        if (!isNew) return false;
        list_.entries.push_back(&*entry);
        if (form == "catalog") {
            Color* const color = catalog(line);
            entry->second = color;
            return color && line.isAtEnd();
        }
        Color* const color = newColor({});
        entry->second = color;
        const bool isRead = form == "components" ? components(line, color->contents)
                            : form == "pattern"  ? pattern(line, color->contents)
                                                 : false;
        return isRead && line.isAtEnd();
    }

private:
    static ColorSpace* standardSpaceNamed(LineReader& line) {
        std::string_view name;
        if (!line.word(name)) return nullptr;
        const auto known = std::find(std::begin(standardNames), std::end(standardNames), name);
        if (known == std::end(standardNames)) return nullptr;
        return standardSpace(static_cast<StandardSpace>(known - standardNames));
    }

    static ColorSpace* spaceOfProfile(LineReader& line) {
        ColorSpace* const space = autorelease(make<ColorSpace>());
        std::vector<std::uint8_t> profile;
        if (!line.bytes(profile)) return nullptr;
        const SpacePointer definition = definitionOfProfile(profile);
        if (definition) space->definition = definition;
        return definition ? space : nullptr;
    }

    bool components(LineReader& line, ColorContents& contents) {
        std::size_t number;
        if (!line.number(number) || number >= spaces_.elements.size()) return false;
        contents.space = static_cast<ColorSpace*>(spaces_.elements[number]);
        contents.kind = Kind::components;
        return std::all_of(contents.components.begin(),
                           contents.components.begin() + static_cast<std::ptrdiff_t>(contents.count()),
                           [&line](float& component) { return line.float32(component); });
    }

    // Returns null if the catalog has no such colour.
    static Color* catalog(LineReader& line) {
        std::string_view name;
        if (!line.keyword("System") || !line.word(name)) return nullptr;
        const CatalogColor* const color = findCatalogColor(std::u16string(name.begin(), name.end()));
        return color ? colorOf(*color) : nullptr;
    }

    static bool pattern(LineReader& line, ColorContents& contents) {
        Image* const image = autorelease(make<Image>());
        contents.image = image;
        return line.measure(image->size.width) && line.measure(image->size.height);
    }

    ColorList& list_;
    Array& spaces_;
};

// Removes a line and its end from the text. Returns false if there is no complete line.
bool nextLine(std::string_view& text, std::string_view& line) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return false;
    line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return true;
}

} // namespace

bool writeEntries(const ColorList& list, std::string& text) {
    ListWriter writer;
    for (const ColorList::Entry* const entry : list.entries)
        if (!writer.write(*entry)) return false;
    writer.finish(list.entries.size(), text);
    return true;
}

bool readEntries(std::string_view text, ColorList& list) {
    ListReader reader(list, *autorelease(make<Array>()));
    std::string_view line;
    if (!nextLine(text, line) || line != firstLine) return false;
    while (nextLine(text, line)) {
        if (line.substr(0, 1) == "\"") {
            if (!reader.color(LineReader(line))) return false;
        } else if (line.substr(0, 6) == "space ") {
            if (!reader.space(LineReader(line))) return false;
        } else {
            LineReader end(line);
            std::size_t count = 0;
            return end.keyword("end") && end.number(count) && end.isAtEnd() && text.empty() && count == list.entries.size();
        }
    }
    return false;
}

} // namespace chroma::builtin
