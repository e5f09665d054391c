#include "platform/text.h"

#include <windows.h>

#include <climits>

#include "platform/win32/code_page.h"

namespace platform {

namespace {

UINT Number(CodePage page) noexcept {
    return page == CodePage::kUtf8 ? CP_UTF8 : GetACP();
}

}  // namespace

std::optional<std::u16string> MultiByteToUtf16(std::string_view text, CodePage page) {
    if (text.empty()) {
        return std::u16string{};
    }
    if (text.size() > INT_MAX) {
        return std::nullopt;
    }
    const int bytes = static_cast<int>(text.size());
    const int units =
        MultiByteToWideChar(Number(page), MB_ERR_INVALID_CHARS, text.data(), bytes, nullptr, 0);
    if (units == 0) {
        return std::nullopt;
    }
    std::u16string result(static_cast<std::size_t>(units), u'\0');
    if (MultiByteToWideChar(Number(page), MB_ERR_INVALID_CHARS, text.data(), bytes,
                            reinterpret_cast<wchar_t*>(result.data()), units) == 0) {
        return std::nullopt;
    }
    return result;
}

std::optional<std::string> Utf16ToMultiByte(std::u16string_view text, CodePage page) {
    if (text.empty()) {
        return std::string{};
    }
    if (text.size() > INT_MAX) {
        return std::nullopt;
    }
    const DWORD flags = FlagsToCodePage(Number(page));
    const auto* units = reinterpret_cast<const wchar_t*>(text.data());
    const int count = static_cast<int>(text.size());
    const int bytes =
        WideCharToMultiByte(Number(page), flags, units, count, nullptr, 0, nullptr, nullptr);
    if (bytes == 0) {
        return std::nullopt;
    }
    std::string result(static_cast<std::size_t>(bytes), '\0');
    if (WideCharToMultiByte(Number(page), flags, units, count, result.data(), bytes, nullptr,
                            nullptr) == 0) {
        return std::nullopt;
    }
    return result;
}

}  // namespace platform
