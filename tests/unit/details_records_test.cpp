// Which records of the target a copy meets: equal ones, those of the same note, and the
// variants for stems up and down. What is posted when the host refuses.
#include <string_view>
#include <vector>

#include "Class Files/score/EntryDetailKinds.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace {

using standin::App;
using standin::FaultPlan;
using standin::HostCall;

constexpr u32 kArticulation = HostTag("edIM");
constexpr u32 kNotehead = HostTag("E\002cn");
constexpr u32 kVerse = HostTag("SdvE");

struct EqualCase {
    const char* name;
    u32 tag;
    std::vector<std::string_view> source;
    std::vector<std::string_view> target;
    const char* after;
};

const EqualCase kEqualCases[] = {
    {"AnEqualOneIsNotDoubled", kArticulation, {"dot", "line"}, {"dot"}, "dot,line"},
    {"AsManyEqualOnesAsTheSourceHas", kArticulation, {"dot", "dot"}, {"dot"}, "dot,dot"},
    {"OtherOnesAreAdded", kArticulation, {"a"}, {"b", "c"}, "b,c,a"},
    // The first four bytes are the verse and the syllable.
    {"ASyllableIsBroughtUpToDate", kVerse, {"\1\1\1\1new"}, {"\1\1\1\1old"}, "\1\1\1\1new"},
    {"AnotherVerseIsAdded", kVerse, {"\2\1\1\1b"}, {"\1\1\1\1a"}, "\1\1\1\1a,\2\1\1\1b"},
    {"AnAlterationWithoutValueIsNotStored", HostTag("edST"), {""}, {}, ""},
};

class EqualRecords : public Details, public testing::WithParamInterface<EqualCase> {};

TEST_P(EqualRecords, AreOne) {
    Write("q:c4", "q:c4");
    for (const std::string_view content : GetParam().source) {
        host.Attach(Source(), GetParam().tag, content);
    }
    for (const std::string_view content : GetParam().target) {
        host.Attach(Target(), GetParam().tag, content);
    }
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Details, EqualRecords, testing::ValuesIn(kEqualCases),
                         [](const auto& test) { return test.param.name; });

struct NoteCase {
    const char* name;
    u32 kinds;
    const char* source;
    const char* target;
    char sourceNote;  // note IDs count from 1
    char targetNote;  // 0 = not copied
};

const NoteCase kNoteCases[] = {
    {"ToTheSamePitch", kOntoChord, "q:e4,g4", "q:c4,e4,g4", 2, 3},
    {"ToTheSameSpelling", kOntoChord, "q:d#4", "q:eb4,d#4", 1, 2},
    {"ToTheFirstOfEqualPitches", kOntoChord, "q:g4", "q:g4,g4", 1, 1},
    {"NotToAnotherPitch", kOntoChord, "q:g4", "q:c4,e4", 1, 0},
    {"ToTheSamePlace", DetailKind::kNoteheadMods, "q:e4,g4", "q:c4,e4,g4", 2, 2},
    {"NotPastTheLastNote", DetailKind::kNoteheadMods, "q:e4,g4", "q:e4", 2, 0},
};

class NoteDetails : public Details, public testing::WithParamInterface<NoteCase> {};

TEST_P(NoteDetails, GoToOneNoteOfTheChordAndCarryItsID) {
    Write(GetParam().source, GetParam().target);
    host.Attach(Source(), kNotehead, OfNote(GetParam().sourceNote, "x"));
    LoadBoth();
    for (int time = 1; time <= 2; ++time) {
        EXPECT_EQ(Copy(GetParam().kinds), 1);
        EXPECT_EQ(host.Attached(Target(), kNotehead),
                  GetParam().targetNote == 0 ? "" : OfNote(GetParam().targetNote, "x"))
            << "time " << time;
    }
}

INSTANTIATE_TEST_SUITE_P(Details, NoteDetails, testing::ValuesIn(kNoteCases),
                         [](const auto& test) { return test.param.name; });

