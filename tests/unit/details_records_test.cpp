// Which records of the target a copy meets: equal ones, those of the same note, and the
// variants for stems up and down. What is posted when the host refuses.
#include <vector>

#include "Class Files/score/EntryDetailKinds.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

constexpr u32 kNotehead = HostTag("E\002cn");
constexpr u32 kVerse = HostTag("SdvE");

TEST_F(Details, EqualRecordsAreOne) {
    using Contents = std::vector<std::string_view>;
    const auto copied = [&](u32 tag, const Contents& onSource, const Contents& onTarget) {
        Write("q:c4", "q:c4");
        for (const std::string_view content : onSource) {
            host.Attach(Source(), tag, content);
        }
        for (const std::string_view content : onTarget) {
            host.Attach(Target(), tag, content);
        }
        LoadBoth();
        EXPECT_EQ(Copy(kOntoChord), 1);
        return host.Attached(Target(), tag);
    };
    EXPECT_EQ(copied(kArticulation, {"dot", "dot", "line"}, {"dot"}), "dot,dot,line");
    EXPECT_EQ(copied(kArticulation, {"a"}, {"b", "c"}), "b,c,a");
    // The first four bytes are the verse and the syllable.
    EXPECT_EQ(copied(kVerse, {"\1\1\1\1new"}, {"\1\1\1\1old"}), "\1\1\1\1new");
    EXPECT_EQ(copied(kVerse, {"\2\1\1\1b"}, {"\1\1\1\1a"}), "\1\1\1\1a,\2\1\1\1b");
    EXPECT_EQ(copied(HostTag("edST"), {""}, {}), "") << "an alteration without value";
    EXPECT_EQ(copied(HostTag("edST"), {""}, {""}), "") << "and its flag goes with it";
    EXPECT_FALSE(target.EntryAt(0).HasFlag(DetailFlag::kStemOrBeamMods));
}

TEST_F(Details, OfNotesGoToOneNoteOfTheChordAndCarryItsID) {
    // Note IDs count from 1.
    const auto copied = [&](u32 kinds, const char* from, const char* to, char noteID) {
        const std::string content = OfNote(noteID, "x");
        WriteAndLoad(from, to, {{kNotehead, content}});
        EXPECT_EQ(Copy(kinds) + Copy(kinds), 2) << "the second time nothing is added";
        return host.Attached(Target(), kNotehead);
    };
    EXPECT_EQ(copied(kOntoChord, "q:e4,g4", "q:c4,e4,g4", 2), OfNote(3, "x"));
    EXPECT_EQ(copied(kOntoChord, "q:d#4", "q:eb4,d#4", 1), OfNote(2, "x")) << "of its spelling";
    EXPECT_EQ(copied(kOntoChord, "q:g4", "q:g4,g4", 1), OfNote(1, "x"));
    EXPECT_EQ(copied(kOntoChord, "q:g4", "q:c4,e4", 1), "");
    EXPECT_EQ(copied(DetailKind::kNoteheadMods, "q:e4,g4", "q:c4,e4,g4", 2), OfNote(2, "x"));
    EXPECT_EQ(copied(DetailKind::kNoteheadMods, "q:e4,g4", "q:e4", 2), "") << "no such place";
}

TEST_F(Details, WhatIsOfATieGoesToATiedNote) {
    constexpr u32 kTieStart = HostTag("E\003Ts");
    WriteAndLoad("q:g4~", "q:g4,g4~", {{kTieStart, {"\1\0tie", 5}}});
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kTieStart), OfNote(2, "tie"));
    source.EntryAt(0)->notes[0].flags &= ~NoteFlag::kTieStart;
    target.EntryAt(0)->notes[0].flags |= NoteFlag::kTieStart;
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kTieStart), OfNote(2, "tie")) << "the source is not tied";
}

