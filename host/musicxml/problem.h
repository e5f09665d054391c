// The reason why a score is refused.
#pragma once

#include <cstddef>
#include <string>

namespace standin {

struct Problem {
    std::string message;     // one line; empty = none
    std::size_t offset = 0;  // in the score's text

    explicit operator bool() const noexcept { return !message.empty(); }
};

}  // namespace standin