TEST_F(Details, WhatIsOfATieGoesToATiedNote) {
    constexpr u32 kTieStart = HostTag("E\003Ts");
    Write("q:g4~", "q:g4,g4~");
    host.Attach(Source(), kTieStart, OfNote(1, "tie"));
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kTieStart), OfNote(2, "tie"));
    source.EntryAt(0)->notes[0].flags &= ~NoteFlag::kTieStart;
    target.EntryAt(0)->notes[0].flags |= NoteFlag::kTieStart;
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kTieStart), OfNote(2, "tie")) << "the source is not tied";
}

// Of two layers with music the first has its stems up, the second down.
TEST_F(Details, AVariantForStemsUpBecomesTheOneForStemsDown) {
    Write("e:c4 e:d4 h.:r", "e:c4 e:d4 h.:r");
    host.Attach(Source(), HostTag("edSU"), "up");
    host.Attach(Source(), HostTag("edDE"), "of no use with the stem up");
    host.Attach(Source(), HostTag("edUE"), "longer");
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), HostTag("edsl")), "up");
    EXPECT_EQ(host.Attached(Target(), HostTag("edDE")), "longer");
    EXPECT_EQ(App().calls.Of(HostCall::kGetEntryMetrics), 2U) << "once an entry";
    EXPECT_EQ(Delete(kFromSource), 1);
    EXPECT_EQ(host.Attached(Source(), HostTag("edSU")), "");
    EXPECT_TRUE(source.EntryAt(0).HasFlag(DetailFlag::kBeamExtension)) << "one is left";
    EXPECT_FALSE(source.EntryAt(0).HasFlag(DetailFlag::kStemOrBeamMods));
}

TEST_F(Details, ARestUnderABeamHasTheStemOfItsNeighbours) {
    Write("e:r h.:r e:r", "e:r e:c4 e:r e:d4 h:r");
    LoadBoth();
    EXPECT_EQ(target.EntryAt(0).StemDirection(), -1) << "the first under the beam";
    EXPECT_EQ(target.EntryAt(2).StemDirection(), -1);
    for (const i16 note : {i16{1}, i16{3}}) {
        target.EntryAt(note)->flags |= standin::HostEntryFlag::kFixedStem;
        target.EntryAt(note)->flags |= standin::HostEntryFlag::kStemUp;
    }
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(target.EntryAt(2).StemDirection(), 1);
    target.EntryAt(2)->flags |= DetailFlag::kPrimaryBeamBreak;
    target.EntryAt(3)->flags &= ~standin::HostEntryFlag::kStemUp;
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(target.EntryAt(2).StemDirection(), -1) << "the beam begins at the rest";
    EXPECT_EQ(target.EntryAt(0).StemDirection(), 1);
    EXPECT_EQ(source.EntryAt(1).StemDirection(), 1) << "no stem anywhere";
}

TEST_F(Details, HiddenEntriesAndPagelessMeasuresHaveNoStem) {
    Write("q:c4!", "q:c4");
    host.Attach(Source(), HostTag("edub"), "stub");
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1) << "nothing asks for a stem";
    EXPECT_EQ(TakePendingError(), "");
    host.Attach(Source(), HostTag("edSU"), "custom");
    EXPECT_EQ(Copy(kOntoChord), 1) << "the copy goes on";
    EXPECT_EQ(TakePendingError(), "29985 ");
    host.Score().SetPageOfMeasure(1, 0);
    FinPIMetricsCache::ClearAll();
    target.EntryAt(0).StemDirection();
    EXPECT_EQ(TakePendingError(), "29986 ");
}

struct RefusedCase {
    const char* name;
    HostCall refused;
    bool isDelete;
    const char* onTarget;  // articulations; equal ones are saved rather than created
    const char* error;
};