// Of two layers with music the first has its stems up, the second down.
TEST_F(Details, AVariantForStemsUpBecomesTheOneForStemsDown) {
    WriteAndLoad("e:c4 e:d4 h.:r", "e:c4 e:d4 h.:r",
                 {{HostTag("edSU"), "up"},
                  {HostTag("edDE"), "of no use with the stem up"},
                  {HostTag("edUE"), "longer"}});
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
    WriteAndLoad("e:r h.:r e:r", "e:r e:c4 e:r e:d4 h:r");
    EXPECT_EQ(target.EntryAt(0).StemDirection(), -1) << "the first under the beam";
    EXPECT_EQ(target.EntryAt(2).StemDirection(), -1);
    for (const i16 note : {i16{1}, i16{3}}) {
        target.EntryAt(note)->flags |= HostEntryFlag::kFixedStem | HostEntryFlag::kStemUp;
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
    WriteAndLoad("q:c4!", "q:c4", {{HostTag("edub"), "stub"}});
    EXPECT_EQ(Copy(kOntoChord), 1) << "nothing asks for a stem";
    host.Attach(Source(), HostTag("edSU"), "custom");
    EXPECT_EQ(Copy(kOntoChord), 1) << "the copy goes on";
    EXPECT_EQ(TakePendingError(), "29985 ");
    host.Score().SetPageOfMeasure(1, 0);
    FinPIMetricsCache::ClearAll();
    target.EntryAt(0).StemDirection();
    EXPECT_EQ(TakePendingError(), "29986 ");
}

TEST_F(Details, ARefusedCallFailsForItsKindAloneAndIsPosted) {
    // The articulation on the target is equal to the source's or not.
    const auto error = [&](HostCall refused, u64 nth, bool isDelete, const char* onTarget) {
        Write("q:c4", "q:c4");
        host.Attach(Target(), kArticulation, onTarget);
        host.Attach(Source(), kArticulation, "dot");
        host.Attach(Source(), kVerse, "la");
        LoadBoth();
        RefuseOnly(refused, nth);
        EXPECT_EQ(isDelete ? Delete(kFromSource) : Copy(kOntoChord), isDelete ? -1 : 0);
        EXPECT_EQ(host.Attached(Source(), kVerse), isDelete ? "" : "la");
        EXPECT_EQ(host.Attached(Target(), kVerse), isDelete ? "" : "la");
        return TakePendingError();
    };
    EXPECT_EQ(error(HostCall::kCreateEData, 1, false, "-"), "29997 FinPIEntryDetail::Create: edIM");
    EXPECT_EQ(error(HostCall::kSaveEData, 1, false, "dot"), "29996 FinPIEntryDetail::Save: edIM");
    // Whether the target has the record is in doubt.
    EXPECT_EQ(error(HostCall::kLoadEData, 2, false, "dot"), "29998 FinPIEntryDetail::Load: edIM");
    EXPECT_EQ(error(HostCall::kDeleteEData, 1, true, "-"), "29995 FinPIEntryDetail::Delete: edIM");
    EXPECT_EQ(error(HostCall::kLoadEData, 1, true, "-"), "29998 FinPIEntryDetail::Load: edIM");
}

TEST_F(Details, RecordsOfAnotherDocumentAreNotTouched) {
    WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
    const FinPIEntryPtr entry = source.EntryAt(0);
    const OtherDocument other;
    const u8 data[12]{};
    const auto isNotCurrent = [](i16 result) {
        return ErrorOf(result).ends_with(": Attempted to update a non-current document");
    };
    EXPECT_TRUE(
        isNotCurrent(entry.CreateEntryDetail(kArticulation, data, 12, 0, kInterfaceVersion)));
    EXPECT_TRUE(isNotCurrent(entry.SaveEntryDetail(kArticulation, 0, data, 12, kInterfaceVersion)));
    EXPECT_TRUE(isNotCurrent(entry.DeleteEntryDetail(kArticulation, 0, kInterfaceVersion)));
}

// An articulation whose definition cannot be copied.
class LostDefinition final : public FinPIArticulation {
public:
    using FinPIArticulation::FinPIArticulation;
    i16 CopyDependentStructs(const FinPIEntryDetail& /*source*/) override { return 0; }
};

TEST_F(Details, ARecordOfAnotherDocumentComesWithWhatItRefersToOrNotAtAll) {
    WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
    const OtherDocument other;
    const FinPIEntryPtr elsewhere{target.Frame(), 0};  // of the current document
    LostDefinition to{elsewhere};
    LostDefinition from{source.EntryAt(0)};
    i16 anyCopied = 0;
    EXPECT_EQ(ErrorOf(FinPIEntryDetail::CopyDetail(to, from, true, anyCopied)),
              "29999 FinPIEntryDetail::CopyDetail: CopyDependentStructs() failed.");
    EXPECT_EQ(anyCopied, 0);
}

TEST_F(Details, RecordsAreLoadedBeforeTheyAreSavedAndAreNoOtherKind) {
    WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
    FinPIArticulation articulation{source.EntryAt(0)};
    EXPECT_TRUE(ErrorOf(articulation.Save()).ends_with("Attempted to Save but never Loaded."));
    EXPECT_EQ(ErrorOf(FinPIBeamStubDirection{source.EntryAt(0)}.CopyAttributes(articulation)),
              "29999 FinPIEntryDetail::CopyAttributes: dynamic_cast failed.");
}

}  // namespace
}  // namespace standin
