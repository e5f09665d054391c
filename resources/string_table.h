// The plug-in's texts, both languages of a text side by side.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace resources {

struct StringEntry {
    std::uint32_t id;
    std::u16string_view english;
    std::u16string_view spanish;
};

// Every text, in the order of its number.
std::span<const StringEntry> StringTable() noexcept;

}  // namespace resources
