// The position of the lyrics of one verse or chorus below a staff.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

namespace LyricBaselineTag {
inline constexpr u32 kVerse = HostTag("dtBv");
inline constexpr u32 kChorus = HostTag("dtBc");
}  // namespace LyricBaselineTag

class FinPILyricBaseline final : public FinPIBaseline {
public:
    // tag: one of LyricBaselineTag. lyric: the number of the verse or chorus.
    FinPILyricBaseline(u32 tag, u16 staff, u16 lyric) : FinPIBaseline{tag, staff, lyric, 0} {}
};
