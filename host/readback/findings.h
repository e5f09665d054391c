// Collects and describes differences.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

class Findings {
public:
    // Measures are named as in that score.
    Findings(const Score& score, const Texts& texts) : m_score{score}, m_texts{texts} {}

    void Add(u32 part, const Place& place, std::string what);
    void AddForScore(std::string what) { Add(kNone, {}, std::move(what)); }

    // By measure, staff and beat.
    std::vector<std::string> Lines() const;

    // "m. 12, staff 2, beat 2.5"
    std::string PlaceWords(u32 part, const Place& place) const;
    // "m. 12, beat 2.5"
    std::string TimeWords(u32 part, const Place& place) const;
    // The text of an element, cut when long.
    std::string Quoted(u32 text) const;

private:
    struct Finding {
        u32 part;
        Place place;
        std::string what;
    };

    std::string MeasureWords(u32 part, u32 measure) const;
    std::string BeatWords(u32 part, const Place& place) const;

    const Score& m_score;
    const Texts& m_texts;
    std::vector<Finding> m_findings;
};

}  // namespace standin::readback
