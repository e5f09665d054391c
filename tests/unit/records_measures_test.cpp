// Document options, measures, staff systems, expression assignments and the metrics cache.
#include <array>
#include <tuple>
#include <vector>

#include "Class Files/score/document/FinPIMeas.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "Class Files/score/document/FinPIMiscPrefs.h"
#include "Class Files/score/document/FinPIScoreExpr.h"
#include "Class Files/score/document/FinPIStaff.h"
#include "Class Files/score/document/FinPIStaffSystem.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "shell/module/ModuleState.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

constexpr u32 kMiscPrefs = HostTag("O\x03OM");
constexpr u32 kShapeExpression = HostTag("O\003DO");

class ScoreAccess : public LibraryTest {
protected:
    ScoreAccess() : LibraryTest{2, 7} {}
    ~ScoreAccess() override {
        FinPIMetricsCache::ClearAll();
        g_module.hostVersion = kInterfaceVersion;
    }
};

TEST_F(ScoreAccess, OptionsAreReadFromTheirPreferences) {
    const FinPIDoc document;
    EXPECT_EQ(ErrorOf(document.BeamFlagOption()), "29998 FinPIDoc::BeamFlagOption: pfOb");
    EDTBeamPrefs26_2 beams{};
    beams.words[5] = 3;
    Put(HostTag("pfOb"), RecordKey::Preference(0), beams);
    EXPECT_EQ(document.BeamFlagOption(), 1);
    EXPECT_EQ(ErrorOf(document.ClefChangePercent()), "29998 FinPIDoc::ClefChangePercent: pfOZ");
    g_module.hostVersion = kInterfaceVersion - 1;
    EXPECT_EQ(FinPIMiscPrefs().Tag(), HostTag("O\x02OM")) << "of older hosts";
}

TEST_F(ScoreAccess, UnreadableOptionIsNotSet) {
    Refuse(HostCall::kLoadEData);
    EXPECT_EQ(FinPIDoc{}.SetShowActiveLayerOnlyOption(1), 0);
    EXPECT_EQ(App().calls.Of(HostCall::kCreateEData), 0U);
    EXPECT_EQ(FinPIDoc{}.ShowActiveLayerOnlyOption(), 0);
    EXPECT_NE(TakePendingError(), "");
}

TEST_F(ScoreAccess, OctaveTranspositionsFollowThePreference) {
    constexpr u16 kOctaveDown = 7U << 6U;
    constexpr u16 kOctaveUp = (0x40U - 7U) << 6U;
    FinPIStaff staff(host.Staff(1));
    const auto keeps = [&](u16 part, u16 transposition, u32 hostVersion, u16 preference) {
        EDTPartPrefs partPrefs{};
        partPrefs.part = part;
        Put(HostTag("pfPG"), RecordKey::Preference(0xFFFE), partPrefs);
        CurrEDTMiscPrefs prefs{};
        prefs.keepOctaveTransposition = preference;
        Put(kMiscPrefs, RecordKey::Other(0), prefs);
        g_module.hostVersion = hostVersion;
        staff.transposition = transposition;
        return staff.KeepOctaveTranspositionInConcertPitchOption(staff);
    };
    EXPECT_EQ(keeps(1, kOctaveDown, kInterfaceVersion, 0), 0) << "in a part";
    EXPECT_EQ(keeps(0, 0, kInterfaceVersion, 1), 1);
    EXPECT_EQ(keeps(0, 1U << 6U, kInterfaceVersion, 1), 1) << "a second";
    EXPECT_EQ(keeps(0, 0x2001, kInterfaceVersion, 1), 1) << "a second in the low byte";
    EXPECT_EQ(keeps(0, kOctaveDown, 0x191FFFFF, 1), 1) << "an old host";
    EXPECT_EQ(keeps(0, kOctaveDown, 0x19200000, 1), 0);
    EXPECT_EQ(keeps(0, kOctaveUp, kInterfaceVersion, 1), 0);
    EXPECT_EQ(keeps(0, 0x2000 | 0xF9, kInterfaceVersion, 1), 0) << "an octave in the low byte";
    EXPECT_EQ(keeps(0, kOctaveDown, kInterfaceVersion, 0), 1);
}

TEST_F(ScoreAccess, MeasureDurationUsesRecordDocument) {
    host.Score().SetMeasureDuration(host.Staff(2), 2, 3072);
    const FinPIMeas measure(2);
    const OtherDocument other;
    other->AddMeasure(3, 1024);
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, 0, 2), 4096);
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, host.Staff(2), 2), 3072);
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, 0, 1), 0) << "not the other document's";
}

