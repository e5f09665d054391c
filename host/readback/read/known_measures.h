// Measures of a file that a file read before has word for word.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/readback/score_content.h"

namespace standin::readback {

class KnownMeasures {
public:
    // before: what the text xmlBefore says; it must outlive this object. tuplet: the number of the
    // element's name.
    KnownMeasures(const Score& before, std::string_view xmlBefore, std::string_view xml,
                  u32 tuplet);

    const Score& Before() const { return m_before; }
    // The text with an empty element in place of each known measure.
    const std::string& Rest() const { return m_rest; }
    // What the earlier file says of the measure; null if it is not known. Both count from 0.
    const MeasureContent* Find(u32 part, u32 measure) const;

private:
    const Score& m_before;
    std::string m_rest;
    std::vector<std::vector<bool>> m_isKnown;  // by part and measure
};

}  // namespace standin::readback
