// Document options, measures, staff systems, expression assignments and the metrics cache.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "Class Files/score/EnigmaRecords.h"
#include "Class Files/score/FinPIMeas.h"
#include "Class Files/score/FinPIMetricsCache.h"
#include "Class Files/score/FinPIMiscPrefs.h"
#include "Class Files/score/FinPIScoreExpr.h"
#include "Class Files/score/FinPIStaff.h"
#include "Class Files/score/FinPIStaffSystem.h"
#include "shell/module/ModuleState.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

using standin::App;
using standin::Bytes;
using standin::BytesOf;
using standin::FaultPlan;
using standin::HostCall;
using standin::RecordKey;
using standin::StandIn;

class ScoreAccess : public testing::Test {
protected:
    ~ScoreAccess() override {
        EXPECT_EQ(TakePendingError(), "");
        FinPIMetricsCache::ClearAll();
        g_module.hostVersion = kInterfaceVersion;
    }

    template <typename Structure>
    void Put(u32 tag, RecordKey key, const Structure& structure) {
        standin::RecordStore& records = host.Score().Records();
        if (records.Find(tag, key) == nullptr) {
            records.Create(tag, key, BytesOf(structure));
        }
        records.Save(tag, key, BytesOf(structure));
    }

    StandIn host{2, 7};
};

TEST_F(ScoreAccess, TheActiveLayerOptionIsReadAndChanged) {
    const FinPIDoc document;
    CurrEDTMiscPrefs prefs{};
    prefs.opaque10[0] = 7;
    Put(HostTag("O\x03OM"), RecordKey::Other(0), prefs);
    EXPECT_EQ(document.ShowActiveLayerOnlyOption(), 0);
    EXPECT_NE(document.SetShowActiveLayerOnlyOption(1), 0);
    EXPECT_EQ(document.ShowActiveLayerOnlyOption(), 1);
    EXPECT_TRUE(App().ShowsActiveLayerOnly());

    FinPIMiscPrefs stored;
    ASSERT_EQ(stored.Load(), 1);
    EXPECT_EQ(stored.opaque10[0], 7) << "the record's other bytes stay";

    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
    EXPECT_EQ(document.ShowActiveLayerOnlyOption(), 0);
    EXPECT_EQ(TakePendingError(),
              "29998 short __cdecl FinPIDoc::ShowActiveLayerOnlyOption(void) const: O\x03OM");
    EXPECT_EQ(document.SetShowActiveLayerOnlyOption(0), 0);
    EXPECT_EQ(TakePendingError(),
              "29998 short __cdecl FinPIDoc::SetShowActiveLayerOnlyOption(const short): O\x03OM");
}

TEST_F(ScoreAccess, OlderHostsKeepTheOptionsUnderAnotherTag) {
    EXPECT_EQ(FinPIMiscPrefs().Tag(), HostTag("O\x03OM"));
    g_module.hostVersion = kInterfaceVersion - 1;
    EXPECT_EQ(FinPIMiscPrefs().Tag(), HostTag("O\x02OM"));
}