TEST_F(ScoreAccess, MeasureNumbersFallBackToDigits) {
    host.Score().SetMeasureNumberText(3, u"12a");
    char16 text[8];
    FinPIMeas::MeasureNumberString(3, text, 8);
    EXPECT_EQ(std::u16string(text), u"12a");
    Refuse(HostCall::kGetMeasureNumberString);
    FinPIMeas::MeasureNumberString(12345, text, 5);
    EXPECT_EQ(std::u16string(text), u"#123");
    App().faults = {};
    App().faults.pretendKind = HostCall::kGetMeasureNumberString;
    std::fill_n(text, 8, u'+');
    FinPIMeas::MeasureNumberString(3, text, 4);
    EXPECT_EQ(std::u16string(text), u"") << "nothing was written";
    EXPECT_EQ(text[4], u'+');
}

// Measures 1 to 5 in 4/4 4/4 3/4 3/4 4/4, in the keys 0 0 2 2 1; the second staff is in 2/4 up to
// measure 3 and in 6/4 then, and in key 7.
class Signatures : public ScoreAccess {
protected:
    Signatures() {
        const std::pair<i16, u16> signatures[] = {{4, 0}, {4, 0}, {3, 2}, {3, 2}, {4, 1}};
        for (u16 number = 1; const auto& [beats, key] : signatures) {
            EDTMeasureSpec2014 spec = host.Score().Measure(number);
            spec.beats = beats;
            spec.key = key;
            Put(Tag::kMeasure, RecordKey::Other(number), spec);
            EDTMeasureFloat2014 own{};
            own.key = 7;
            own.beats = number <= 3 ? 2 : 6;
            own.beatDuration = 1024;
            Put(HostTag("SDFL"), RecordKey::Detail(host.Staff(2), number++), own);
        }
        HideTheFirst(0);
        SetFlags(StaffFlag::kOwnKeySig | StaffFlag::kOwnTimeSig);
    }

    void HideTheFirst(u16 hides) {
        EDTBarlinePrefs26_2 prefs{};
        prefs.hidesFirstSignatures = hides;
        Put(HostTag("pfOB"), RecordKey::Preference(0), prefs);
    }
    void SetFlags(u16 flags) {  // of the second staff
        FinPIStaff second(host.Staff(2));
        second.flags = flags;
        ASSERT_EQ(second.Commit(), 1);
    }
    // For each measure the beats shown, and k for a key signature.
    std::string Shown(i16 slot) {
        const auto staff = static_cast<i16>(host.Staff(slot));
        std::string text;
        for (u16 number = 1; number <= 5; ++number) {
            const FinPIMeas measure(number);
            FinPITimeSig signature;
            measure.VisibleTimeSig(staff, signature);
            text += std::to_string(signature.beats);
            text += measure.InstHasVisibleKeySig(staff) != 0 ? "k " : " ";
        }
        return text;
    }
};

TEST_F(Signatures, ShowWhereTheyChange) {
    EXPECT_EQ(Shown(1), "4 0 3k 0 4k ");
    EXPECT_EQ(Shown(2), "2k 0 0 6 0 ");
    HideTheFirst(1);
    EXPECT_EQ(Shown(2), "0 0 0 6 0 ");
    SetFlags(StaffFlag::kNoKeySig | StaffFlag::kNoTimeSig);
    EXPECT_EQ(Shown(2), "0 0 0 0 0 ");
}

TEST_F(Signatures, KeylessStavesHaveAttributes) {
    const auto staff = static_cast<i16>(host.Staff(2));
    const FinPIMeas third(3);
    FinPIKeyAttributes attributes(0);
    EXPECT_EQ(third.GetKeylessAttributes(staff, attributes), 0);
    SetFlags(StaffFlag::kNoKeySig | StaffFlag::kOwnKeySig);
    Put(HostTag("otTp"), RecordKey::Other(7), std::array<u16, 3>{1, 2, 3});
    EXPECT_EQ(third.GetKeylessAttributes(staff, attributes), 1);
    EXPECT_EQ(attributes.Count(), 3U);
    Put(HostTag("otTp"), RecordKey::Other(7), std::array<u16, 2>{1, 2});
    EXPECT_EQ(third.GetKeylessAttributes(staff, attributes), 1);
    EXPECT_EQ(attributes.Count(), 2U) << "loaded again";
    Refuse(HostCall::kLoadEData);
    EXPECT_TRUE(ErrorOf(third.GetKeylessAttributes(staff, attributes)).ends_with("SOIS"));
    const OtherDocument other;
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    FinPITimeSig signature;
    third.VisibleTimeSig(staff, signature);
    EXPECT_EQ(signature, (FinPITimeSig{0, 0, 0, {}}));
    EXPECT_EQ(third.InstHasVisibleKeySig(staff) + third.GetKeylessAttributes(staff, attributes), 0);
}

