// Mistakes in a file that do not prevent reading it as other programs do.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "host/texts/texts.h"

namespace standin {

struct ReadWarning {
    std::string message;     // the mistake, and how it is read
    std::size_t offset = 0;  // of the first such place in the score's text
    std::size_t line = 1;    // likewise, from 1
    int count = 1;           // how many places

    // "a <duration> is 0, and counts as what the note's type says (3 times)"
    std::string Words() const {
        return count > 1 ? Say(Text::kManyTimes, {message, std::to_string(count)}) : message;
    }
};

class ReadWarnings {
public:
    // Mistakes of the same kind share one warning.
    void Add(std::string_view message, std::size_t offset) {
        const auto known = std::ranges::find(m_all, message, &ReadWarning::message);
        if (known != m_all.end()) {
            ++known->count;
        } else {
            m_all.push_back({std::string{message}, offset, 1, 1});
        }
    }

    std::vector<ReadWarning>& All() noexcept { return m_all; }
    const std::vector<ReadWarning>& All() const noexcept { return m_all; }

private:
    std::vector<ReadWarning> m_all;  // in order of their first place
};

}  // namespace standin
