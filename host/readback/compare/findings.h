// Collects and describes differences.
#pragma once

#include <string>
#include <vector>

#include "host/readback/compare/difference.h"
#include "host/readback/score_content.h"
#include "host/readback/texts.h"

namespace standin::readback {

class Findings {
public:
    // Measures are named as in that score.
    Findings(const Score& score, const Texts& texts) : m_score{score}, m_texts{texts} {}

    // what: as in Difference.
    void Add(u32 part, const Place& place, Difference::Kind kind, std::string what);
    void AddForScore(std::string what) {
        Add(kNone, {}, Difference::Kind::kOther, std::move(what));
    }

    // In the order of places.
    std::vector<Difference> All() const;

    // "m. 12, beat 2.5"
    std::string TimeWords(u32 part, const Place& place) const;
    // What the element says, cut when long.
    std::string Quoted(u32 text) const;

private:
    struct Finding {
        u32 part;
        Place place;
        Difference::Kind kind;
        std::string what;
    };

    Difference At(const Finding& finding) const;
    std::string NumberOf(u32 part, u32 measure) const;
    double BeatOf(u32 part, const Place& place) const;

    const Score& m_score;
    const Texts& m_texts;
    std::vector<Finding> m_findings;
};

}  // namespace standin::readback