TEST_F(ScoreAccess, PreferencesThatDoNotLoadAreNamed) {
    const FinPIDoc document;
    EXPECT_EQ(document.ClefChangePercent(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIDoc::ClefChangePercent: pfOZ");
    EXPECT_EQ(document.BeamFlagOption(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIDoc::BeamFlagOption: pfOb");
    EDTBeamPrefs26_2 beams{};
    beams.words[5] = 3;
    Put(HostTag("pfOb"), RecordKey::Preference(0), beams);
    EXPECT_EQ(document.BeamFlagOption(), 1);
}

struct OctaveCase {
    const char* name;
    u16 partWord;
    u16 transposition;
    u32 hostVersion;
    u16 preference;
    i16 keeps;
};

TEST_F(ScoreAccess, OctaveTranspositionsFollowThePreference) {
    const u16 octaveDown = 7U << 6U;
    const u16 octaveUp = static_cast<u16>((0x40U - 7U) << 6U);
    const u16 octaveInLowByte = 0x2000 | 0xF9;  // -7
    const OctaveCase cases[] = {
        {"InAPart", 1, octaveDown, kInterfaceVersion, 0, 0},
        {"NoTransposition", 0, 0, kInterfaceVersion, 1, 1},
        {"Second", 0, 1U << 6U, kInterfaceVersion, 1, 1},
        {"SecondInLowByte", 0, 0x2001, kInterfaceVersion, 1, 1},
        {"OldHost", 0, octaveDown, 0x191FFFFF, 1, 1},
        {"FirstHostWithIt", 0, octaveDown, 0x19200000, 1, 0},
        {"Octave", 0, octaveDown, kInterfaceVersion, 1, 0},
        {"OctaveUp", 0, octaveUp, kInterfaceVersion, 1, 0},
        {"OctaveInLowByte", 0, octaveInLowByte, kInterfaceVersion, 1, 0},
        {"OctaveNotPreferred", 0, octaveDown, kInterfaceVersion, 0, 1},
    };
    FinPIStaff staff(host.Staff(1));
    for (const OctaveCase& c : cases) {
        EDTPartPrefs partPrefs{};
        partPrefs.part = c.partWord;
        Put(HostTag("pfPG"), RecordKey::Preference(0xFFFE), partPrefs);
        CurrEDTMiscPrefs prefs{};
        prefs.keepOctaveTransposition = c.preference;
        const u32 tag = HostTag("O\x03OM");
        Put(tag, RecordKey::Other(0), prefs);
        g_module.hostVersion = c.hostVersion;
        staff.transposition = c.transposition;
        EXPECT_EQ(staff.KeepOctaveTranspositionInConcertPitchOption(staff), c.keeps) << c.name;
    }
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
    EXPECT_EQ(staff.KeepOctaveTranspositionInConcertPitchOption(staff), 0);
    EXPECT_EQ(TakePendingError(),
              "29998 short __cdecl FinPIDoc::KeepOctaveTranspositionInConcertPitchOption(void) "
              "const: pfPG");
}

TEST_F(ScoreAccess, MeasuresLoadByNumber) {
    EXPECT_EQ(FinPIMeas(2).beats, 4);
    App().ResetCounts();
    EXPECT_EQ(FinPIMeas(0xFFFF).IsLoaded(), 0);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U);
    EXPECT_EQ(FinPIMeas(8).IsLoaded(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIMeas::FinPIMeas: SOMS");
}

TEST_F(ScoreAccess, MeasureDurationsAreThoseOfTheRecordsDocument) {
    host.Score().SetMeasureDuration(host.Staff(2), 2, 3072);
    const FinPIMeas measure(2);
    App().SetCurrentDocument(App().OpenDocument(u"other").Number());
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, 0, 2), 4096);
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, host.Staff(2), 2), 3072);
    EXPECT_EQ(FinPIMeas::MeasureDuration(measure, 0, 9), 0);
    EXPECT_NE(App().CurrentDocument(), &host.Score());
    App().SetCurrentDocument(host.Score().Number());
}

TEST_F(ScoreAccess, MeasureNumbersFallBackToTheirDigits) {
    host.Score().SetMeasureNumberText(3, u"12a");
    char16 text[8];
    FinPIMeas::MeasureNumberString(3, text, 8);
    EXPECT_EQ(std::u16string(text), u"12a");
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kGetMeasureNumberString);
    FinPIMeas::MeasureNumberString(12345, text, 5);
    EXPECT_EQ(std::u16string(text), u"#123");
}

