#include "probe/host.h"

#include <cstdint>
#include <cstdio>

extern "C" {
std::intptr_t CFStringGetLength(const void* string);
unsigned char CFStringGetCString(const void* string, char* buffer, std::intptr_t capacity, std::uint32_t encoding);
void CFRelease(const void* object);
}

namespace probe {

namespace {

std::string units(std::u16string_view text) { return {reinterpret_cast<const char*>(text.data()), 2 * text.size()}; }
std::string units(std::u32string_view text) { return {reinterpret_cast<const char*>(text.data()), 4 * text.size()}; }

// One text in an encoding, and in UTF-8.
struct Sample {
    const char* name;
    std::uint32_t encoding;
    std::string bytes, inUTF8;
};

const std::vector<Sample>& samples() {
    static const std::vector<Sample> all = {
        {"ASCII", REALencodingASCII, "plain", "plain"},
        {"UTF-8", REALencodingUTF8, "h\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E", "h\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E"},
        {"UTF-16", REALencodingUTF16, units(u"h\u00E9 \u20AC \U0001D11E"), "h\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E"},
        {"UTF-32", REALencodingUTF32, units(U"h\u00E9 \U0001D11E"), "h\xC3\xA9 \xF0\x9D\x84\x9E"},
        {"Mac Roman", REALencodingMacRoman, "\x8E\xDB", "\xC3\xA9\xE2\x82\xAC"},
        {"ISO Latin 1", REALencodingLatin1, "\xE9\xA4", "\xC3\xA9\xC2\xA4"},
        {"Windows Latin 1", REALencodingWindowsLatin1, "\xE9\x80", "\xC3\xA9\xE2\x82\xAC"},
    };
    return all;
}

// What the questions need, which may be missing.
struct Entries {
    REALBuildStringProc build;
    REALBuildStringWithEncodingProc buildEncoded;
    REALGetStringEncodingProc encoding;
    REALSetStringEncodingProc setEncoding;
    REALConvertStringProc convert;
    REALLockStringProc lock;
    REALUnlockStringProc unlock;
    REALGetStringCFStringProc cfString;

