// Colors for text on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace standin {

enum class Ink { kHeading, kError, kWarning, kSuccess };

// Puts color codes around a text, or leaves it as it is.
class Paint {
public:
    explicit Paint(bool usesColors = false) : m_usesColors{usesColors} {}
    std::string operator()(Ink ink, std::string_view text) const;

private:
    bool m_usesColors;
};

}  // namespace standin