const RefusedCase kRefusedCases[] = {
    {"Create", HostCall::kCreateEData, false, nullptr, "29997 FinPIEntryDetail::Create: edIM"},
    {"Save", HostCall::kSaveEData, false, "dot", "29996 FinPIEntryDetail::Save: edIM"},
    {"Load", HostCall::kLoadEData, false, nullptr, "29998 FinPIEntryDetail::Load: edIM"},
    {"Delete", HostCall::kDeleteEData, true, nullptr, "29995 FinPIEntryDetail::Delete: edIM"},
    {"LoadBeforeDelete", HostCall::kLoadEData, true, nullptr, "29998 FinPIEntryDetail::Load: edIM"},
};

class Refused : public Details, public testing::WithParamInterface<RefusedCase> {};

TEST_P(Refused, FailsForThatKindAloneAndIsPosted) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), kArticulation, "dot");
    host.Attach(Source(), kVerse, "la");
    if (GetParam().onTarget != nullptr) {
        host.Attach(Target(), kArticulation, GetParam().onTarget);
    }
    LoadBoth();
    App().faults.refuseKind = FaultPlan::OfKind{GetParam().refused, 1, 1};
    if (GetParam().isDelete) {
        EXPECT_EQ(Delete(kFromSource), -1);
    } else {
        EXPECT_EQ(Copy(kOntoChord), 0);
    }
    EXPECT_EQ(TakePendingError(), GetParam().error);
    EXPECT_EQ(host.Attached(GetParam().isDelete ? Source() : Target(), kVerse),
              GetParam().isDelete ? "" : "la");
}

INSTANTIATE_TEST_SUITE_P(Host, Refused, testing::ValuesIn(kRefusedCases),
                         [](const auto& test) { return test.param.name; });

// A pair with several records of several kinds, moved as a merge moves them while the host
// refuses calls: what is not at the target for certain must still be at the source.
class FaultyMove final : public Details {
public:
    explicit FaultyMove(const FaultPlan& plan) {
        Write("e:c4,e4 e:d4 h.:r", "e:c4,e4 e:d4 h.:r");
        for (const Kind& kind : kKinds) {
            for (const std::string_view content : kind.contents) {
                host.Attach(Source(), kind.tag, content);
            }
        }
        host.Attach(Target(), kArticulation, "b");
        LoadBoth();
        App().faults = plan;
        const bool isCopied = Copy(kOntoChord) == 1;
        const bool isDeleted = isCopied && Delete(kFromSource) == 1;
        m_anyRefused = App().calls.refusedByPlan != 0;
        App().faults = {};
        EXPECT_EQ(TakePendingError().empty(), isDeleted);
        for (const Kind& kind : kKinds) {
            const std::string atSource = host.Attached(Source(), kind.tag);
            EXPECT_TRUE(isCopied || atSource == kind.before) << kind.before;
            EXPECT_TRUE(!isCopied || host.Attached(Target(), kind.tagAfter) == kind.after)
                << kind.after;
            EXPECT_TRUE(!isDeleted || atSource.empty()) << atSource;
        }
    }
    void TestBody() override {}
    bool AnyRefused() const { return m_anyRefused; }

private:
    struct Kind {
        u32 tag;
        std::vector<std::string_view> contents;
        std::string before;
        u32 tagAfter;  // the target's stem is down
        std::string after;
    };

    const std::vector<Kind> kKinds{
        {kArticulation, {"a", "b", "c"}, "a,b,c", kArticulation, "b,a,c"},
        {kVerse, {"\1\1\1\1x", "\2\1\1\1y"}, "\1\1\1\1x,\2\1\1\1y", kVerse, "\1\1\1\1x,\2\1\1\1y"},
        {kNotehead,
         {{"\1\0n", 3}, {"\2\0m", 3}},
         OfNote(1, "n") + "," + OfNote(2, "m"),
         kNotehead,
         OfNote(1, "n") + "," + OfNote(2, "m")},
        {HostTag("edUE"), {"u", "v"}, "u,v", HostTag("edDE"), "u,v"},
    };
    bool m_anyRefused = false;
};

