#include "platform/resources.h"

#include <algorithm>

#include "platform/headless/state.h"
#include "resources/string_table.h"

namespace platform {

std::u16string_view ResourceString(std::uint32_t id) noexcept {
    const auto table = resources::StringTable();
    const auto entry = std::lower_bound(
        table.begin(), table.end(), id,
        [](const resources::StringEntry& text, std::uint32_t wanted) { return text.id < wanted; });
    if (entry == table.end() || entry->id != id) {
        return {};
    }
    return headless::CurrentLanguage() == headless::Language::kSpanish ? entry->spanish
                                                                       : entry->english;
}

std::uint32_t LoadResourceString(std::uint32_t id, char16_t* buffer, std::uint32_t units) noexcept {
    const std::u16string_view text = ResourceString(id).substr(0, units - 1);
    *std::copy(text.begin(), text.end(), buffer) = u'\0';
    return static_cast<std::uint32_t>(text.size());
}

}  // namespace platform
