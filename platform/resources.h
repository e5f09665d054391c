// The plug-in's string table, in the language of the user interface.
#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

// The text with this number; empty when the table has none. The view lasts as long as the
// plug-in is loaded. It is not terminated.
std::u16string_view ResourceString(std::uint32_t id) noexcept;

// Copies the text with this number, at most units - 1 units of it, and terminates it.
// Returns the units copied; 0, and an empty text, when the table has none. units >= 1.
std::uint32_t LoadResourceString(std::uint32_t id, char16_t* buffer, std::uint32_t units) noexcept;

}  // namespace platform
