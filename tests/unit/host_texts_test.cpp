// Documents, parts, staff lists, staff systems, names and dialogs as the plug-in sees them.
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
    WINDOWINFO info{};
    EXPECT_EQ(FX_GetCurrentWindowInfo(&info, kInterfaceVersion), 1);
    EXPECT_EQ(info.document, first);
}

TEST(HostDocuments, PartsAreWalkedAndChosen) {
    StandIn host;
    host.Score().AddPart(2, u"Violin");
    host.Score().AddPart(5, u"Viola");
    EXPECT_EQ(FX_GetNextPartID(0, kInterfaceVersion), 2);
    EXPECT_EQ(FX_GetNextPartID(2, kInterfaceVersion), 5);
    EXPECT_LT(FX_GetNextPartID(5, kInterfaceVersion), 0);
    EXPECT_EQ(FX_SetCurrentPartID(5, kInterfaceVersion), 1);
    EXPECT_EQ(FX_SetCurrentPartID(3, kInterfaceVersion), 0);
    EXPECT_EQ(FX_GetCurrentPartID(kInterfaceVersion), 5);
    std::array<char16, 20> name{};
    EXPECT_EQ(FX_GetPartName_UTF16(5, name.data(), 20, kInterfaceVersion), 1);
    EXPECT_EQ(std::u16string{name.data()}, u"Viola");
    EXPECT_EQ(FX_GetPartName_UTF16(0, name.data(), 20, kInterfaceVersion), 0);
}

TEST(HostStaves, ListsMapSlotsToStaves) {
    StandIn host{3};
    constexpr u16 kStaffSet = 65500;
    host.Score().SetStaffList(kStaffSet, {host.Staff(3), host.Staff(1)});
    EXPECT_EQ(FX_SlotToInst(2, kStaffSet, kInterfaceVersion), host.Staff(1));
    EXPECT_EQ(FX_SlotToInst(3, kStaffSet, kInterfaceVersion), 0);
    EXPECT_EQ(FX_SlotToInst(0, 0, kInterfaceVersion), 0);
    EXPECT_EQ(FX_SlotToInst(1, 3, kInterfaceVersion), 0) << "no such list";
    EXPECT_EQ(FX_InstToSlot(host.Staff(3), kStaffSet, kInterfaceVersion), 1);
    EXPECT_EQ(FX_InstToSlot(host.Staff(2), kStaffSet, kInterfaceVersion), 0);
    EXPECT_EQ(FX_InstToSlot(host.Staff(2), 0, kInterfaceVersion), 2);
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

TEST(HostLayout, SystemsAreNumberedFromOneAndCanBeStale) {
    StandIn host{1, 10};
    host.Score().LayoutSystems(4);
    const auto systems = [] {
        std::string text;
        for (u16 system = 1;; ++system) {
            const u16 key[] = {system, 0};
            EDTStaffSystemSpec2005 record{};
            u32 size = sizeof(record);
            if (FX_LoadEData(Tag::kStaffSystem, key, &record, &size, kInterfaceVersion) == 0) {
                return text;
            }
            text += std::to_string(record.firstMeasure) + '-' +
                    std::to_string(record.nextSystemFirstMeasure) + ' ';
        }
    };
    EXPECT_EQ(systems(), "1-5 5-9 9-11 ");
    host.Score().MakeLayoutStale();
    EXPECT_EQ(systems(), "0-0 0-0 0-0 ");
    EXPECT_EQ(FX_UpdateLayout(1, kInterfaceVersion), 1);
    EXPECT_EQ(systems(), "1-5 5-9 9-11 ");
    host.Score().LayoutSystems(20);
    EXPECT_EQ(systems(), "1-11 ");
}

TEST(HostTexts, MeasureNumbersAreAsPrinted) {
    StandIn host{1, 3};
    host.Score().SetMeasureNumberText(2, u"2a");
    const auto text = [](i16 measure) {
        std::array<char16, 24> buffer{};
        FX_GetMeasureNumberString(measure, buffer.data(), 24, 1, 0, kInterfaceVersion);
        return std::u16string{buffer.data()};
    };
    EXPECT_EQ(text(1), u"1");
    EXPECT_EQ(text(2), u"2a");
    EXPECT_EQ(text(4), u"");
}

TEST(HostTexts, SelectionAndWholeDocumentComeTogether) {
    StandIn host{2, 3};
    u64 result = 9;
    EREGION selection{};
    EREGION whole{};
    EXPECT_EQ(FX_GetCurERegions(&result, &selection, &whole, kInterfaceVersion), 0);
    EXPECT_EQ(result, 0U);
    EXPECT_EQ(whole.endSlot, 2);
    EXPECT_EQ(whole.endMeasure, 3);
    EXPECT_EQ(i32{whole.endPosition}, kEndOfMeasure);
    host.Select(2, 1, 512, 2, 3, 1023);
    EXPECT_EQ(FX_GetCurERegions(&result, &selection, &whole, kInterfaceVersion), 1);
    EXPECT_EQ(i32{selection.startPosition}, 512);
    EXPECT_EQ(i32{selection.endPosition}, 1023);
    EXPECT_EQ(FX_GetCurERegions(nullptr, &selection, &whole, kInterfaceVersion), 0);
}

TEST(HostAlerts, AreLoggedAndPassedOn) {
    StandIn host;
    std::u16string heard;
    App().alertListener = [&heard](const Alert& alert) { heard = alert.text; };
    EXPECT_EQ(FX_AlertMessage_UTF16(nullptr, 0, 0, u"Message", kInterfaceVersion), 1);
    EXPECT_EQ(heard, u"Message");
    EXPECT_EQ(FX_AlertMessage_UTF16(nullptr, 0, 22003, nullptr, kInterfaceVersion), 1);
    ASSERT_EQ(App().alerts.size(), 2U);
    EXPECT_EQ(App().alerts[1].stringId, 22003);
    EXPECT_EQ(FX_AlertMessage_UTF16(nullptr, 0, 0, nullptr, kInterfaceVersion), 0);
}

}  // namespace
}  // namespace standin
