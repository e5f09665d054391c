// Conversions between UTF-16 and the two 8-bit encodings that texts have in the process.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class CodePage {
    kUtf8,
    kAnsi,  // the system's own 8-bit code page
};

// Nothing when the text is not valid in the code page, or when the system refuses.
std::optional<std::u16string> MultiByteToUtf16(std::string_view text, CodePage page);

// Lone surrogates become U+FFFD in UTF-8; a character without an exact equivalent in the
// ANSI code page becomes "?" (no best-fit mapping). Nothing when the system refuses.
std::optional<std::string> Utf16ToMultiByte(std::u16string_view text, CodePage page);

// Empty when the system refuses.
inline std::string Utf8Of(std::u16string_view text) {
    return Utf16ToMultiByte(text, CodePage::kUtf8).value_or("");
}

// The beginning of a UTF-8 text, of at most this many bytes, cut between characters.
constexpr std::string_view CutUtf8(std::string_view text, std::size_t bytes) noexcept {
    if (text.size() <= bytes) {
        return text;
    }
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) {
        --bytes;
    }
    return text.substr(0, bytes);
}

}  // namespace platform
