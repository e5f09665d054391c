// Texts as the Windows build makes them.
#include "platform/text.h"

#include <gtest/gtest.h>

#include "Class Files/foundation/FinPIVarString.h"
#include "platform/win32/code_page.h"

namespace {

// va_list is a pointer to characters here: a text must not be taken for one.
TEST(Texts, AreFormattedFromTextsThatCouldBeWritten) {
    char staff[] = "Flute";
    char* const name = staff;
    EXPECT_STREQ(FinPIVarString("%s", name).Text(), "Flute");
    EXPECT_STREQ(FinPIVarString("%s %d", name, 2).Text(), "Flute 2");
}

// Windows refuses the flag against best-fit mapping where the system's own code page is UTF-8.
TEST(Texts, GoToTheSystemsCodePageWhateverItIs) {
    EXPECT_EQ(platform::FlagsToCodePage(CP_UTF8), 0U);
    EXPECT_EQ(platform::FlagsToCodePage(1252), static_cast<DWORD>(WC_NO_BEST_FIT_CHARS));
    for (const UINT codePage : {UINT{CP_UTF8}, UINT{1252}, GetACP()}) {
        const int bytes = WideCharToMultiByte(codePage, platform::FlagsToCodePage(codePage),
                                              L"(No)", 4, nullptr, 0, nullptr, nullptr);
        EXPECT_EQ(bytes, 4) << codePage;
    }
    EXPECT_EQ(platform::Utf16ToMultiByte(u"Plyweld", platform::CodePage::kAnsi), "Plyweld");
}

}  // namespace