TEST(DetailFaults, NoRefusedCallLosesADetail) {
    constexpr HostCall kCalls[] = {HostCall::kLoadEData, HostCall::kPreviousEData,
                                   HostCall::kCreateEData, HostCall::kSaveEData,
                                   HostCall::kDeleteEData};
    for (const HostCall call : kCalls) {
        for (const bool isOnlyOne : {true, false}) {
            bool anyRefused = true;
            for (u64 nth = 1; anyRefused; ++nth) {
                SCOPED_TRACE(std::string{NameOf(call)} + " " + std::to_string(nth) +
                             (isOnlyOne ? "" : " on"));
                FaultPlan plan;
                plan.refuseKind = FaultPlan::OfKind{call, nth, isOnlyOne ? nth : ~u64{0}};
                anyRefused = FaultyMove{plan}.AnyRefused();
            }
        }
    }
}

TEST_F(Details, RecordsOfAnotherDocumentAreNotTouched) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), kArticulation, "dot");
    LoadBoth();
    const FinPIEntryPtr entry = source.EntryAt(0);
    App().SetCurrentDocument(App().OpenDocument(u"other").Number());
    const u8 data[12]{};
    const std::string text = ": Attempted to update a non-current document";
    EXPECT_EQ(entry.CreateEntryDetail(kArticulation, data, sizeof(data), 0, kInterfaceVersion), 0);
    EXPECT_EQ(TakePendingError(),
              // The name of an operation is cut at 99 characters.
              "29999 short __cdecl FinPIEntryPtr::CreateEntryDetail(const unsigned long,void *,"
              "const long,const short,co" +
                  text);
    EXPECT_EQ(entry.SaveEntryDetail(kArticulation, 0, data, sizeof(data), kInterfaceVersion), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIEntryPtr::SaveEntryDetail" + text);
    EXPECT_EQ(entry.DeleteEntryDetail(kArticulation, 0, kInterfaceVersion), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIEntryPtr::DeleteEntryDetail" + text);
    App().SetCurrentDocument(host.Score().Number());
    EXPECT_EQ(FinPIEntryPtr{}.DeleteEntryDetail(kArticulation, 0, kInterfaceVersion), 0);
}

// An articulation whose definition cannot be copied.
class LostDefinition final : public FinPIArticulation {
public:
    using FinPIArticulation::FinPIArticulation;
    i16 CopyDependentStructs(const FinPIEntryDetail& /*source*/) override { return 0; }
};

TEST_F(Details, ARecordOfAnotherDocumentComesWithWhatItRefersToOrNotAtAll) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), kArticulation, "dot");
    LoadBoth();
    App().SetCurrentDocument(App().OpenDocument(u"other").Number());
    const FinPIEntryPtr elsewhere{target.Frame(), 0};  // of the current document
    LostDefinition to{elsewhere};
    LostDefinition from{source.EntryAt(0)};
    i16 anyCopied = 0;
    EXPECT_EQ(FinPIEntryDetail::CopyDetail(to, from, true, anyCopied), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEntryDetail::CopyDetail: CopyDependentStructs() failed.");
    EXPECT_EQ(anyCopied, 0);
    App().SetCurrentDocument(host.Score().Number());
}

TEST_F(Details, RecordsAreLoadedBeforeTheyAreSaved) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), kArticulation, "dot");
    LoadBoth();
    FinPIArticulation articulation{source.EntryAt(0)};
    EXPECT_EQ(articulation.Save(), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEntryDetail::Save: Attempted to Save but never Loaded.");
    EXPECT_EQ(articulation.Load(), 1);
    EXPECT_EQ(articulation.Create(), 0);
    EXPECT_EQ(TakePendingError(),
              "29999 FinPIEntryDetail::Create: Attempted to Create but already Loaded.");
    FinPIBeamStubDirection stub{source.EntryAt(0)};
    EXPECT_EQ(stub.IsSame(articulation), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIEntryDetail::IsSame: dynamic_cast failed.");
    EXPECT_EQ(stub.CopyAttributes(articulation), 0);
    EXPECT_EQ(TakePendingError(), "29999 FinPIEntryDetail::CopyAttributes: dynamic_cast failed.");
}

}  // namespace
