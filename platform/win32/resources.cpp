#include "platform/resources.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/plugin_module.h"

namespace platform {

std::u16string_view ResourceString(std::uint32_t id) noexcept {
    // With a size of 0, LoadStringW returns a pointer to the text in the module.
    const wchar_t* text = nullptr;
    const int units = LoadStringW(PluginModule(), id, reinterpret_cast<wchar_t*>(&text), 0);
    if (units <= 0 || text == nullptr) {
        return {};
    }
    return {reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(units)};
}

std::uint32_t LoadResourceString(std::uint32_t id, char16_t* buffer, std::uint32_t units) noexcept {
    const std::u16string_view text = ResourceString(id).substr(0, units - 1);
    *std::ranges::copy(text, buffer).out = u'\0';
    return static_cast<std::uint32_t>(text.size());
}

}  // namespace platform
