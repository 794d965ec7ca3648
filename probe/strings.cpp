#include "probe/host.h"

#include <cstdio>

extern "C" {
unsigned char CFStringGetCString(const void* string, char* buffer, std::intptr_t capacity, std::uint32_t encoding);
void CFRelease(const void* object);
}

namespace probe {

namespace {

std::string units(std::u16string_view text) { return {reinterpret_cast<const char*>(text.data()), 2 * text.size()}; }
std::string units(std::u32string_view text) { return {reinterpret_cast<const char*>(text.data()), 4 * text.size()}; }

// One text in an encoding and in UTF-8.
struct Sample {
    const char* name;
    std::uint32_t encoding;
    std::string bytes, inUTF8;
};

const Sample inUTF8 = {"UTF-8", REALencodingUTF8, "h\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E",
                       "h\xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E"};
const Sample inUTF16 = {"UTF-16", REALencodingUTF16, units(u"h\u00E9 \u20AC \U0001D11E"), inUTF8.bytes};

std::vector<Sample> samples(double hostVersion) {
    std::vector<Sample> all = {
        inUTF8,
        inUTF16,
        {"ASCII", REALencodingASCII, "plain", "plain"},
        {"Mac Roman", REALencodingMacRoman, "\x8E\xDB", "\xC3\xA9\xE2\x82\xAC"},
        {"ISO Latin 1", REALencodingLatin1, "\xE9\xA4", "\xC3\xA9\xC2\xA4"},
        {"Windows Latin 1", REALencodingWindowsLatin1, "\xE9\x80", "\xC3\xA9\xE2\x82\xAC"},
    };
    if (hostVersion >= REAL_SINCE_NATIVE_PATHS)
        all.push_back({"UTF-32", REALencodingUTF32, units(U"h\u00E9 \U0001D11E"), "h\xC3\xA9 \xF0\x9D\x84\x9E"});
    return all;
}

std::string instead(const std::string& found, const std::string& wanted) {
    return hex(found) + " instead of " + hex(wanted);
}

std::string large() { return std::string(largeSize, 'x'); }

// The string entry points and the strings that are built with them.
struct Checks {
    const Host& host;
    Report& report;
    Strings strings;
    Function<REALGetStringEncodingProc> encoding;
    Function<REALSetStringEncodingProc> setEncoding;

    explicit Checks(const Host& tested)
        : host(tested), report(tested.report), strings(tested), encoding(tested.entry(entries::REALGetStringEncoding)),
          setEncoding(tested.entry(entries::REALSetStringEncoding)) {}

    REALstringStruct* tagged(const std::string& bytes, std::uint32_t tag) const {
        REALstringStruct* const string = strings.of(bytes);
        if (string && setEncoding) setEncoding(string, tag);
        return string;
    }

    void checkLock() const {
        const Growth growth;
        REALstringStruct* const string = strings.of(large());
        if (!string || !growth.hasLargeValue()) { // the host's memory is not visible
            return strings.drop(string);
        }
        strings.lock(string);
        strings.unlock(string);
        const bool isKept = growth.hasLargeValue();
        report.expect(isKept, "adds no reference: the string is destroyed when one of its two references is dropped");
        if (isKept) strings.unlock(string);
        Strings::isLockBroken = !isKept;
    }

    void checkUnlock() const {
        const Growth growth;
        REALstringStruct* const string = strings.of(large());
        const bool isVisible = growth.hasLargeValue();
        strings.drop(string);
        if (isVisible) report.expect(!growth.hasLargeValue(), "does not free the string when its last reference is dropped");
    }

    void checkBuilding() const {
        std::string bytes("a\0b\xFF", 4);
        REALstringStruct* const string = strings.of(bytes);
        const std::string kept = bytes;
        bytes.assign(4, '#');
        if (!string) return report.complain("returns null for four bytes");
        report.expect(strings.bytesOf(string) == kept,
                      "the string has " + instead(strings.bytesOf(string), kept) +
                          ": the host must copy all bytes, and the text starts at the second byte of the buffer");
        if (encoding) report.expect(encoding(string) == REALencodingUnknown, "the recorded encoding is not \"unknown\"");
        strings.drop(string);
        REALstringStruct* const empty = strings.of("");
        report.expect(strings.bytesOf(empty).empty(), "a string of no bytes has some");
        strings.drop(empty);
        checkOwnership(strings, report, [&](auto protect) {
            REALstringStruct* const built = strings.of(large());
            protect(built);
            return built;
        });
    }

    void checkEncodings() const {
        for (const Sample& sample : samples(host.version)) {
            REALstringStruct* const string = tagged(sample.bytes, sample.encoding);
            report.expect(encoding(string) == sample.encoding, std::string("loses the encoding ") + sample.name);
            report.expect(strings.bytesOf(string) == sample.bytes,
                          std::string(sample.name) + ": " + instead(strings.bytesOf(string), sample.bytes));
            strings.drop(string);
        }
    }

