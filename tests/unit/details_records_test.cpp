// Which details are copied and deleted, and how a copy treats records of the target: equal ones,
// those of the same note, and the variants for stems up and down. Which errors are posted when the
// host refuses.
#include <utility>
#include <vector>

#include "Class Files/score/details/EntryDetailKinds.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

constexpr u32 kNotehead = HostTag("E\002cn");
constexpr u32 kVerse = HostTag("SdvE");

TEST_F(Details, EqualRecordsAreMerged) {
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
    EXPECT_EQ(copied(kArticulation, {"a", "b"}, {"b"}), "b,a");
    // The first four bytes are the verse and the syllable.
    EXPECT_EQ(copied(kVerse, {"\1\1\1\1new"}, {"\1\1\1\1old"}), "\1\1\1\1new");
    EXPECT_EQ(copied(kVerse, {"\2\1\1\1b"}, {"\1\1\1\1a"}), "\1\1\1\1a,\2\1\1\1b");
    EXPECT_EQ(copied(HostTag("edST"), {""}, {}), "") << "an alteration without value";
    EXPECT_EQ(copied(HostTag("edST"), {""}, {""}), "") << "and its flag goes with it";
    EXPECT_FALSE(target.EntryAt(0).HasFlag(DetailFlag::kStemOrBeamMods));
    EXPECT_EQ(copied(HostTag("edST"), {"", "x"}, {"", "x"}), "x")
        << "found where the empty one was";
}

TEST_F(Details, NoteDetailsGetNoteID) {
    // Note IDs count from 1.
    const auto copied = [&](u32 kinds, const char* from, const char* to, char noteID) {
        const std::string content = OfNote(noteID, "x");
        WriteAndLoad(from, to, {{kNotehead, content}});
        EXPECT_EQ(Copy(kinds) + Copy(kinds), 2) << "the second time nothing is added";
        return host.Attached(Target(), kNotehead);
    };
    EXPECT_EQ(copied(kOntoChord, "q:e4,g4", "q:c4,e4,g4", 2), OfNote(3, "x"));
    EXPECT_EQ(copied(kOntoChord, "q:d#4", "q:eb4,d#4", 1), OfNote(2, "x")) << "of its spelling";
    EXPECT_EQ(copied(kOntoChord, "q:g4", "q:c4,e4", 1), "");
    EXPECT_EQ(copied(DetailKind::kNoteheadMods, "q:e4,g4", "q:c4,e4,g4", 2), OfNote(2, "x"));
    EXPECT_EQ(copied(DetailKind::kNoteheadMods, "q:e4,g4", "q:e4", 2), "") << "no such place";
    Write("q:c4,e4", "q:e4");
    for (const char note : {'\1', '\7', '\2'}) {  // without a match, of no note, with a match
        host.Attach(Source(), kNotehead, OfNote(note, "x"));
    }
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kNotehead), OfNote(1, "x"));
    WriteAndLoad("q:c4", "q:c4", {{kNotehead, OfNote(1, "x")}});
    RefuseOnly(HostCall::kCreateEData, 1);
    EXPECT_EQ(ErrorOf(Copy(kOntoChord)), "29997 FinPIEntryDetail::Create: E\2cn");
}

TEST_F(Details, TieDetailsNeedTiedNote) {
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
TEST_F(Details, UpStemVariantBecomesDownStem) {
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
    WriteAndLoad("q:c4", "q:c4", {{HostTag("edsl"), "older"}});  // the stem was down
    source.EntryAt(0)->flags |= 1;
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), HostTag("edsl")), "older");
    EXPECT_EQ(Delete(kFromSource), 1);
    EXPECT_TRUE(source.EntryAt(0).HasFlag(1)) << "the host's own";
    EXPECT_EQ(host.Attached(Source(), HostTag("edsl")), "");
}