// Measures 1 to 5 in 4/4 4/4 3/4 3/4 4/4, in the keys 0 0 2 2 1; the second staff is in 2/4 up to
// measure 3 and in 6/4 then, and in key 7.
TEST_F(ScoreAccess, MeasuresShowTheSignaturesThatChange) {
    const i16 beats[] = {4, 4, 3, 3, 4};
    const u16 keys[] = {0, 0, 2, 2, 1};
    for (u16 i = 0; i < 5; ++i) {
        EDTMeasureSpec2014 spec = host.Score().Measure(i + 1);
        spec.beats = beats[i];
        spec.key = keys[i];
        Put(standin::Tag::kMeasure, RecordKey::Other(i + 1), spec);
        EDTMeasureFloat2014 own{};
        own.key = 7;
        own.beats = i < 3 ? 2 : 6;
        own.beatDuration = 1024;
        Put(HostTag("SDFL"), RecordKey::Detail(host.Staff(2), i + 1), own);
    }
    EDTBarlinePrefs26_2 prefs{};
    Put(HostTag("pfOB"), RecordKey::Preference(0), prefs);
    FinPIStaff second(host.Staff(2));
    second.flags = StaffFlag::kOwnKeySig | StaffFlag::kOwnTimeSig;
    ASSERT_EQ(second.Commit(), 1);
    // For each measure the beats shown, and k for a key signature.
    const auto shown = [this](i16 slot) {
        std::string text;
        for (u16 number = 1; number <= 5; ++number) {
            const FinPIMeas measure(number);
            FinPITimeSig signature;
            measure.VisibleTimeSig(static_cast<i16>(host.Staff(slot)), signature);
            text += std::to_string(signature.beats);
            text += measure.InstHasVisibleKeySig(static_cast<i16>(host.Staff(slot))) ? "k " : " ";
        }
        return text;
    };
    EXPECT_EQ(shown(1), "4 0 3k 0 4k ");
    EXPECT_EQ(shown(2), "2k 0 0 6 0 ");
    prefs.hidesFirstSignatures = 1;
    Put(HostTag("pfOB"), RecordKey::Preference(0), prefs);
    EXPECT_EQ(shown(2), "0 0 0 6 0 ");
    FinPIKeyAttributes attributes(0);
    const auto staff = static_cast<i16>(host.Staff(2));
    EXPECT_EQ(FinPIMeas(3).GetKeylessAttributes(staff, attributes), 0);
    second.flags |= StaffFlag::kNoKeySig | StaffFlag::kNoTimeSig;
    ASSERT_EQ(second.Commit(), 1);
    EXPECT_EQ(shown(2), "0 0 0 0 0 ");
    Put(HostTag("otTp"), RecordKey::Other(7), std::array<u16, 3>{1, 2, 3});
    EXPECT_EQ(FinPIMeas(3).GetKeylessAttributes(staff, attributes), 1);
    EXPECT_EQ(attributes.Count(), 3U);

    // What does not load is named, and counts as nothing.
    const FinPIMeas measure(1);
    FinPITimeSig signature;
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kLoadEData);
    measure.VisibleTimeSig(staff, signature);
    EXPECT_EQ(TakePendingError(),
              ("29998 " + std::string("void __cdecl FinPIMeas::VisibleTimeSig(const short,class "
                                      "FinPITimeSig &) const: SOIS")));
    measure.InstHasVisibleKeySig(staff);
    EXPECT_EQ(TakePendingError(),
              "29998 short __cdecl FinPIMeas::InstHasVisibleKeySig(const short) const: SOIS");
    measure.GetKeylessAttributes(staff, attributes);
    EXPECT_EQ(TakePendingError(), "29998 FinPIMeas::GetKeylessAttributes: SOIS");
}

struct TimeSigCase {
    const char* name;
    i16 beats;
    i16 beatDuration;
    bool common;
    bool cut;
    u16 displayFlags;
};

