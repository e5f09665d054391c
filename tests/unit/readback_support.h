// The second reader's differences between two scores.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "host/readback/compare/compare.h"
#include "host/readback/read/read_content.h"
#include "tests/unit/support/musicxml_text.h"

namespace standin {

inline const std::string kStaccato =
    "<notations><articulations><staccato/></articulations></notations>";

// The order of lines at one place does not matter.
inline std::string Sorted(const std::string& lines) {
    std::vector<std::string> all;
    for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
        all.push_back(lines.substr(at, lines.find('\n', at) + 1 - at));
    }
    std::ranges::sort(all);
    std::string sorted;
    for (const std::string& line : all) {
        sorted += line;
    }
    return sorted;
}

// The lines for two scores, joined by line breaks, without the usual beginning.
class Compared {
public:
    Compared(const std::string& before, const std::string& after)
        : m_before{readback::ReadContentOfText(before, m_texts)},
          m_after{readback::ReadContentOfText(after, m_texts)},
          m_again{readback::ReadContentOfResult(after, m_texts, *m_before.score, before)} {
        EXPECT_EQ(m_before.problem, "");
        EXPECT_EQ(m_after.problem, "");
        EXPECT_EQ(m_again.problem, "");
    }

    std::string Differences() const {
        return Same([this](const readback::Score& after) {
            return readback::Differences(*m_before.score, after, m_texts);
        });
    }
    std::string Faults(const std::vector<readback::ClearedMusic>& cleared = {}) const {
        return Same([&](const readback::Score& after) {
            return readback::FaultsOfMerge(*m_before.score, after, m_texts, cleared);
        });
    }

private:
    // Whether unchanged measures are read again or taken from before makes no difference.
    template <typename Compare>
    std::string Same(Compare compare) const {
        std::string lines = Joined(compare(*m_after.score));
        EXPECT_EQ(Joined(compare(*m_again.score)), lines);
        return lines;
    }

    static std::string Joined(const std::vector<readback::Difference>& differences) {
        constexpr std::string_view kUsualPlace = "m. 1, staff 1, beat ";
        std::string text;
        for (const readback::Difference& difference : differences) {
            const std::string line = WordsFor(difference);
            text += line.starts_with(kUsualPlace) ? line.substr(kUsualPlace.size()) : line;
            text += '\n';
        }
        return text;
    }

    readback::Texts m_texts;
    readback::Reading m_before;
    readback::Reading m_after;
    readback::Reading m_again;
};

}  // namespace standin
