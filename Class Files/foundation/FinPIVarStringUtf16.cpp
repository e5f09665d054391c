#include "Class Files/foundation/FinPIVarStringUtf16.h"

#include <array>
#include <cstdarg>
#include <cstring>
#include <string>
#include <vector>

#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "platform/resources.h"

namespace {

using Traits = std::char_traits<char16>;

// Every UTF-8 byte becomes at most one unit.
std::vector<char16> Decode(const char* utf8) {
    std::vector<char16> text(std::strlen(utf8) + 1);
    FinPIUniStringUtil::UniChar_Utf16encode(text.data(), utf8, text.size());
    return text;
}

}  // namespace

FinPIVarStringUtf16::FinPIVarStringUtf16(const char* utf8) {
    if (utf8 != nullptr) {
        Set(Decode(utf8).data());
    }
}

FinPIVarStringUtf16::FinPIVarStringUtf16(u32 resourceID, ...) {
    FinPIVarString format;
    format.AppendResource(resourceID);
    va_list arguments;
    va_start(arguments, resourceID);
    FinPIVarString text;
    text.SetFormatted(format.Text(), arguments);
    va_end(arguments);
    Set(Decode(text.Text()).data());
}

const char16* FinPIVarStringUtf16::Set(const char16* utf16) {
    SetSize(utf16 == nullptr ? 0 : (Traits::length(utf16) + 1) * sizeof(char16));
    if (utf16 != nullptr) {
        std::memcpy(Elements(), utf16, Size());
    }
    return Elements();
}

void FinPIVarStringUtf16::Append(const char16* utf16) {
    const std::size_t oldLength = Length();
    const std::size_t oldSize = Size() < 3 ? sizeof(char16) : Size();
    const std::size_t appended = Traits::length(utf16) * sizeof(char16);
    SetSize(oldSize + appended);
    std::memcpy(Elements() + oldLength, utf16, appended);
}

void FinPIVarStringUtf16::Append(const char* utf8) {
    if (utf8 != nullptr) {
        Append(Decode(utf8).data());
    }
}

void FinPIVarStringUtf16::AppendResource(u32 resourceID) {
    std::array<char16, kResourceUnits> text;
    platform::LoadResourceString(resourceID, text.data(), kResourceUnits);
    Append(text.data());
}

std::size_t FinPIVarStringUtf16::Length() const noexcept {
    return Traits::length(Text());
}
