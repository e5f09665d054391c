// What the report says, in the language of the host's user interface.
#pragma once

#include <string>
#include <vector>

namespace probe {

enum class Text {
#define PROBE_TEXT(name, english, spanish) name,
#include "probe/texts.inc"
#undef PROBE_TEXT
};

// In UTF-8. values: for {0}, {1} and {2}.
std::string Say(Text text, const std::vector<std::string>& values = {});

// Whole numbers as values.
template <typename... Numbers>
std::string SayNumbers(Text text, Numbers... numbers) {
    return Say(text, {std::to_string(numbers)...});
}

}  // namespace probe
