#include "Class Files/score/records/FinPIEnigmaStringUtf16.h"

#include <algorithm>

std::u16string_view FinPIEnigmaStringUtf16::Text() const noexcept {
    const std::u16string_view units{Values().data(), Values().size()};
    return units.substr(0, units.find(u'\0'));
}

void FinPIEnigmaStringUtf16::SetText(const char16* utf16) {
    const std::u16string_view text{utf16 == nullptr ? u"" : utf16};
    SetCount(static_cast<u32>(text.size()) + 1);
    std::ranges::copy(text, Values().begin());
    Values()[text.size()] = u'\0';
}
