// The selection region: staves, time, endpoints, staff lists and its description.
#include <array>
#include <tuple>

#include "Class Files/score/records/EnigmaRecords.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "platform/headless/session.h"
#include "tests/unit/support/library_test.h"
#include "tests/unit/support/mannered.h"

namespace standin {
namespace {

constexpr u16 kSystemList = 3;
constexpr u16 kStaffSet = 65501;
constexpr u16 kEmptyList = 65502;

class Region : public LibraryTest {
protected:
    Region() : LibraryTest{3, 9} {
        host.Score().SetStaffList(kSystemList, {host.Staff(3), host.Staff(1)});
        host.Score().SetStaffList(kStaffSet, {host.Staff(2)});
    }
    ~Region() override { platform::headless::SetLanguage(platform::headless::Language::kEnglish); }

    FinPIRegion Of(const EREGION& region) { return {region, host.Score().Number()}; }
    static EREGION Span(i16 startMeasure, i32 startPosition, i16 endMeasure, i32 endPosition) {
        return {0, 1, startMeasure, startPosition, 0, 3, endMeasure, endPosition};
    }
};

TEST_F(Region, MapsSlotsToStaves) {
    FinPIRegion region = Of({kSystemList, 1, 1, 0, 0, 3, 1, kEndOfMeasure});
    EXPECT_EQ(region.StaffOfSlot(1), host.Staff(3));
    EXPECT_EQ(region.SlotOfStaff(host.Staff(1)), 2);
    EXPECT_EQ(region.SlotOfStaff(host.Staff(2)), 0);
    EXPECT_TRUE(region.IsTopStaff(host.Staff(3)));
    EXPECT_TRUE(region.IsBottomStaff(host.Staff(1)));
    region.StaffList() = {50, 60, 50, 70};
    region.StaffList().pop_back();
    EXPECT_EQ(region.StaffOfSlot(3), 50);
    EXPECT_EQ(region.StaffOfSlot(0) + region.StaffOfSlot(4), 0);
    EXPECT_EQ(region.SlotOfStaff(50), 1);
    EXPECT_EQ(region.SlotOfStaff(99), 0);
    EXPECT_TRUE(region.IsBottomStaff(50));
    EXPECT_EQ(FinPIRegion{region}.StaffOfSlot(2), host.Staff(1)) << "a copy asks the host again";
}

TEST_F(Region, ContainsStavesInEitherOrder) {
    const FinPIRegion region = Of({0, 3, 1, 0, 0, 2, 1, kEndOfMeasure});
    EXPECT_FALSE(region.ContainsStaff(host.Staff(1)));
    EXPECT_TRUE(region.ContainsStaff(host.Staff(2)));
    EXPECT_TRUE(region.ContainsStaff(host.Staff(3)));
    EXPECT_FALSE(Of({0, 0, 1, 0, 0, 2, 1, 0}).ContainsStaff(999)) << "a staff that is not listed";
}

TEST_F(Region, ContainsBothEnds) {
    const FinPIRegion region = Of(Span(2, 512, 4, 1023));
    const std::tuple<i16, i32, bool> cases[] = {{1, 4000, false}, {2, 511, false}, {2, 512, true},
                                                {3, 0, true},     {3, 9999, true}, {4, 1023, true},
                                                {4, 1024, false}, {5, 0, false}};
    for (const auto& [measure, position, isInside] : cases) {
        EXPECT_EQ(region.ContainsTime(measure, position), isInside) << measure << ":" << position;
    }
}

TEST_F(Region, MeasuresPartOfEachMeasure) {
    const std::tuple<EREGION, i16, i32, i32> cases[] = {
        {Span(3, 512, 3, kEndOfMeasure), 3, 3584, 3584},
        {Span(3, 512, 3, 1023), 3, 512, 512},
        {Span(3, 512, 3, 100), 3, 0, 0},
        {Span(2, 1024, 4, 2047), 2, 3072, 9216},
        {Span(2, 1024, 4, 2047), 3, 4096, 9216},
        {Span(2, 1024, 4, 2047), 4, 2048, 9216},
        {Span(2, 5000, 3, kEndOfMeasure), 2, 0, 4096},
    };
    for (const auto& [span, measure, duration, total] : cases) {
        EXPECT_EQ(Of(span).DurationInRegion(measure), duration);
        EXPECT_EQ(Of(span).TotalDuration(), total);
    }
    FinPIRegion region = Of(Span(2, 0, 3, kEndOfMeasure));
    region.MeasureDurations() = {1000};
    EXPECT_EQ(region.TotalDuration(), 5096) << "its own durations come first, then the host's";
    EXPECT_EQ(region.MeasureDuration(10), 0);
}

TEST_F(Region, NormalizesEndpoints) {
    host.Score().SetMeasureDuration(0, 4, 3072);
    host.Score().SetMeasureDuration(0, 6, 1);
    const FinPIRegion region = Of(Span(1, 0, 1, 0));
    const struct {
        i16 measure;
        i32 position;
        bool equalAllowed, clamp;
        const char* normal;
    } cases[] = {
        {2, 5000, false, false, "3:904"},   {2, 4096, false, false, "3:0"},
        {2, 4096, true, false, "2:4096"},    // the end may stay
        {2, 12000, false, false, "5:736"},   // over measures of different lengths
        {2, -100, false, false, "1:3996"},   //
        {5, -100, false, false, "4:2972"},   // back into a shorter measure
        {5, -3073, false, false, "3:4095"},  // and through it
        {9, 5000, false, true, "9:4095"},    // its last place
        {1, -5000, false, true, "1:0"},      // its first place
        {9, 5000, false, false, "refused"},  //
        {1, -1, false, false, "refused"},    //
        {20, 0, false, true, "refused"},     // too far for one step back
        {6, 0, false, false, "6:0"},         // of a measure of one unit
    };
    for (auto [measure, position, equalAllowed, clamp, normal] : cases) {
        SCOPED_TRACE(normal);
        const bool isNormal = region.NormalizeEndpoint(measure, position, equalAllowed, clamp) != 0;
        EXPECT_EQ(isNormal ? std::to_string(measure) + ":" + std::to_string(position) : "refused",
                  normal);
    }
}

TEST_F(Region, InBackgroundDocumentHasNoView) {
    const EREGION span = Span(2, 0, 3, kEndOfMeasure);
    FinPIRegion region;
    {
        const OtherDocument other;
        region.SetRegion(&span);
    }
    EXPECT_TRUE(region == (FinPIRegion{span, host.Score().Number()}));
}

TEST_F(Region, NormalizesBothEndsOrNeither) {
    FinPIRegion region = Of(Span(2, 5000, 8, kEndOfMeasure));
    EXPECT_EQ(region.NormalizeEndpoints(false, false, false), 1);
    EXPECT_TRUE(region == Of(Span(3, 904, 8, kEndOfMeasure)));
    FinPIRegion outside = Of(Span(2, 5000, 9, 5000));
    EXPECT_EQ(outside.NormalizeEndpoints(false, false, false), 0);
    EXPECT_TRUE(outside == Of(Span(2, 5000, 9, 5000)));
    EXPECT_EQ(Of(Span(99, 0, 8, kEndOfMeasure)).NormalizeEndpoints(false, false, false), 0);
}

TEST_F(Region, ChangesToAnotherStaffList) {
    const struct {
        EREGION region;
        u16 list;
        i16 startSlot, endSlot;
        const char* refused;  // which slot is not in the list, and becomes its first or last
    } cases[] = {
        {{0, 1, 1, 0, kSystemList, 1, 1, 0}, kSystemList, 2, 1, nullptr},
        {{0, 1, 1, 0, 0, 2, 1, 0}, kStaffSet, 1, 1, "first"},
        {{0, 1, 1, 0, 0, 2, 1, 0}, kSystemList, 2, 2, "last"},
        {{0, 1, 1, 0, 0, 2, 1, 0}, kEmptyList, 1, 0, "first"},
    };
    for (const auto& [span, list, startSlot, endSlot, refused] : cases) {
        FinPIRegion region = Of(span);
        region.StaffList() = {50};
        region.ChangeToIUList(list);
        EXPECT_TRUE(region.StaffList().empty());
        const std::string error = "29999 void __cdecl FinPIRegion::ChangeToIUList(const int): New ";
        EXPECT_EQ(TakePendingError(), refused == nullptr ? "" : error + refused + " slot is zero.");
        EXPECT_EQ(region.startStaffList, list);
        EXPECT_EQ(region.startSlot, startSlot);
        EXPECT_EQ(region.endSlot, endSlot);
    }
}

TEST_F(Region, AsksOnlyItsOwnDocument) {
    FinPIRegion region = Of({0, 2, 1, 0, 0, 2, 1, kEndOfMeasure});
    const OtherDocument other;
    other->AddStaff(50);
    other->SetStaffList(kStaffSet, {50});
    EXPECT_EQ(region.StaffOfSlot(2), host.Staff(2));
    EXPECT_EQ(region.SlotOfStaff(host.Staff(2)), 2);
    EXPECT_EQ(region.Description(), u"score Staff 2 Bar 1 - Bar 1 End");
    region.ChangeToIUList(kStaffSet);
    EXPECT_EQ(region.startSlot + region.endSlot, 2);
    EXPECT_EQ(TakePendingError(), "");

    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(region.Description(), u"");
    EXPECT_EQ(region.StaffOfSlot(1) + region.SlotOfStaff(host.Staff(2)), 0);
    region.ChangeToIUList(0);
    EXPECT_TRUE(TakePendingError().ends_with("New first slot is zero."));
    EXPECT_EQ(region.startSlot + region.endSlot, 0);
}

TEST_F(Region, EqualityIncludesDocumentAndView) {
    const EREGION span = Span(1, 0, 2, kEndOfMeasure);
    FinPIRegion region;
    region.SetRegion(&span);
    const FinPIRegion before{region};
    EXPECT_TRUE(region == before);
    App().view = 1;
    region.SetRegion(&span);
    EXPECT_FALSE(region == before);
    region.SetRegion(nullptr);
    EXPECT_EQ(region.startMeasure, 0);
    EXPECT_TRUE(region == FinPIRegion{});
    EXPECT_FALSE((FinPIRegion{span, App().OpenDocument(u"other").Number()} == Of(span)));
}

TEST_F(Region, KeepsFramesOfItsLayer) {
    const EREGION span = Span(1, 0, 2, kEndOfMeasure);
    FinPIRegion region = Of(span);
    region.SetOneLayer(2);
    FinPITGFPtr& frame = region.OneLayerFrame(host.Staff(1), 2);
    EXPECT_EQ(frame.Layer(), 2);
    region.OneLayerFrame(host.Staff(2), 2);
    EXPECT_EQ(&region.OneLayerFrame(host.Staff(1), 2), &frame);
    FinPIRegion copy{region};
    EXPECT_EQ(App().lent.Count(), 2U) << "frames stay with the region that loaded them";
    copy.OneLayerFrame(host.Staff(1), 1);
    copy.SetOneLayer(1);
    EXPECT_EQ(copy.OneLayerFrame(host.Staff(1), 1).Layer(), 1);
    copy = region;
    region.SetRegion(&span);
    EXPECT_EQ(App().lent.Count(), 0U);
    region.StaffList() = {50};
    region.MeasureDurations() = {1000};
    region.Release();
    EXPECT_EQ(region.StaffOfSlot(1), host.Staff(1));
    EXPECT_EQ(region.MeasureDuration(1), 4096);
}

TEST_F(Region, DescribesPathStavesMeasuresBeats) {
    const std::pair<EREGION, const char16_t*> cases[] = {
        {{0, 2, 3, 1024, 0, 2, 3, 2047}, u"score Staff 2 Bar 3 Beat 2 - Bar 3 Beat 2.999"},
        {{0, 1, 1, 0, 0, 3, 9, kEndOfMeasure}, u"score Staff 1 Bar 1 - Staff 3 Bar 9 End"},
        {{kSystemList, 1, 1, 2560, kSystemList, 2, 2, kEndOfMeasure},
         u"score Staff 3 Bar 1 Beat 3.5 - Staff 1 Bar 2 End [Optimized System. (You selected 2 "
         u"staves.)]"},
        {{65500, 1, 1, 0, 65500, 1, 1, kEndOfMeasure}, u"score  Bar 1 - Bar 1 End [Staff Set 1.]"},
        {{kStaffSet, 1, 1, 0, kStaffSet, 1, 1, kEndOfMeasure},
         u"score Staff 2 Bar 1 - Bar 1 End [Staff Set 2.]"},
    };
    for (const auto& [region, text] : cases) {
        EXPECT_EQ(Of(region).Description(), text);
        const Mannered taciturn{&Manners::taciturn};
        EXPECT_EQ(Of(region).Description(), text) << "what is written counts";
    }
    EXPECT_EQ(Of({0, 1, 99, 1024, 0, 1, 99, kEndOfMeasure}).Description(),
              u"score Staff 1 Bar #99 - Bar #99 End");
    EXPECT_EQ(TakePendingError(), "29998 FinPIMeas::FinPIMeas: SOMS");
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    EXPECT_EQ(Of({0, 1, 1, 1024, 0, 3, 9, kEndOfMeasure}).Description(),
              u"score Staff 1 Compás 1 Tiempo 2 - Staff 3 Compás 9 Final");
}

TEST_F(Region, DescriptionNamesPartAndLayer) {
    FinPIRegion region = Of({0, 1, 1, 0, 0, 1, 1, kEndOfMeasure});
    region.SetOneLayer(1);
    EXPECT_EQ(region.DescriptionText(),
              std::u16string(u"score Layer 2: Staff 1 Bar 1 - Bar 1 End"));
    host.Score().AddPart(1, u"Flute");
    host.Score().currentPart = 1;
    for (bool Manners::*const manner : {&Manners::wide, &Manners::taciturn, &Manners::talkative}) {
        const Mannered mannered{manner};
        EXPECT_EQ(region.Description(), u"score - Flute Layer 2: Staff 1 Bar 1 - Bar 1 End");
    }
    host.Score().currentPart = 0;
    Put(FinPIPartView(0).Tag(), RecordKey::Other(0), std::array<u16, 6>{});
    EXPECT_EQ(region.Description(), u"score Layer 2: Staff 1 Bar 1 - Bar 1 End");
    host.Score().currentPart = 9;
    EXPECT_EQ(region.Description(), u"score Layer 2: Staff 1 Bar 1 - Bar 1 End")
        << "a part without a record has no name";
    host.Score().currentPart = 1;
    host.Score().SetPath(std::u16string(2000, u'p'));
    EXPECT_EQ(region.Description(), std::u16string(1023, u'p'));
}

TEST_F(Region, CountsBeatsOfCompositeSignature) {
    Put(HostTag("otTU"), RecordKey::Other(5), std::array<i16, 6>{3, 2});
    const auto described = [&](i16 beatDuration, u16 flags = MeasureFlag::kCompositeNumerator) {
        EDTMeasureSpec2014 measure = host.Score().Measure(1);
        measure.beats = 5;
        measure.beatDuration = beatDuration;
        measure.flags = flags;
        Put(Tag::kMeasure, RecordKey::Other(1), measure);
        return Of({0, 1, 1, 768, 0, 1, 1, 3072}).Description();
    };
    EXPECT_EQ(described(512), u"score Staff 1 Bar 1 Beat 1.5 - Bar 1 Beat 3.5");
    EXPECT_EQ(described(0), u"score Staff 1 Bar 1 - Bar 1") << "groups that last no time";
    EXPECT_EQ(described(9, MeasureFlag::kCompositeDenominator), described(0)) << "no such list";
}

}  // namespace
}  // namespace standin