TEST_F(Details, BeamedRestHasNeighborsStem) {
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
    host.Score().AddMeasure(4, 1024);
    host.Layer(1, 2, kSourceLayer, "w:c5");
    host.Layer(1, 2, kTargetLayer, "e:c4 e:c4 h.:r");
    WriteAndLoad("w:r", "e:r e:r q:c4 e:r e:c4! e:r e:r");
    EXPECT_EQ(target.EntryAt(0).StemDirection(), 1) << "no stem before the quarter note";
    EXPECT_EQ(target.EntryAt(3).StemDirection(), 1) << "and none up to the barline";
}

TEST_F(Details, AttachedCacheKeepsStemDirections) {
    WriteAndLoad("e:r h.:r e:r", "e:r e:c4 e:r e:d4 h:r");
    StemDirections known;
    FinPIEntryPtr rest = target.EntryAt(2);
    rest.AttachStemDirections(&known);
    EXPECT_EQ(rest.StemDirection(), -1);
    for (const i16 note : {i16{1}, i16{3}}) {
        target.EntryAt(note)->flags |= HostEntryFlag::kFixedStem | HostEntryFlag::kStemUp;
    }
    FinPIMetricsCache::ClearAll();
    EXPECT_EQ(rest.StemDirection(), -1);
    EXPECT_EQ(target.EntryAt(2).StemDirection(), 1) << "without the cache";
}

TEST_F(Details, CopyAsksOnceForStemDirection) {
    WriteAndLoad("e:r h.:r e:r", "e:r e:c4 e:r e:d4 h:r",
                 {{HostTag("edUE"), "up"}, {HostTag("edDE"), "down"}});
    source.EntryAt(0)->flags |= DetailFlag::kFrozenStem | DetailFlag::kPrimaryBeamBreak;
    target.EntryAt(1)->flags |= HostEntryFlag::kFixedStem | HostEntryFlag::kStemUp;
    StemDirections ofSource{{source.EntryAt(0).Number(), -1}};
    FinPIEntryPtr from = source.EntryAt(0);
    from.AttachStemDirections(&ofSource);
    EXPECT_EQ(target.EntryAt(2).CopyDetailsFrom(kOntoPlaced, from), 1);
    EXPECT_EQ(target.EntryAt(2)->flags & DetailFlag::kFrozenStemUp, DetailFlag::kFrozenStemUp);
    EXPECT_EQ(host.Attached(Target(2), HostTag("edUE")), "down")
        << "as before the beam was broken at the rest";
}

