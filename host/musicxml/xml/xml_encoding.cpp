// The encodings of XML files, to and from UTF-8.
#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>
#include <optional>
#include <utf8.h>

#include "host/musicxml/xml/xml_text.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

// The characters of windows-1252 from 0x80 to 0x9F, where ISO 8859-1 has control characters; 0:
// none.
constexpr u16 kWindows1252[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                  0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool IsUnused(u8 byte) {
    return byte >= 0x80 && byte < 0xA0 && kWindows1252[byte - 0x80] == 0;
}

// Unpaired surrogates become invalid UTF-8, so that the check finds them.
std::string FromUtf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t i) {
        const u32 first = static_cast<u8>(bytes[i]);
        const u32 second = static_cast<u8>(bytes[i + 1]);
        return bigEndian ? first << 8U | second : second << 8U | first;
    };
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        u32 code = unit(i);
        if (code >= 0xD800 && code < 0xDC00 && i + 3 < bytes.size()) {
            const u32 low = unit(i + 2);
            if (low >= 0xDC00 && low < 0xE000) {
                code = 0x10000U + ((code - 0xD800U) << 10U) + (low - 0xDC00U);
                i += 2;
            }
        }
        utf8::unchecked::append(static_cast<char32_t>(code), std::back_inserter(text));
    }
    return text;
}

std::string ToUtf16(std::string_view text, bool bigEndian) {
    std::u16string units;
    utf8::unchecked::utf8to16(text.begin(), text.end(), std::back_inserter(units));
    std::string bytes;
    bytes.reserve(units.size() * 2);
    for (const char16 unit : units) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes.push_back(bigEndian ? high : low);
        bytes.push_back(bigEndian ? low : high);
    }
    return bytes;
}

std::string FromBytes(std::string_view bytes, Encoding encoding) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 16);
    for (const char c : bytes) {
        const u8 byte = static_cast<u8>(c);
        const bool isOther = encoding == Encoding::kWindows1252 && byte >= 0x80 && byte < 0xA0;
        const char32_t code = isOther ? kWindows1252[byte - 0x80] : byte;
        utf8::unchecked::append(code, std::back_inserter(text));
    }
    return text;
}

// The byte of the character; nothing if the encoding lacks it.
std::optional<u8> ByteOf(char32_t code, Encoding encoding) {
    const bool isLatin1 = encoding == Encoding::kLatin1;
    if (code < 0x80 || (code < 0x100 && (isLatin1 || code >= 0xA0))) {
        return static_cast<u8>(code);
    }
    const auto* found = std::ranges::find(kWindows1252, code);
    if (isLatin1 || found == std::end(kWindows1252)) {
        return std::nullopt;
    }
    return static_cast<u8>(0x80 + (found - kWindows1252));
}

std::string ToBytes(std::string_view text, Encoding encoding) {
    std::string bytes;
    bytes.reserve(text.size());
    for (auto at = text.begin(); at != text.end();) {
        const char32_t code = utf8::unchecked::next(at);
        if (const std::optional<u8> byte = ByteOf(code, encoding)) {
            bytes.push_back(static_cast<char>(*byte));
        } else {
            bytes += "&#" + std::to_string(u32{code}) + ';';
        }
    }
    return bytes;
}

// The encoding that the XML declaration names, in lower case; empty when it names none.
std::string DeclaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) {
        return {};
    }
    std::string name{AttributeText(bytes.substr(0, bytes.find("?>")), "encoding")};
    std::ranges::transform(name, name.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name;
}

DecodedText FromMarkedUtf16(std::string_view bytes, bool bigEndian, bool mark) {
    const Encoding encoding = bigEndian ? Encoding::kUtf16BigEndian : Encoding::kUtf16LittleEndian;
    return {FromUtf16(bytes.substr(mark ? 2 : 0), bigEndian), {encoding, mark}, {}};
}