    void checkBuildingEncoded(const Function<REALBuildStringWithEncodingProc>& build) const {
        for (const Sample& sample : samples(host.version)) {
            REALstringStruct* const string =
                build(sample.bytes.data(), static_cast<std::int32_t>(sample.bytes.size()), sample.encoding);
            report.expect(strings.bytesOf(string) == sample.bytes,
                          std::string(sample.name) + ": " + instead(strings.bytesOf(string), sample.bytes));
            if (string && encoding)
                report.expect(encoding(string) == sample.encoding, std::string("loses the encoding ") + sample.name);
            strings.drop(string);
        }
        checkOwnership(strings, report, [&](auto protect) {
            REALstringStruct* const built = build(large().data(), largeSize, REALencodingASCII);
            protect(built);
            return built;
        });
    }

    void checkConversion(const Function<REALConvertStringProc>& convert) const {
        const bool isOwned = checkOwnership(strings, report, [&](auto protect) {
            REALstringStruct* const argument = tagged(large(), REALencodingUTF8);
            REALstringStruct* const converted = convert(argument, REALencodingUTF8);
            protect(converted);
            strings.drop(argument);
            return converted;
        });
        if (!isOwned) return;
        report.expect(convert(nullptr, REALencodingUTF8) == nullptr, "returns a string for null");
        for (const Sample& sample : samples(host.version)) {
            const std::string name = sample.name;
            REALstringStruct* const string = tagged(sample.bytes, sample.encoding);
            REALstringStruct* const converted = convert(string, REALencodingUTF8);
            report.expect(strings.bytesOf(converted) == sample.inUTF8,
                          name + " to UTF-8: " + instead(strings.bytesOf(converted), sample.inUTF8));
            if (converted && encoding)
                report.expect(encoding(converted) == REALencodingUTF8, name + " to UTF-8: the recorded encoding differs");
            if (converted != string)
                report.expect(strings.bytesOf(string) == sample.bytes, name + ": the conversion changes the argument");
            strings.drop(converted);
            strings.drop(string);
        }
        REALstringStruct* const text = tagged(inUTF8.bytes, inUTF8.encoding);
        REALstringStruct* const back = convert(text, REALencodingUTF16);
        report.expect(!back || strings.bytesOf(back) == inUTF16.bytes,
                      "UTF-8 to UTF-16: " + instead(strings.bytesOf(back), inUTF16.bytes));
        strings.drop(back);
        strings.drop(text);
    }

    void checkPlatformStrings(const Function<REALGetStringCFStringProc>& cfString) const {
        for (const Sample& sample : samples(host.version)) {
            REALstringStruct* const string = tagged(sample.bytes, sample.encoding);
            if (const void* const text = cfString(string, 0)) {
                char found[64] = "";
                if (!CFStringGetCString(text, found, sizeof found, REALencodingUTF8)) found[0] = '\0';
                CFRelease(text); // the caller's reference
                report.expect(found == sample.inUTF8, std::string(sample.name) + ": " + instead(found, sample.inUTF8));
            }
            strings.drop(string);
        }
    }
};

} // namespace

std::string Strings::bytesOf(REALstringStruct* string) const {
    if (!string) return "";
    lock(string);
    const auto* const buffer = fieldAt<const char*>(string, REALstringBufferOffset);
    const auto length = fieldAt<std::int32_t>(string, REALstringLengthOffset);
    const std::string bytes =
        buffer && length > 0 ? std::string(buffer + 1, static_cast<std::size_t>(length)) : std::string();
    unlock(string);
    return bytes;
}

std::string hex(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%s%02x", text.empty() ? "" : " ", static_cast<unsigned char>(byte));
        text += digits;
    }
    return text.empty() ? "none" : text;
}

// The locks come first, because every other check reads strings.
void checkStrings(const Host& host) {
    const Checks checks(host);
    host.begin(entries::REALLockString);
    if (checks.strings.areUsable()) checks.checkLock();
    host.begin(entries::REALUnlockString);
    const bool canRead = checks.strings.areUsable();
    if (canRead) checks.checkUnlock();
    host.begin(entries::REALBuildString);
    if (canRead) checks.checkBuilding();
    const bool canTag = canRead && checks.encoding && checks.setEncoding;
    host.begin(entries::REALGetStringEncoding);
    if (canTag) checks.checkEncodings();
    host.begin(entries::REALSetStringEncoding);
    if (canTag) checks.checkEncodings();
    const auto buildEncoded = host.begin(entries::REALBuildStringWithEncoding);
    host.require(entries::REALBuildStringWithEncoding, entries::REALBuildString);
    if (buildEncoded && canRead) checks.checkBuildingEncoded(buildEncoded);
    const auto convert = host.begin(entries::REALConvertString);
    if (convert && canTag) checks.checkConversion(convert);
    const auto cfString = host.begin(entries::REALGetStringCFString);
    if (cfString && canTag) checks.checkPlatformStrings(cfString);
}

} // namespace probe
