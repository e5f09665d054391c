// Documents and the names of staves as the plug-in sees them.
#include <array>

#include "tests/unit/support/loan.h"

namespace standin {
namespace {

TEST(HostDocuments, AreListedByNumberAndOneIsCurrent) {
    StandIn host;
    const u16 first = host.Score().Number();
    const u16 second = App().OpenDocument(u"C:\\two.musicxml").Number();
    const u16 third = App().OpenDocument(u"three").Number();
    App().CloseDocument(second);
    EXPECT_EQ(FX_GetNextEnigmaDocument(0, kInterfaceVersion), first);
    EXPECT_EQ(FX_GetNextEnigmaDocument(first, kInterfaceVersion), third);
    EXPECT_EQ(FX_GetNextEnigmaDocument(third, kInterfaceVersion), 0);
    EXPECT_EQ(FX_SetCurrentEnigmaDocument(second, kInterfaceVersion), 0);
    std::array<char16, 4> path{};
    EXPECT_EQ(FX_GetDocumentPath(third, path.data(), 4, kInterfaceVersion), 1);
    EXPECT_EQ(std::u16string{path.data()}, u"thr") << "cut, with its end";
    EXPECT_EQ(FX_GetDocumentPath(second, path.data(), 4, kInterfaceVersion), 0);
}

TEST(HostStaves, NamesThatAreSharedAreNumbered) {
    StandIn host{0};
    host.Score().AddStaff(4, u"Violin");
    host.Score().AddStaff(2, u"Viola");
    host.Score().AddStaff(9, u"Violin");
    const auto name = [](u16 staff) {
        std::array<char16, 511> text{};
        FX_AutoNumberedName_UTF16(staff, 1, 0, text.data(), kInterfaceVersion);
        return std::u16string{text.data()};
    };
    EXPECT_EQ(name(4), u"Violin 1");
    EXPECT_EQ(name(2), u"Viola");
    EXPECT_EQ(name(9), u"Violin 2");
    EXPECT_EQ(name(5), u"");
}

}  // namespace
}  // namespace standin
