#include "Class Files/foundation/FinPIVarString.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "platform/resources.h"

namespace {

// Empty when the format is not valid for its arguments.
std::string Format(const char* format, va_list arguments) {
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    if (length < 0) {
        return {};
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

}  // namespace

FinPIVarString::FinPIVarString(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    SetFormatted(format, arguments);
    va_end(arguments);
}

void FinPIVarString::SetFormatted(const char* format, va_list arguments) {
    Set(Format(format, arguments).c_str());
}

const char* FinPIVarString::Set(const char* utf8) {
    SetSize(utf8 == nullptr ? 0 : std::strlen(utf8) + 1);
    if (utf8 != nullptr) {
        std::memcpy(Elements(), utf8, Size());
    }
    return Elements();
}

void FinPIVarString::AppendResource(u32 resourceID) {
    std::array<char16, kResourceUnits> resource;
    platform::LoadResourceString(resourceID, resource.data(), kResourceUnits);
    std::array<char, kResourceUnits> text;
    FinPIUniStringUtil::UniChar_Utf8encode(text.data(), resource.data(), text.size());
    const std::size_t oldSize = Size() < 2 ? 1 : Size();
    const std::size_t oldLength = std::strlen(Text());
    const std::size_t length = std::strlen(text.data());
    SetSize(oldSize + length);
    std::memcpy(Elements() + oldLength, text.data(), length);
}
