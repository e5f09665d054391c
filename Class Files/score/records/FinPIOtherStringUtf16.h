// A UTF-16 text by item and record number.
#pragma once

#include "Class Files/score/records/FinPIEnigmaStringUtf16.h"

class FinPIOtherStringUtf16 final : public FinPIEnigmaStringUtf16 {
public:
    FinPIOtherStringUtf16(u32 tag, u16 cmper1) : FinPIEnigmaStringUtf16{tag, cmper1, 0xFFFF} {}
};
