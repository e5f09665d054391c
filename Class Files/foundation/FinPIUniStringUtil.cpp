#include "Class Files/foundation/FinPIUniStringUtil.h"

#include <algorithm>
#include <optional>
#include <string>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "platform/text.h"

namespace FinPIUniStringUtil {
namespace {

// Copies what fits, zero-fills the rest and terminates the destination, like strncpy.
template <typename Unit>
void CopyCut(Unit* destination, const Unit* source, u64 length, u64 size) {
    const u64 copied = std::min(length, size - 1);
    std::copy_n(source, copied, destination);
    std::fill_n(destination + copied, size - copied, Unit{});
}

// Nothing when the text is neither UTF-8 nor ANSI text, or none at all.
std::optional<std::u16string> Decode(const char* source) {
    if (source == nullptr) {
        return std::nullopt;
    }
    std::optional<std::u16string> text =
        platform::MultiByteToUtf16(source, platform::CodePage::kUtf8);
    return text ? text : platform::MultiByteToUtf16(source, platform::CodePage::kAnsi);
}

}  // namespace

char* UniChar_Utf8encode(char* destination, const char16* source, u64 size) {
    const std::optional<std::string> text =
        source != nullptr ? platform::Utf16ToMultiByte(source, platform::CodePage::kUtf8)
                          : std::nullopt;
    if (text) {
        CopyCut(destination, text->data(), text->size(), size);
        return destination;
    }
    PostError(
        FinPIAppError("char *__cdecl FinPIUniStringUtil::UniChar_Utf8encode(char *,"
                      "const unsigned short *,const unsigned __int64)",
                      "UTF8 conversion failed."));
    destination[0] = '\0';
    return destination;
}

char16* UniChar_Utf16encode(char16* destination, const char* source, u64 size) {
    const std::optional<std::u16string> text = Decode(source);
    if (text) {
        CopyCut(destination, text->data(), text->size(), size);
        return destination;
    }
    PostError(
        FinPIAppError("unsigned short *__cdecl FinPIUniStringUtil::UniChar_Utf16encode("
                      "unsigned short *,const char *,const unsigned __int64,const short)",
                      "UTF16 conversion failed."));
    destination[0] = u'\0';
    return destination;
}

char16* UniChar_strchr(char16* text, u32 character) {
    if (character >= 0x10000) {
        PostError(
            FinPIAppError("unsigned short *__cdecl FinPIUniStringUtil::UniChar_strchr("
                          "unsigned short *const ,unsigned long)",
                          "Non-zero Unicode code pages not supported at this time."));
        return nullptr;
    }
    while (*text != character && *text != u'\0') {
        ++text;
    }
    return *text == character ? text : nullptr;
}

char16* UniChar_strncpyUtf8(char16* destination, const char* utf8, u64 size) {
    const FinPIVarStringUtf16 text(utf8);
    CopyCut(destination, text.Text(), text.Length(), size);
    return destination;
}

char16* UniChar_strcatUtf8(char16* destination, const char* utf8) {
    const FinPIVarStringUtf16 text(utf8);
    std::copy_n(text.Text(), text.Length() + 1,
                destination + std::char_traits<char16>::length(destination));
    return destination;
}

char16* UniChar_strcatInt(char16* destination, u32 value) {
    const FinPIVarString digits("%d", static_cast<i32>(value));
    return UniChar_strcatUtf8(destination, digits.Text());
}

}  // namespace FinPIUniStringUtil
