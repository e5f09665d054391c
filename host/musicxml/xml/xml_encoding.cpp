// The encodings of XML files, to and from UTF-8.
#include <algorithm>
#include <cctype>

#include "host/musicxml/xml/xml_text.h"

namespace standin {
namespace {

constexpr u32 kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, u32 code) {
    const auto put = [&out](u32 byte) { out.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0U | code >> 6U);
        put(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        put(0xE0U | code >> 12U);
        put(0x80U | (code >> 6U & 0x3FU));
        put(0x80U | (code & 0x3FU));
    } else {
        put(0xF0U | code >> 18U);
        put(0x80U | (code >> 12U & 0x3FU));
        put(0x80U | (code >> 6U & 0x3FU));
        put(0x80U | (code & 0x3FU));
    }
}

// Reads the character at the offset and moves past it.
u32 NextCode(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<u32>(static_cast<u8>(text[i])); };
    const u32 first = byte(at++);
    if (first < 0x80) {
        return first;
    }
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    u32 code = first & (0x3FU >> static_cast<unsigned>(more));
    for (int i = 0; i < more; ++i, ++at) {
        if (at >= text.size() || (byte(at) & 0xC0U) != 0x80U) {
            return kReplacement;
        }
        code = code << 6U | (byte(at) & 0x3FU);
    }
    return code;
}

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
        AppendUtf8(text, code);
    }
    return text;
}

std::string ToUtf16(std::string_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    const auto put = [&](u32 unit) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes.push_back(bigEndian ? high : low);
        bytes.push_back(bigEndian ? low : high);
    };
    for (std::size_t at = 0; at < text.size();) {
        const u32 code = NextCode(text, at);
        if (code >= 0x10000) {
            put(0xD800U + ((code - 0x10000U) >> 10U));
            put(0xDC00U + ((code - 0x10000U) & 0x3FFU));
        } else {
            put(code);
        }
    }
    return bytes;
}

std::string FromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 16);
    for (const char byte : bytes) {
        AppendUtf8(text, static_cast<u8>(byte));
    }
    return text;
}

std::string ToLatin1(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const u32 code = NextCode(text, at);
        if (code < 0x100) {
            bytes.push_back(static_cast<char>(code));
        } else {
            bytes += "&#" + std::to_string(code) + ';';
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
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name;
}

DecodedText FromMarkedUtf16(std::string_view bytes, bool bigEndian, bool mark) {
    const Encoding encoding = bigEndian ? Encoding::kUtf16BigEndian : Encoding::kUtf16LittleEndian;
    return {FromUtf16(bytes.substr(mark ? 2 : 0), bigEndian), {encoding, mark}, {}};
}

// Where the text holds what is no character in UTF-8; its size when it does not.
std::size_t FindInvalid(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<u8>(text[at]) < 0x80) {
            ++at;
            continue;
        }
        const std::size_t begin = at;
        const u32 code = NextCode(text, at);
        std::string written;
        AppendUtf8(written, code);
        const bool isSurrogate = code >= 0xD800 && code < 0xE000;
        if (isSurrogate || code > 0x10FFFF || text.substr(begin, at - begin) != written) {
            return begin;
        }
    }
    return text.size();
}

// The declaration itself could be read byte by byte, so that it is no UTF-16 whatever it says.
DecodedText FromMislabelled(std::string bytes) {
    if (FindInvalid(bytes) < bytes.size()) {
        return {{}, {}, "the file says that it is UTF-16, but it is not, and no UTF-8 either"};
    }
    DecodedText decoded{std::move(bytes), {}, {}};
    decoded.warning = "the file says that it is UTF-16, and is read as the UTF-8 that it is";
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
        return {FromLatin1(bytes), {Encoding::kLatin1, false}, {}};
    }
    if (declared.starts_with("utf-16") || declared == "utf16") {
        return FromMislabelled(std::move(bytes));
    }
    return {{}, {}, "the encoding " + declared + " is not supported"};
}

}  // namespace

DecodedText DecodeXml(std::string bytes) {
    DecodedText decoded = Decode(std::move(bytes));
    const std::size_t invalid = FindInvalid(decoded.text);
    if (invalid < decoded.text.size()) {
        decoded.problem = "the file holds bytes that are no text in its encoding";
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
            return ToLatin1(text);
        case Encoding::kUtf8:
            break;
    }
    if (format.byteOrderMark) {
        text.insert(0, "\xEF\xBB\xBF");
    }
    return text;
}

}  // namespace standin
