// The reason why a score is refused.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/texts/texts.h"

namespace standin {

struct Problem {
    std::string message;     // one line; empty = none
    std::size_t offset = 0;  // in the score's text

    Problem() = default;
    Problem(Text text, std::size_t where, const std::vector<std::string>& values = {})
        : message{Say(text, values)}, offset{where} {}

    explicit operator bool() const noexcept { return !message.empty(); }
};

}  // namespace standin
