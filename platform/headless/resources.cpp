#include "platform/resources.h"

#include <algorithm>

#include "platform/headless/state.h"
#include "resources/string_table.h"

namespace platform {

std::u16string_view ResourceString(std::uint32_t id) noexcept {
    const auto table = resources::StringTable();
    const auto entry = std::ranges::lower_bound(table, id, {}, &resources::StringEntry::id);
    if (entry == table.end() || entry->id != id) {
        return {};
    }
    return headless::CurrentLanguage() == headless::Language::kSpanish ? entry->spanish
                                                                       : entry->english;
}

std::uint32_t LoadResourceString(std::uint32_t id, char16_t* buffer, std::uint32_t units) noexcept {
    const std::u16string_view text = ResourceString(id).substr(0, units - 1);
    *std::ranges::copy(text, buffer).out = u'\0';
    return static_cast<std::uint32_t>(text.size());
}

}  // namespace platform