TEST_F(Details, InvisibleEntriesHaveNoStem) {
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

TEST_F(Details, RefusedCallFailsOnlyItsKind) {
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
    // It is unknown whether the target has the record.
    EXPECT_EQ(error(HostCall::kLoadEData, 2, false, "dot"), "29998 FinPIEntryDetail::Load: edIM");
    EXPECT_EQ(error(HostCall::kDeleteEData, 1, true, "-"), "29995 FinPIEntryDetail::Delete: edIM");
    EXPECT_EQ(error(HostCall::kLoadEData, 1, true, "-"), "29998 FinPIEntryDetail::Load: edIM");
    App().faults.refuseKind = FaultPlan::OfKind{HostCall::kPreviousEData, 1, 99};
    EXPECT_EQ(Copy(kOntoChord), 1) << "a host that cannot look back has no later record";
    Write("q:c4", "q:c4");
    for (const char* content : {"a", "b", "c"}) {
        host.Attach(Source(), kArticulation, content);
    }
    LoadBoth();
    RefuseOnly(HostCall::kLoadEData, 2);
    EXPECT_EQ(ErrorOf(Copy(kOntoChord)), "29998 FinPIEntryDetail::Load: edIM") << "no gap";
    RefuseOnly(HostCall::kDeleteEData, 2);
    EXPECT_EQ(Delete(kFromSource), -1);
    EXPECT_EQ(TakePendingError(), "29995 FinPIEntryDetail::Delete: edIM");
    EXPECT_EQ(host.Attached(Source(), kArticulation), "b,c");
}

// Numbers that do not close up: when records are deleted here, and where others were before.
TEST_F(Details, RecordsAfterGapsAreFound) {
    const Mannered mannered{&Manners::gaps};
    Write("q:c4", "q:c4");
    for (const char* content : {"a", "b", "c", "d"}) {
        host.Attach(Source(), kArticulation, content);
    }
    const auto drop = [this](u16 number) {
        host.Score().Records().Delete(kArticulation,
                                      RecordKey::OfEntry(host.EntryNumber(Source()), number),
                                      RecordStore::After::kGap);
    };
    drop(0);
    drop(2);
    host.Attach(Target(), kArticulation, "b");
    LoadBoth();
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(host.Attached(Target(), kArticulation), "b,d");
    RefuseOnly(HostCall::kLoadEData, 2);
    EXPECT_EQ(Delete(kFromSource), -1) << "a refused load is not a gap";
    EXPECT_EQ(TakePendingError(), "29998 FinPIEntryDetail::Load: edIM");
    EXPECT_EQ(Delete(kFromSource), 1);
    EXPECT_EQ(host.Attached(Source(), kArticulation), "");
}

TEST_F(Details, WalksEndAtTheLimit) {
    const auto isWalked = [this](u16 records) {
        Write("q:c4", "q:c4");
        for (u16 i = 0; i < records; ++i) {
            host.Attach(Source(), kArticulation, "x");
        }
        LoadBoth();
        FinPIArticulation articulation{source.EntryAt(0)};
        FinPIEntryDetail::Walk walk{articulation};
        while (walk.Next()) {
        }
        return !walk.HasFailed();
    };
    EXPECT_TRUE(isWalked(FinPIEntryDetail::kMaxRecords - 1));
    EXPECT_FALSE(isWalked(FinPIEntryDetail::kMaxRecords));
    EXPECT_EQ(TakePendingError(), "29998 FinPIEntryDetail::Load: edIM");
}

TEST_F(Details, OtherDocumentIsNotChanged) {
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
    EXPECT_EQ(App().calls.refusedByRule + App().calls.Of(HostCall::kCreateEData) +
                  App().calls.Of(HostCall::kSaveEData) + App().calls.Of(HostCall::kDeleteEData),
              0U);
}

// An articulation whose definition cannot be copied.
class LostDefinition final : public FinPIArticulation {
public:
    using FinPIArticulation::FinPIArticulation;
    i16 CopyDependentStructs(const FinPIEntryDetail& /*source*/) override { return 0; }
};

TEST_F(Details, CopyFromOtherDocumentNeedsReferences) {
    WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
    const OtherDocument other;
    const FinPIEntryPtr elsewhere{target.Frame(), 0};  // of the current document
    LostDefinition to{elsewhere};
    LostDefinition from{source.EntryAt(0)};
    i16 anyCopied = 0;
    EXPECT_EQ(ErrorOf(FinPIEntryDetail::CopyDetail(to, from, true, anyCopied)),
              "29999 FinPIEntryDetail::CopyDetail: CopyDependentStructs() failed.");
    EXPECT_EQ(anyCopied, 0);
    FinPIArticulation withoutAny{elsewhere};
    FinPIArticulation its{source.EntryAt(0)};
    EXPECT_EQ(ErrorOf(FinPIEntryDetail::CopyDetail(withoutAny, its, true, anyCopied)),
              "29997 FinPIEntryDetail::Create: edIM")
        << "it needs none, but the document has no such entry";
    FinPIArticulation ofSameEntry{source.EntryAt(0)};
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(ofSameEntry.Load(), 0);
}

TEST_F(Details, RefusesUnloadedOrOtherRecords) {
    WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
    FinPIArticulation articulation{source.EntryAt(0)};
    const std::string saveUnloaded =
        "29999 FinPIEntryDetail::Save: Attempted to Save but never Loaded.";
    EXPECT_EQ(ErrorOf(articulation.Save()), saveUnloaded);
    EXPECT_EQ(articulation.Load() + articulation.Load(), 2);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 1U) << "it is loaded already";
    articulation.SelectRecord(FinPIEntryDetail::kNewRecord);
    EXPECT_EQ(articulation.Create() + articulation.Save() + articulation.Delete(), 3);
    EXPECT_EQ(host.Attached(Source(), kArticulation), "dot") << "the new one was deleted";
    EXPECT_EQ(ErrorOf(articulation.Save()), saveUnloaded);
    FinPIBeamStubDirection other{source.EntryAt(0)};
    EXPECT_EQ(ErrorOf(other.CopyAttributes(articulation)),
              "29999 FinPIEntryDetail::CopyAttributes: dynamic_cast failed.");
    EXPECT_EQ(ErrorOf(other.IsSame(articulation)),
              "29999 FinPIEntryDetail::IsSame: dynamic_cast failed.");
    FinPIArticulation to{target.EntryAt(0)};
    i16 anyCopied = 0;
    EXPECT_EQ(FinPIEntryDetail::CopyDetail(to, articulation, true, anyCopied) + anyCopied, 2);
}

