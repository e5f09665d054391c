// Which records of the target a copy meets: equal ones, those of the same note, and the
// variants for stems up and down. What is posted when the host refuses.
#include <vector>

#include "Class Files/score/EntryDetailKinds.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

constexpr u32 kArticulation = HostTag("edIM");
constexpr u32 kNotehead = HostTag("E\002cn");
constexpr u32 kVerse = HostTag("SdvE");

TEST_F(Details, EqualRecordsAreOne) {
    const struct {
        const char* name;
        u32 tag;
        std::vector<std::string_view> source;
        std::vector<std::string_view> target;
        const char* after;
    } cases[] = {
        {"NotDoubled", kArticulation, {"dot", "line"}, {"dot"}, "dot,line"},
        {"AsManyAsTheSourceHas", kArticulation, {"dot", "dot"}, {"dot"}, "dot,dot"},
        {"OtherOnesAreAdded", kArticulation, {"a"}, {"b", "c"}, "b,c,a"},
        // The first four bytes are the verse and the syllable.
        {"ASyllableIsBroughtUpToDate", kVerse, {"\1\1\1\1new"}, {"\1\1\1\1old"}, "\1\1\1\1new"},
        {"AnotherVerseIsAdded", kVerse, {"\2\1\1\1b"}, {"\1\1\1\1a"}, "\1\1\1\1a,\2\1\1\1b"},
        {"AnAlterationWithoutValueIsNotStored", HostTag("edST"), {""}, {}, ""},
    };
    for (const auto& c : cases) {
        Write("q:c4", "q:c4");
        for (const std::string_view content : c.source) {
            host.Attach(Source(), c.tag, content);
        }
        for (const std::string_view content : c.target) {
            host.Attach(Target(), c.tag, content);
        }
        LoadBoth();
        EXPECT_EQ(Copy(kOntoChord), 1) << c.name;
        EXPECT_EQ(host.Attached(Target(), c.tag), c.after) << c.name;
    }
}

TEST_F(Details, OfNotesGoToOneNoteOfTheChordAndCarryItsID) {
    const struct {
        const char* name;
        u32 kinds;
        const char* source;
        const char* target;
        char sourceNote;  // note IDs count from 1
        char targetNote;  // 0 = not copied
    } cases[] = {
        {"ToTheSamePitch", kOntoChord, "q:e4,g4", "q:c4,e4,g4", 2, 3},
        {"ToTheSameSpelling", kOntoChord, "q:d#4", "q:eb4,d#4", 1, 2},
        {"ToTheFirstOfEqualPitches", kOntoChord, "q:g4", "q:g4,g4", 1, 1},
        {"NotToAnotherPitch", kOntoChord, "q:g4", "q:c4,e4", 1, 0},
        {"ToTheSamePlace", DetailKind::kNoteheadMods, "q:e4,g4", "q:c4,e4,g4", 2, 2},
        {"NotPastTheLastNote", DetailKind::kNoteheadMods, "q:e4,g4", "q:e4", 2, 0},
    };
    for (const auto& c : cases) {
        Write(c.source, c.target);
        host.Attach(Source(), kNotehead, OfNote(c.sourceNote, "x"));
        LoadBoth();
        for (int time = 1; time <= 2; ++time) {
            EXPECT_EQ(Copy(c.kinds), 1);
            EXPECT_EQ(host.Attached(Target(), kNotehead),
                      c.targetNote == 0 ? "" : OfNote(c.targetNote, "x"))
                << c.name << ", time " << time;
        }
    }
}

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
        target.EntryAt(note)->flags |= HostEntryFlag::kFixedStem;
        target.EntryAt(note)->flags |= HostEntryFlag::kStemUp;
    }
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(target.EntryAt(2).StemDirection(), 1);
    target.EntryAt(2)->flags |= DetailFlag::kPrimaryBeamBreak;
    target.EntryAt(3)->flags &= ~HostEntryFlag::kStemUp;
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

TEST_F(Details, ARefusedCallFailsForItsKindAloneAndIsPosted) {
    const struct {
        HostCall refused;
        bool isDelete;
        const char* onTarget;  // an equal one is saved rather than created
        const char* error;
    } cases[] = {
        {HostCall::kCreateEData, false, "line", "29997 FinPIEntryDetail::Create: edIM"},
        {HostCall::kSaveEData, false, "dot", "29996 FinPIEntryDetail::Save: edIM"},
        {HostCall::kLoadEData, false, "line", "29998 FinPIEntryDetail::Load: edIM"},
        {HostCall::kDeleteEData, true, "line", "29995 FinPIEntryDetail::Delete: edIM"},
        {HostCall::kLoadEData, true, "line", "29998 FinPIEntryDetail::Load: edIM"},
    };
    for (const auto& c : cases) {
        Write("q:c4", "q:c4");
        host.Attach(Source(), kArticulation, "dot");
        host.Attach(Source(), kVerse, "la");
        host.Attach(Target(), kArticulation, c.onTarget);
        LoadBoth();
        App().faults.refuseKind = FaultPlan::OfKind{c.refused, 1, 1};
        EXPECT_EQ(c.isDelete ? Delete(kFromSource) : Copy(kOntoChord), c.isDelete ? -1 : 0);
        EXPECT_EQ(TakePendingError(), c.error);
        EXPECT_EQ(host.Attached(Source(), kVerse), c.isDelete ? "" : "la") << c.error;
        EXPECT_EQ(host.Attached(Target(), kVerse), c.isDelete ? "" : "la") << c.error;
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
    EXPECT_EQ(
        ErrorOf(entry.CreateEntryDetail(kArticulation, data, sizeof(data), 0, kInterfaceVersion)),
        // The name of an operation is cut at 99 characters.
        "29999 short __cdecl FinPIEntryPtr::CreateEntryDetail(const unsigned long,void *,"
        "const long,const short,co" +
            text);
    EXPECT_EQ(
        ErrorOf(entry.SaveEntryDetail(kArticulation, 0, data, sizeof(data), kInterfaceVersion)),
        "29999 FinPIEntryPtr::SaveEntryDetail" + text);
    EXPECT_EQ(ErrorOf(entry.DeleteEntryDetail(kArticulation, 0, kInterfaceVersion)),
              "29999 FinPIEntryPtr::DeleteEntryDetail" + text);
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
    EXPECT_EQ(ErrorOf(FinPIEntryDetail::CopyDetail(to, from, true, anyCopied)),
              "29999 FinPIEntryDetail::CopyDetail: CopyDependentStructs() failed.");
    EXPECT_EQ(anyCopied, 0);
    App().SetCurrentDocument(host.Score().Number());
}

TEST_F(Details, RecordsAreLoadedBeforeTheyAreSaved) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), kArticulation, "dot");
    LoadBoth();
    FinPIArticulation articulation{source.EntryAt(0)};
    EXPECT_EQ(ErrorOf(articulation.Save()),
              "29999 FinPIEntryDetail::Save: Attempted to Save but never Loaded.");
    EXPECT_EQ(articulation.Load(), 1);
    EXPECT_EQ(ErrorOf(articulation.Create()),
              "29999 FinPIEntryDetail::Create: Attempted to Create but already Loaded.");
    FinPIBeamStubDirection stub{source.EntryAt(0)};
    EXPECT_EQ(ErrorOf(stub.IsSame(articulation)),
              "29999 FinPIEntryDetail::IsSame: dynamic_cast failed.");
    EXPECT_EQ(ErrorOf(stub.CopyAttributes(articulation)),
              "29999 FinPIEntryDetail::CopyAttributes: dynamic_cast failed.");
}

}  // namespace
}  // namespace standin
