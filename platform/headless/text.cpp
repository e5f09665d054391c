#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "platform/headless/state.h"

namespace platform {

namespace {

// Windows code page 1252, bytes 0x80 to 0x9F; all other bytes are their own code points.
constexpr std::array<char16_t, 32> kAnsiUpper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::u16string DecodeAnsi(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        units.push_back(byte >= 0x80 && byte < 0xA0 ? kAnsiUpper[byte - 0x80U] : byte);
    }
    return units;
}

std::string EncodeAnsi(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        const auto upper = std::ranges::find(kAnsiUpper, unit);
        if (upper != kAnsiUpper.end()) {
            bytes.push_back(static_cast<char>(0x80 + std::distance(kAnsiUpper.begin(), upper)));
        } else {
            bytes.push_back(unit < 0x100 ? static_cast<char>(unit) : '?');
        }
    }
    return bytes;
}

struct Utf8Lead {
    std::size_t length;  // bytes of the sequence; 0 = no lead byte
    char32_t bits;       // of the code point
    char32_t least;      // code points below are overlong
};

Utf8Lead ReadLead(unsigned char byte) {
    if (byte < 0x80) {
        return {1, byte, 0};
    }
    if (byte >= 0xC0 && byte < 0xE0) {
        return {2, byte & 0x1FU, 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {3, byte & 0x0FU, 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF8) {
        return {4, byte & 0x07U, 0x10000};
    }
    return {0, 0, 0};
}

void AppendCodePoint(std::u16string& units, char32_t point) {
    if (point < 0x10000) {
        units.push_back(static_cast<char16_t>(point));
        return;
    }
    units.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10U)));
    units.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FFU)));
}

std::optional<std::u16string> DecodeUtf8(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Utf8Lead lead = ReadLead(static_cast<unsigned char>(text[i]));
        if (lead.length == 0 || i + lead.length > text.size()) {
            return std::nullopt;
        }
        char32_t point = lead.bits;
        for (std::size_t k = 1; k < lead.length; ++k) {
            const auto byte = static_cast<unsigned char>(text[i + k]);
            if ((byte & 0xC0U) != 0x80U) {
                return std::nullopt;
            }
            point = (point << 6U) | (byte & 0x3FU);
        }
        if (point < lead.least || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) {
            return std::nullopt;
        }
        AppendCodePoint(units, point);
        i += lead.length;
    }
    return units;
}

void AppendUtf8(std::string& bytes, char32_t point) {
    const auto tail = [&bytes](char32_t bits) {
        bytes.push_back(static_cast<char>(0x80U | (bits & 0x3FU)));
    };
    if (point < 0x80) {
        bytes.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        bytes.push_back(static_cast<char>(0xC0U | (point >> 6U)));
        tail(point);
    } else if (point < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0U | (point >> 12U)));
        tail(point >> 6U);
        tail(point);
    } else {
        bytes.push_back(static_cast<char>(0xF0U | (point >> 18U)));
        tail(point >> 12U);
        tail(point >> 6U);
        tail(point);
    }
}

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool lowFollows =
            i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (high && lowFollows) {
            ++i;
            AppendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10U) + (text[i] - 0xDC00U));
        } else {
            AppendUtf8(bytes, unit >= 0xD800 && unit < 0xE000 ? U'\uFFFD' : unit);
        }
    }
    return bytes;
}

}  // namespace

std::optional<std::u16string> MultiByteToUtf16(std::string_view text, CodePage page) {
    if (headless::CurrentState().conversionsRefused) {
        return std::nullopt;
    }
    return page == CodePage::kUtf8 ? DecodeUtf8(text) : DecodeAnsi(text);
}

std::optional<std::string> Utf16ToMultiByte(std::u16string_view text, CodePage page) {
    if (headless::CurrentState().conversionsRefused) {
        return std::nullopt;
    }
    return page == CodePage::kUtf8 ? EncodeUtf8(text) : EncodeAnsi(text);
}

}  // namespace platform