TEST_F(ScoreAccess, CommonAndCutTimeFollowThePreferences) {
    const TimeSigCase cases[] = {
        {"Common", 4, 1024, true, false, 2}, {"NotPreferred", 4, 1024, false, true, 0},
        {"Cut", 2, 2048, false, true, 2},    {"CutNotPreferred", 2, 2048, true, false, 0},
        {"Three", 3, 1024, true, true, 0},   {"FourEighths", 4, 512, true, true, 0},
    };
    for (const TimeSigCase& c : cases) {
        for (u16 inci = 0; inci < 2; ++inci) {
            std::array<u16, 6> options{};
            options[2] = inci == 1 && c.common ? 1 : 0;
            options[3] = inci == 1 && c.cut ? 1 : 0;
            Put(HostTag("otOu"), RecordKey::Other(0, inci), options);
        }
        FinPIMeas measure(1);
        measure.beats = c.beats;
        measure.beatDuration = c.beatDuration;
        const FinPITimeSig signature = measure.GetTimeSig();
        EXPECT_EQ(signature.displayFlags, c.displayFlags) << c.name;
        EXPECT_EQ(signature.beats, c.beats) << c.name;
        EXPECT_TRUE(signature.groupDurations.empty()) << c.name;
    }
}

TEST_F(ScoreAccess, CompositeTimeSignaturesGiveTheirGroups) {
    Put(HostTag("otTU"), RecordKey::Other(9, 0), EDTCompositeTimeSig{{1, 2, 1, 2, 1, 2}});
    Put(HostTag("otTU"), RecordKey::Other(9, 1), EDTCompositeTimeSig{{3, 0, 5, 0, 0, 0}});
    Put(HostTag("otTL"), RecordKey::Other(8, 0), EDTCompositeTimeSig{{512, 1024, 0, 0, 0, 0}});
    FinPIMeas measure(1);
    measure.beats = 9;
    measure.beatDuration = 512;
    measure.flags = MeasureFlag::kCompositeNumerator;
    FinPITimeSig signature = measure.GetTimeSig();
    EXPECT_EQ(signature.displayFlags, FinPITimeSig::kComposite);
    EXPECT_EQ(signature.groupDurations, (std::vector<i32>{512, 1024, 512, 1024, 512, 1024, 1536}));

    measure.beatDuration = 8;
    measure.flags |= MeasureFlag::kCompositeDenominator;
    signature = measure.GetTimeSig();
    EXPECT_EQ(signature.groupDurations,
              (std::vector<i32>{512, 2048, 1024, 2048, 1024, 2048, 3072}));

    measure.beats = 77;
    EXPECT_TRUE(measure.GetTimeSig().groupDurations.empty()) << "no such list";
}

TEST_F(ScoreAccess, StaffSystemsAreFoundByMeasure) {
    host.Score().LayoutSystems(3);
    const std::pair<i16, u16> systems[] = {{1, 1}, {3, 1}, {4, 2}, {7, 3}};
    for (const auto& [measure, system] : systems) {
        EXPECT_EQ(FinPIStaffSystem(measure, 1).GetCmper1(), system) << measure;
    }
    EXPECT_EQ(FinPIStaffSystem(7, 2).GetCmper1(), 3) << "searched from the second";
    EXPECT_EQ(FinPIStaffSystem::FindSystemForMeasure(8, 1), 4) << "after the last";
    EXPECT_EQ(FinPIStaffSystem(8, 1).IsLoaded(), 0);
    EXPECT_EQ(TakePendingError(), "29998 FinPIStaffSystem::FinPIStaffSystem: SOSS");
    App().ResetCounts();
    EXPECT_EQ(FinPIStaffSystem(1, FinPIStaffSystem::kNoSystem).IsLoaded(), 0);

    host.Score().MakeLayoutStale();
    App().ResetCounts();
    EXPECT_EQ(FinPIStaffSystem(4, 1).GetCmper1(), 2);
    EXPECT_EQ(App().calls.Of(HostCall::kUpdateLayout), 1U);
}