TEST_F(Details, RestTakesOnlyGeneralKinds) {
    WriteAndLoad("q:c4", "q:r", {{kArticulation, "dot"}, {HostTag("edsB"), "break"}});
    EXPECT_EQ(Copy(kOntoPlaced), 1);
    EXPECT_EQ(host.Attached(Target(), kArticulation), "");
    EXPECT_EQ(host.Attached(Target(), HostTag("edsB")), "break");
    App().ResetCounts();
    EXPECT_EQ(Delete(DetailKind::kArticulation), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kPreviousEData), 1U) << "asks once whether one is left";
}

// The two kinds share a flag, which must stay for the remaining one.
TEST_F(Details, OtherKindsStayUnchanged) {
    constexpr u32 kStem = HostTag("edST");
    constexpr u32 kStub = HostTag("edub");
    WriteAndLoad("q:c4", "q:c4", {{kStem, "stem"}, {kStub, "stub"}});
    EXPECT_EQ(Copy(kOntoPlaced & ~DetailKind::kStemAlt), 1);
    EXPECT_EQ(host.Attached(Target(), kStem), "");
    EXPECT_EQ(host.Attached(Target(), kStub), "stub");
    EXPECT_EQ(Delete(kFromSource & ~DetailKind::kStemAlt), 1);
    EXPECT_EQ(host.Attached(Source(), kStem), "stem");
    EXPECT_EQ(host.Attached(Source(), kStub), "");
}

TEST_F(Details, FlagsNeedNoRecord) {
    // The flags afterwards of a target note with its stem down and of a rest.
    const auto copied = [&](u32 kinds, u32 flags) {
        constexpr u32 kAll = 0x800 | 0x101 | 0x10 | 0x08;
        WriteAndLoad("q:c4 q:d4", "q:c4 q:r");
        source.EntryAt(0)->flags |= flags;
        EXPECT_EQ(Copy(kinds, 0, 0) + Copy(kinds, 0, 0) + Copy(kinds, 0, 1), 3);
        const u32 ontoNote = target.EntryAt(0)->flags & kAll;
        EXPECT_EQ(Delete(kinds), ontoNote != 0 ? 1 : 0);
        EXPECT_EQ(source.EntryAt(0)->flags & ontoNote, 0U);
        EXPECT_EQ(App().calls.Of(HostCall::kLoadEData) + App().calls.Of(HostCall::kPreviousEData),
                  0U);
        return std::pair<u32, u32>{ontoNote, target.EntryAt(1)->flags & kAll};
    };
    using Flags = std::pair<u32, u32>;
    EXPECT_EQ(copied(DetailKind::kPrimaryBeamBreak, 0x800), (Flags{0x800, 0x800}));
    EXPECT_EQ(copied(DetailKind::kFlagDetails, 0x10), (Flags{0x10, 0}));
    EXPECT_EQ(copied(DetailKind::kFlagDetails, 0x08), (Flags{0x08, 0}));
    EXPECT_EQ(copied(DetailKind::kFrozenStem, 0x101), (Flags{0x100, 0}));
    EXPECT_EQ(copied(DetailKind::kFrozenStem, 0x001), (Flags{0, 0})) << "it is not frozen";
    EXPECT_EQ(FinPIPrimaryBeamBreak{FinPIEntryPtr{}}.Commit(), 0);
    EXPECT_EQ(FinPIPrimaryBeamBreak{FinPIEntryPtr{}}.Delete(), 0);
    FinPICrossStaff ofNoNote{target.EntryAt(0)};
    EXPECT_EQ(ofNoNote.CopyAttributes(FinPICrossStaff{source.EntryAt(0)}), 0);
}