    // The bytes that a plugin finds in the string, which it locks for that.
    std::string bytesOf(REALstringStruct* string) const {
        if (!string || !lock || !unlock) return "";
        lock(string);
        const auto* const buffer = fieldAt<const char*>(string, REALstringBufferOffset);
        const auto length = fieldAt<std::int32_t>(string, REALstringLengthOffset);
        const std::string bytes =
            buffer && length > 0 ? std::string(buffer + 1, static_cast<std::size_t>(length)) : std::string();
        unlock(string);
        return bytes;
    }
    void drop(REALstringStruct* string) const {
        if (string && unlock) unlock(string);
    }
    REALstringStruct* tagged(const Sample& sample) const {
        if (!build) return nullptr;
        REALstringStruct* const string = build(sample.bytes.data(), static_cast<std::int32_t>(sample.bytes.size()));
        if (string && setEncoding) setEncoding(string, sample.encoding);
        return string;
    }
};

std::string instead(const std::string& found, const std::string& wanted) {
    return "gives " + hex(found) + " instead of " + hex(wanted);
}

void askBuilding(const Entries& entries, Report& report) {
    std::string bytes("a\0b\xFF", 4);
    REALstringStruct* const string = entries.build(bytes.data(), 4);
    const std::string kept = bytes;
    bytes.assign(4, '#');
    if (!string) return report.complain("answers null for four bytes");
    report.expect(entries.bytesOf(string) == kept,
                  "the string " + instead(entries.bytesOf(string), kept) +
                      ": they must be copied, zeros and all, to behind the first of the buffer");
    if (entries.encoding)
        report.expect(entries.encoding(string) == REALencodingUnknown, "records an encoding that nobody told it");
    entries.drop(string);
    REALstringStruct* const none = entries.build("", 0);
    report.expect(entries.bytesOf(none).empty(), "a string of no bytes has some");
    entries.drop(none);
}

void askReferences(const Entries& entries, Report& report) {
    REALstringStruct* const string = entries.build("kept", 4);
    entries.lock(string);
    entries.lock(string);
    entries.unlock(string);
    entries.unlock(string);
    report.expect(entries.bytesOf(string) == "kept",
                  "a string that has a reference left " + instead(entries.bytesOf(string), "kept"));
    entries.drop(string);
}

void askTags(const Entries& entries, Report& report) {
    for (const Sample& sample : samples()) {
        REALstringStruct* const string = entries.tagged(sample);
        report.expect(entries.encoding(string) == sample.encoding, std::string("loses the encoding ") + sample.name);
        report.expect(entries.bytesOf(string) == sample.bytes,
                      std::string("of ") + sample.name + " " + instead(entries.bytesOf(string), sample.bytes));
        entries.drop(string);
    }
}

void askBuildingEncoded(const Entries& entries, Report& report) {
    for (const Sample& sample : samples()) {
        REALstringStruct* const string =
            entries.buildEncoded(sample.bytes.data(), static_cast<std::int32_t>(sample.bytes.size()), sample.encoding);
        report.expect(entries.bytesOf(string) == sample.bytes,
                      std::string("of ") + sample.name + " " + instead(entries.bytesOf(string), sample.bytes));
        if (string && entries.encoding)
            report.expect(entries.encoding(string) == sample.encoding, std::string("loses the encoding ") + sample.name);
        entries.drop(string);
    }
}

void askConversion(const Entries& entries, Report& report) {
    report.expect(entries.convert(nullptr, REALencodingUTF8) == nullptr, "answers a string for null");
    for (const Sample& sample : samples()) {
        REALstringStruct* const string = entries.tagged(sample);
        REALstringStruct* const converted = entries.convert(string, REALencodingUTF8);
        report.expect(entries.bytesOf(converted) == sample.inUTF8,
                      std::string(sample.name) + " to UTF-8 " + instead(entries.bytesOf(converted), sample.inUTF8));
        if (converted && entries.encoding)
            report.expect(entries.encoding(converted) == REALencodingUTF8,
                          std::string(sample.name) + " to UTF-8 is not recorded as UTF-8");
        report.expect(entries.bytesOf(string) == sample.bytes,
                      std::string(sample.name) + ": converting changes the original");
        entries.drop(converted);
        entries.drop(string);
    }
    const Sample& wide = samples()[2];
    REALstringStruct* const text = entries.tagged(samples()[1]);
    REALstringStruct* const back = entries.convert(text, REALencodingUTF16);
    report.expect(entries.bytesOf(back) == wide.bytes, "UTF-8 to UTF-16 " + instead(entries.bytesOf(back), wide.bytes));
    entries.drop(back);
    entries.drop(text);
}

void askPlatformStrings(const Entries& entries, Report& report) {
    for (const Sample& sample : samples()) {
        REALstringStruct* const string = entries.tagged(sample);
        const void* const text = entries.cfString(string, 0);
        char found[64] = "";
        if (text) {
            if (!CFStringGetCString(text, found, sizeof found, REALencodingUTF8)) found[0] = '\0';
            CFRelease(text); // the caller's
        }
        report.expect(found == sample.inUTF8, std::string(sample.name) + " " + instead(found, sample.inUTF8));
        entries.drop(string);
    }
}

} // namespace

std::string hex(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%s%02x", text.empty() ? "" : " ", static_cast<unsigned char>(byte));
        text += digits;
    }
    return text.empty() ? "none" : text;
}

void askStrings(const Host& host) {
    Report& report = host.report;
    Entries entries = {};
    entries.lock = host.entry(entries::REALLockString);
    entries.unlock = host.entry(entries::REALUnlockString);
    entries.encoding = host.entry(entries::REALGetStringEncoding);
    entries.setEncoding = host.entry(entries::REALSetStringEncoding);
    entries.build = host.begin(entries::REALBuildString);
    const bool canRead = entries.build && entries.lock && entries.unlock;
    if (canRead) askBuilding(entries, report);
    for (const auto& entry : {entries::REALLockString, entries::REALUnlockString})
        if (host.begin(entry) && canRead) askReferences(entries, report);
    for (const bool isGet : {true, false})
        if ((isGet ? host.begin(entries::REALGetStringEncoding) != nullptr
                   : host.begin(entries::REALSetStringEncoding) != nullptr) &&
            canRead && entries.encoding && entries.setEncoding)
            askTags(entries, report);
    entries.buildEncoded = host.begin(entries::REALBuildStringWithEncoding, true);
    if (entries.buildEncoded && canRead) askBuildingEncoded(entries, report);
    entries.convert = host.begin(entries::REALConvertString);
    if (entries.convert && canRead && entries.setEncoding) askConversion(entries, report);
    entries.cfString = host.begin(entries::REALGetStringCFString);
    if (entries.cfString && canRead && entries.setEncoding) askPlatformStrings(entries, report);
}

} // namespace probe
