// The text of a verse, chorus or section, by its number.
#pragma once

#include "Class Files/score/document/FinPIRawText.h"

namespace LyricTextTag {
inline constexpr u32 kVerse = HostTag("txve");
inline constexpr u32 kChorus = HostTag("txch");
inline constexpr u32 kSection = HostTag("txse");
}  // namespace LyricTextTag

class FinPILyricText final : public FinPIRawText {
public:
    // tag: one of LyricTextTag.
    using FinPIRawText::FinPIRawText;
};