// The offset of the first bytes that are not UTF-8; the text's size if there are none. Eight bytes
// of ASCII are passed over at once: scores have little else.
std::size_t FindInvalid(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    try {
        while (at != end) {
            u64 eight = 0x80;
            if (end - at >= 8) {
                std::memcpy(&eight, at, sizeof(eight));
            }
            if ((eight & 0x8080808080808080U) == 0) {
                at += 8;
            } else {
                utf8::next(at, end);
            }
        }
    } catch (const utf8::exception&) {
        // It stays before the character that is none.
    }
    return static_cast<std::size_t>(at - text.data());
}

// The declaration could be read byte by byte, so the text is not UTF-16, whatever it says.
DecodedText FromMislabelled(std::string bytes) {
    if (FindInvalid(bytes) < bytes.size()) {
        return {{}, {}, Say(Text::kNeitherUtf, {})};
    }
    DecodedText decoded{std::move(bytes), {}, {}};
    decoded.warning = Say(Text::kUtf8AfterAll, {});
    return decoded;
}

DecodedText Decode(std::string bytes) {
    using namespace std::string_view_literals;
    const std::string_view view{bytes};
    if (view.starts_with("\xFF\xFE"sv)) {
        return FromMarkedUtf16(view, false, true);
    }
    if (view.starts_with("\xFE\xFF"sv)) {
        return FromMarkedUtf16(view, true, true);
    }
    if (view.starts_with("<\0?\0"sv)) {
        return FromMarkedUtf16(view, false, false);
    }
    if (view.starts_with("\0<\0?"sv)) {
        return FromMarkedUtf16(view, true, false);
    }
    const bool mark = view.starts_with("\xEF\xBB\xBF"sv);
    if (mark) {
        bytes.erase(0, 3);
    }
    const std::string declared = DeclaredEncoding(bytes);
    if (mark || declared.empty() || declared == "utf-8" || declared == "utf8" ||
        declared == "us-ascii" || declared == "ascii") {
        return {std::move(bytes), {Encoding::kUtf8, mark}, {}};
    }
    if (declared == "iso-8859-1" || declared == "latin1" || declared == "latin-1") {
        return {FromBytes(bytes, Encoding::kLatin1), {Encoding::kLatin1, false}, {}};
    }
    if (declared == "windows-1252" || declared == "cp1252") {
        const auto unused =
            std::ranges::find_if(bytes, [](char byte) { return IsUnused(static_cast<u8>(byte)); });
        if (unused == bytes.end()) {
            return {FromBytes(bytes, Encoding::kWindows1252), {Encoding::kWindows1252, false}, {}};
        }
        const auto offset = static_cast<std::size_t>(unused - bytes.begin());
        return {{}, {}, Say(Text::kNotWindows1252, {}), LineAt(bytes, offset)};
    }
    if (declared.starts_with("utf-16") || declared == "utf16") {
        return FromMislabelled(std::move(bytes));
    }
    return {{}, {}, Say(Text::kUnknownEncoding, {declared})};
}

}  // namespace

DecodedText DecodeXml(std::string bytes) {
    DecodedText decoded = Decode(std::move(bytes));
    const std::size_t invalid = FindInvalid(decoded.text);
    if (invalid < decoded.text.size()) {
        decoded.problem = Say(Text::kInvalidBytes, {});
        decoded.line = LineAt(decoded.text, invalid);
    }
    return decoded;
}

std::string EncodeXml(std::string text, TextFormat format) {
    switch (format.encoding) {
        case Encoding::kUtf16LittleEndian:
        case Encoding::kUtf16BigEndian: {
            const bool bigEndian = format.encoding == Encoding::kUtf16BigEndian;
            if (format.byteOrderMark) {
                text.insert(0, "\xEF\xBB\xBF");
            }
            return ToUtf16(text, bigEndian);
        }
        case Encoding::kLatin1:
        case Encoding::kWindows1252:
            return ToBytes(text, format.encoding);
        case Encoding::kUtf8:
            break;
    }
    if (format.byteOrderMark) {
        text.insert(0, "\xEF\xBB\xBF");
    }
    return text;
}

}  // namespace standin