TEST_F(ScoreAccess, CommonAndCutTimeFollowThePreferences) {
    FinPIMeas measure(1);
    const OtherDocument other;
    const struct {
        i16 beats, beatDuration;
        u16 common, cut, displayFlags;
    } cases[] = {{4, 1024, 1, 0, 2}, {4, 1024, 0, 1, 0}, {2, 2048, 0, 1, 2}, {2, 2048, 1, 0, 0},
                 {3, 1024, 1, 1, 0}, {4, 512, 1, 1, 0},  {3, 2048, 1, 1, 0}};
    for (const auto& [beats, beatDuration, common, cut, displayFlags] : cases) {
        Put(HostTag("otOu"), RecordKey::Other(0, 1), std::array<u16, 6>{0, 0, common, cut});
        measure.beats = beats;
        measure.beatDuration = beatDuration;
        EXPECT_EQ(measure.GetTimeSig().displayFlags, displayFlags) << beats << ' ' << common;
    }
}

TEST_F(ScoreAccess, CompositeTimeSignaturesHaveGroups) {
    Put(HostTag("otTU"), RecordKey::Other(9, 0), EDTCompositeTimeSig{{1, 2, 1, 2, 1, 2}});
    Put(HostTag("otTU"), RecordKey::Other(9, 1), EDTCompositeTimeSig{{3, 0, 5, 0, 0, 0}});
    Put(HostTag("otTU"), RecordKey::Other(9, 2), EDTCompositeTimeSig{{7, 0, 0, 0, 0, 0}});
    Put(HostTag("otTL"), RecordKey::Other(8, 0), EDTCompositeTimeSig{{512, 1024, 0, 0, 0, 0}});
    FinPIMeas measure(1);
    measure.beats = 9;
    measure.beatDuration = 512;
    measure.flags = MeasureFlag::kCompositeNumerator;
    EXPECT_EQ(measure.GetTimeSig().displayFlags, FinPITimeSig::kComposite);
    EXPECT_EQ(measure.GetTimeSig().groupDurations,
              (std::vector<i32>{512, 1024, 512, 1024, 512, 1024, 1536}));

    const OtherDocument other;  // has no such lists
    measure.beatDuration = 8;
    measure.flags |= MeasureFlag::kCompositeDenominator;
    EXPECT_EQ(measure.GetTimeSig().groupDurations,
              (std::vector<i32>{512, 2048, 1024, 2048, 1024, 2048, 3072}));
    measure.beats = 77;
    App().ResetCounts();
    EXPECT_TRUE(measure.GetTimeSig().groupDurations.empty()) << "no such list";
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 2U);
    measure.beats = 9;
    measure.flags = MeasureFlag::kCompositeDenominator;
    EXPECT_EQ(measure.GetTimeSig().groupDurations, (std::vector<i32>{9 * 512, 9 * 1024}));
}

TEST_F(ScoreAccess, FindsStaffSystemByMeasure) {
    host.Score().LayoutSystems(3);
    const std::pair<i16, u16> systems[] = {{1, 1}, {3, 1}, {4, 2}, {7, 3}};
    for (const auto& [measure, system] : systems) {
        EXPECT_EQ(FinPIStaffSystem(measure, 1).GetCmper1(), system) << measure;
    }
    EXPECT_EQ(FinPIStaffSystem::FindSystemForMeasure(8, 2), 4) << "after the last";
    EXPECT_EQ(ErrorOf(FinPIStaffSystem(8, 1).IsLoaded()),
              "29998 FinPIStaffSystem::FinPIStaffSystem: SOSS");
    EXPECT_EQ(ErrorOf(FinPIStaffSystem(1, FinPIStaffSystem::kNoSystem).IsLoaded()), "");
    EXPECT_EQ(ErrorOf(FinPIMeas(0xFFFF).IsLoaded()), "") << "no measure in particular";
    const std::pair<i16, i16> stale[] = {{i16{0}, i16{4}}, {i16{1}, i16{0}}};
    for (const auto& [first, next] : stale) {
        EDTStaffSystemSpec2005 record{};
        record.firstMeasure = first;
        record.nextSystemFirstMeasure = next;
        Put(Tag::kStaffSystem, RecordKey::Other(1), record);
        App().ResetCounts();
        EXPECT_EQ(FinPIStaffSystem(5, 1).GetCmper1(), 2) << first;
        EXPECT_EQ(App().calls.Of(HostCall::kUpdateLayout), 1U) << first;
        Put(Tag::kStaffSystem, RecordKey::Other(1), record);
        RefuseOnly(HostCall::kLoadEData, 2);
        EXPECT_EQ(FinPIStaffSystem::FindSystemForMeasure(5, 1), 1) << "cannot be read again";
    }
}