TEST_F(Details, NoHostCallWithoutDetails) {
    WriteAndLoad("q:c4", "q:c4");
    EXPECT_EQ(Copy(kOntoPlaced), 1);
    EXPECT_EQ(Delete(kFromSource), 0);
    EXPECT_EQ(App().calls.Total(), 0U);
    EXPECT_EQ(target.EntryAt(0).MoveSmartShapeAssigns({}, HostTag("edEx")), 0);
    i16 anyDeleted = 0;
    EXPECT_EQ(target.EntryAt(0).CopyDetailsFrom(kOntoPlaced, {}), 0);
    EXPECT_EQ(FinPIEntryPtr{}.DeleteDetails(kFromSource, anyDeleted), 0);
    EXPECT_EQ(target.EntryAt(0).MoveSmartShapeAssigns(source.EntryAt(0), HostTag("edEx")), 1);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 1U) << "a smart shape's end is looked for";
    EXPECT_EQ(App().calls.Total(), 2U);
}

TEST_F(Details, EntryFieldsNeedSameKind) {
    WriteAndLoad("q:c4 q:d4", "h:c4 h:r");
    source.EntryAt(0)->fieldAt6 = 77;
    for (const i16 to : {i16{0}, i16{1}}) {
        EXPECT_EQ(Copy(DetailKind::kDuration | DetailKind::kEntryField6, 0, to), 1);
        EXPECT_EQ(target.EntryAt(to)->duration, to == 0 ? 1024 : 2048) << "a rest is not a note";
        EXPECT_EQ(target.EntryAt(to)->fieldAt6, to == 0 ? 77 : 0);
    }
    EXPECT_EQ(Delete(DetailKind::kEntryField6), 1);
    EXPECT_EQ(Delete(DetailKind::kEntryField6), 0) << "nothing is left";
    EXPECT_EQ(source.EntryAt(0)->fieldAt6, 0);
}

TEST_F(Details, ManualPositionsRaiseMeasureMode) {
    WriteAndLoad("q:c4", "q:c4");
    const OtherDocument other;
    const u16 modes[][2] = {{0, 0}, {1, 4}, {2, 6}, {3, 3}, {0x19, 0x1C}};
    for (const auto& [before, after] : modes) {
        EDTMeasureSpec2014 measure = host.Score().Measure(1);
        measure.positioning = before;
        Put(Tag::kMeasure, RecordKey::Other(1), measure);
        EXPECT_EQ(Copy(DetailKind::kEntryField6), 1);
        EXPECT_EQ(host.Score().Measure(1).positioning, after) << before;
    }
    Refuse(HostCall::kLoadEData);
    EXPECT_EQ(Copy(DetailKind::kEntryField6), 1);
    EXPECT_EQ(TakePendingError(), "29998 FinPIMeas::FinPIMeas: SOMS");
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(Copy(DetailKind::kEntryField6), 0);
}

TEST_F(Details, TupletCopiesEntryDuration) {
    WriteAndLoad("(3:2 e:c4 e:d4 e:e4) h.:f4", "q:r h.:r");
    EXPECT_EQ(Copy(DetailKind::kTuplet), 1);
    EXPECT_EQ(target.EntryAt(0)->duration, 512);
}

}  // namespace
}  // namespace standin
