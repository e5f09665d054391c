// A record that is a UTF-16 text.
#pragma once

#include <string_view>

#include "Class Files/score/records/FinPIEnigmaVarArray.h"

class FinPIEnigmaStringUtf16 : public FinPIEnigmaVarArrayTemplate<char16> {
public:
    // Up to the first zero unit, or to the record's end when it has none.
    std::u16string_view Text() const noexcept;
    // The record takes the text's size with its terminator; null is the empty text.
    void SetText(const char16* utf16);

protected:
    using FinPIEnigmaVarArrayTemplate::FinPIEnigmaVarArrayTemplate;
    ~FinPIEnigmaStringUtf16() override = default;
};