TEST_F(ScoreAccess, ExpressionsLearnTheirPlacementFromTheirDefinition) {
    const std::tuple<i16, u16, u16> placements[] = {{0, 0, 0}, {2, 0, 0}, {3, 1, 0},  {4, 0, 0},
                                                    {8, 0, 0}, {9, 1, 1}, {12, 1, 1}, {-1, 0, 0}};
    const u16 record = host.Expression(1, 2, 512, 0);
    MyExpressionAssign assigned{};
    assigned.definition = 60;
    for (const bool isShape : {false, true}) {
        assigned.layer = isShape ? ExpressionLayer::kShapeDefinition : u16{0};
        assigned.cached28[3] = 0x55;  // whatever the host has there
        Put(HostTag("SODY"), RecordKey::Other(2, record), assigned);
        for (const auto& [placement, hasPosition, belongsToEntry] : placements) {
            CurrentEDTShapeExpression definition{};
            definition.horizontalPlacement = placement;
            Put(isShape ? HostTag("O\x03"
                                  "DO")
                        : HostTag("SODT"),
                RecordKey::Other(60), definition);
            FinPIScoreExpr expression(2, record);
            ASSERT_EQ(expression.Load(), 1);
            EXPECT_EQ(expression.hasPosition, hasPosition) << placement;
            EXPECT_EQ(expression.belongsToEntry, belongsToEntry) << placement;
            EXPECT_EQ(expression.cached28[3], 0);
        }
    }
    assigned.definition = 61;
    Put(HostTag("SODY"), RecordKey::Other(2, record), assigned);
    FinPIScoreExpr lost(2, record);
    EXPECT_EQ(lost.Load(), 0);
    EXPECT_EQ(TakePendingError(),
              "29998 short __cdecl FinPIScoreExpr::LoadCachedItems(void): O\x03"
              "DO");
    lost.Rewind();
    EXPECT_EQ(lost.LoadNext(), 0);
    TakePendingError();
}

TEST_F(ScoreAccess, SpecialPartExtractionAsksTheHostOnce) {
    host.Score().SetStaffList(5, {host.Staff(2)});
    Put(HostTag("otPG"), RecordKey::Other(65534), std::array<u16, 6>{0, 0, 0, 5, 0, 0});
    const u16 document = App().CurrentNumber();
    App().SetCurrentDocument(App().OpenDocument(u"other").Number());
    App().ResetCounts();
    EXPECT_EQ(FinPIMetricsCache::SpecPartExtractionCmper(document, host.Staff(2)), 1);
    EXPECT_EQ(FinPIMetricsCache::SpecPartExtractionCmper(document, host.Staff(2)), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kInstToSlot), 1U);
    EXPECT_NE(App().CurrentNumber(), document);

    App().SetCurrentDocument(document);
    App().ResetCounts();
    EXPECT_EQ(FinPIMetricsCache::SpecPartExtractionCmper(document, host.Staff(1)), 0);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U) << "the list is known";
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(FinPIMetricsCache::SpecPartExtractionCmper(document, host.Staff(1)), 0);
    EXPECT_GT(App().calls.Of(HostCall::kLoadEData), 0U);
}

TEST_F(ScoreAccess, MetricsAreKeptUntilTheCacheIsEmptied) {
    using namespace FinPIMetricsCache;
    const EntryKey entry{1, 2, 3, 4};
    const MeasureKey measure{1, 2, 3};
    EntryLookup first = FindEntryMetrics(entry);
    EXPECT_TRUE(first.inserted);
    EXPECT_EQ(+first.metrics.left, 0);
    first.metrics.left = 9;
    EXPECT_FALSE(FindEntryMetrics(entry).inserted);
    EXPECT_EQ(+FindEntryMetrics(entry).metrics.left, 9);
    EXPECT_TRUE(FindEntryMetrics({1, 2, 3, 5}).inserted);
    EXPECT_EQ(FindMeasureMetrics({1, 2, 4}), nullptr);
    FindMeasureMetrics(measure) = &first;
    EXPECT_EQ(FindMeasureMetrics(measure), &first);
    NotePageView(measure, false);
    EXPECT_FALSE(IsShownInPageView(measure));
    EXPECT_TRUE(IsShownInPageView({1, 2, 4}));

    App().ResetCounts();
    ClearAll();
    EXPECT_EQ(App().calls.Of(HostCall::kFreeMeasureMetrics), 1U);
    EXPECT_TRUE(FindEntryMetrics(entry).inserted);
    EXPECT_EQ(FindMeasureMetrics(measure), nullptr);
    EXPECT_TRUE(IsShownInPageView(measure));
}

}  // namespace