TEST_F(ScoreAccess, DefinitionPlacesExpression) {
    const std::tuple<i16, u16, u16> placements[] = {{0, 0, 0}, {2, 0, 0}, {3, 1, 0},  {4, 0, 0},
                                                    {8, 0, 0}, {9, 1, 1}, {-1, 0, 0}, {12, 1, 1}};
    const std::pair<u32, u16> kinds[] = {{HostTag("SODT"), u16{0}},
                                         {kShapeExpression, ExpressionLayer::kShapeDefinition}};
    const u16 record = host.Expression(1, 2, 512, 0);
    MyExpressionAssign assigned{};
    assigned.definition = 60;
    assigned.cached28[3] = 0x55;  // whatever the host has there
    for (const auto& [tag, layer] : kinds) {
        assigned.layer = layer;
        Put(HostTag("SODY"), RecordKey::Other(2, record), assigned);
        for (const auto& [placement, hasPosition, belongsToEntry] : placements) {
            CurrentEDTShapeExpression definition{};
            definition.horizontalPlacement = placement;
            Put(tag, RecordKey::Other(60), definition);
            FinPIScoreExpr expression(2, record);
            ASSERT_EQ(expression.Load(), 1);
            EXPECT_EQ(expression.hasPosition, hasPosition) << placement;
            EXPECT_EQ(expression.belongsToEntry, belongsToEntry) << placement;
            EXPECT_EQ(expression.cached28[3], 0);
        }
    }
    FinPIScoreExpr lost(1);
    EXPECT_EQ(lost.LoadLastCmper1(3) + lost.belongsToEntry, 2);
    {
        const OtherDocument other;
        EXPECT_EQ(lost.LoadCachedItems() + lost.belongsToEntry, 2);
    }
    host.Score().Records().Delete(kShapeExpression, RecordKey::Other(60));
    lost.Reset(record);
    EXPECT_TRUE(ErrorOf(lost.Load()).starts_with("29998"));
    EXPECT_EQ(lost.hasPosition + lost.belongsToEntry, 0);
    EXPECT_TRUE(ErrorOf(lost.LoadLastInci()).starts_with("29998"));
    lost.Rewind();
    EXPECT_TRUE(ErrorOf(lost.LoadNext()).starts_with("29998") && lost.IsNull() != 0);
}

TEST_F(ScoreAccess, SpecialPartExtractionIsCached) {
    host.Score().SetStaffList(5, {host.Staff(2)});
    Put(HostTag("otPG"), RecordKey::Other(65534), std::array<u16, 6>{0, 0, 0, 5, 0, 0});
    const auto extracts = [&, document = App().CurrentNumber()](i16 slot) {
        return FinPIMetricsCache::SpecPartExtractionCmper(document, host.Staff(slot));
    };
    {
        const OtherDocument other;
        Refuse(HostCall::kSetCurrentEnigmaDocument);
        EXPECT_EQ(extracts(2), 0);
        App().ResetCounts();
        EXPECT_EQ(extracts(2) + extracts(2), 2);
        EXPECT_EQ(App().calls.Of(HostCall::kInstToSlot), 1U);
    }
    App().ResetCounts();
    EXPECT_EQ(extracts(1), 0);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U) << "the list is known";
    {
        const OtherDocument other;  // every staff is in its list, the scroll view's
        other->AddStaff(host.Staff(1));
        EXPECT_EQ(FinPIMetricsCache::SpecPartExtractionCmper(other->Number(), host.Staff(1)), 1);
    }
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(extracts(1), 0);
    EXPECT_GT(App().calls.Of(HostCall::kLoadEData), 0U);
}

TEST_F(ScoreAccess, ClearedCacheFreesMetrics) {
    using namespace FinPIMetricsCache;
    int metrics = 0;
    FindMeasureMetrics({1, 2, 3}) = &metrics;
    for (const i16 other : {i16{4}, i16{5}}) {
        EXPECT_EQ(FindMeasureMetrics({1, 2, other}), nullptr);
    }
    NotePageView({1, 2, 3}, false);
    EXPECT_TRUE(IsShownInPageView({1, 2, 4}));
    ClearAll();
    EXPECT_EQ(App().calls.Of(HostCall::kFreeMeasureMetrics), 1U);
    EXPECT_EQ(FindMeasureMetrics({1, 2, 3}), nullptr);
    EXPECT_TRUE(IsShownInPageView({1, 2, 3}));
}

}  // namespace
}  // namespace standin
