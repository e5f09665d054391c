// What each kind of details does when it is copied and deleted.
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace {

using standin::App;
using standin::HostCall;

enum class Onto { kNotes, kAnything };

struct KindCase {
    const char* name;
    u32 kinds;
    u32 tag;
    Onto onto;
    u32 noteFlag;   // of note kinds: the flag of notes that have such details
    bool ofNote;    // the record begins with the note's ID
    bool inMerges;  // belongs to what a merge copies onto a chord and deletes from its source
};

const KindCase kKindCases[] = {
    {"Tuplet", DetailKind::kTuplet, HostTag("E\003TP"), Onto::kAnything, 0, false, false},
    {"Articulation", DetailKind::kArticulation, HostTag("edIM"), Onto::kNotes, 0, false, true},
    {"Verse", DetailKind::kLyric, HostTag("SdvE"), Onto::kNotes, 0, false, true},
    {"Chorus", DetailKind::kLyric, HostTag("SdcH"), Onto::kNotes, 0, false, true},
    {"Section", DetailKind::kLyric, HostTag("SdsE"), Onto::kNotes, 0, false, true},
    {"LyricInfo", DetailKind::kLyric, HostTag("edLE"), Onto::kNotes, 0, false, true},
    {"CrossStaff", DetailKind::kCrossStaff, HostTag("edCD"), Onto::kNotes, NoteFlag::kCrossStaff,
     true, true},
    {"BeamAltFirst", DetailKind::kBeamAlt, HostTag("E\002BL"), Onto::kNotes, 0, false, true},
    {"BeamAltSecond", DetailKind::kBeamAlt, HostTag("E\002BH"), Onto::kNotes, 0, false, true},
    {"BeamAltThird", DetailKind::kBeamAlt, HostTag("E\002bL"), Onto::kNotes, 0, false, true},
    {"BeamAltLast", DetailKind::kBeamAlt, HostTag("E\002bH"), Onto::kNotes, 0, false, true},
    {"SecondaryBeamBreak", DetailKind::kSecondaryBeamBreak, HostTag("edsB"), Onto::kAnything, 0,
     false, true},
    {"StemAlt", DetailKind::kStemAlt, HostTag("edST"), Onto::kNotes, 0, false, true},
    {"SecondStemAlt", DetailKind::kSecondStemAlt, HostTag("edSt"), Onto::kNotes, 0, false, true},
    {"BeamStub", DetailKind::kBeamStubDirection, HostTag("edub"), Onto::kNotes, 0, false, true},
    {"Accidental", DetailKind::kAccidentalMods, HostTag("E\002Ah"), Onto::kNotes, 0, true, true},
    {"Notehead", DetailKind::kNoteheadMods, HostTag("E\002cn"), Onto::kNotes, 0, true, true},
    {"NoteAlts", DetailKind::kNoteAlts, HostTag("edAS"), Onto::kNotes, 0, false, true},
    {"TieStart", DetailKind::kTieStart, HostTag("E\003Ts"), Onto::kNotes, NoteFlag::kTieStart, true,
     true},
    {"TieEnd", DetailKind::kTieEnd, HostTag("E\003Te"), Onto::kNotes, NoteFlag::kTieEnd, true,
     true},
    {"Dots", DetailKind::kDotAlts, HostTag("eddo"), Onto::kNotes, 0, true, true},
    {"PercussionCode", DetailKind::kPercNoteCode, HostTag("ednC"), Onto::kNotes, 0, true, true},
};

class Kind : public Details, public testing::WithParamInterface<KindCase> {
protected:
    std::string Content() const { return GetParam().ofNote ? OfNote(1, "one") : "one"; }

    void Prepare(std::string_view targetNotation) {
        Write("q:c4 q:d4", targetNotation);
        host.Attach(Source(), GetParam().tag, Content());
        LoadBoth();
        source.Entries()[0].notes[0].flags |= GetParam().noteFlag;
        if (target.EntryAt(0).IsNote()) {
            target.Entries()[0].notes[0].flags |= GetParam().noteFlag;
        }
    }
};

TEST_P(Kind, IsCopiedOntoANoteAndDeleted) {
    Prepare("q:c4 q:d4");
    EXPECT_EQ(Copy(GetParam().kinds), 1);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), Content());
    SaveBoth();
    EXPECT_EQ(Delete(GetParam().kinds), 1);
    EXPECT_EQ(Delete(GetParam().kinds), 0) << "nothing is left";
    EXPECT_EQ(host.Attached(Source(), GetParam().tag), "");
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), Content());
}

TEST_P(Kind, IsCopiedOntoARestOnlyWhenItSuitsAnyEntry) {
    Prepare("q:r q:d4");
    EXPECT_EQ(Copy(GetParam().kinds), 1);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag),
              GetParam().onto == Onto::kAnything ? Content() : "");
}

TEST_P(Kind, IsLeftAloneUnlessSelected) {
    Prepare("q:c4 q:d4");
    EXPECT_EQ(Copy(~GetParam().kinds & kOntoPlaced), 1);
    EXPECT_EQ(Delete(~GetParam().kinds & kFromSource), 0);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), "");
    EXPECT_EQ(host.Attached(Source(), GetParam().tag), Content());
}

TEST_P(Kind, GoesWithItsMusicInAMerge) {
    Prepare("q:c4 q:d4");
    EXPECT_EQ(Copy(kOntoChord), 1);
    EXPECT_EQ(Delete(kFromSource), GetParam().inMerges ? 1 : 0);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), GetParam().inMerges ? Content() : "");
    EXPECT_EQ(host.Attached(Source(), GetParam().tag), GetParam().inMerges ? "" : Content());
}

INSTANTIATE_TEST_SUITE_P(Details, Kind, testing::ValuesIn(kKindCases),
                         [](const auto& test) { return test.param.name; });

struct FlagCase {
    const char* name;
    u32 kinds;
    u32 flags;
    u32 ontoNote;  // flags afterwards of a target note with its stem down
    u32 ontoRest;
};

const FlagCase kFlagCases[] = {
    {"PrimaryBeamBreak", DetailKind::kPrimaryBeamBreak, 0x800, 0x800, 0x800},
    {"FirstFlag", DetailKind::kFlagDetails, 0x10, 0x10, 0},
    {"SecondFlag", DetailKind::kFlagDetails, 0x08, 0x08, 0},
    {"FrozenStemUp", DetailKind::kFrozenStem, 0x101, 0x100, 0},
    {"FrozenStemDown", DetailKind::kFrozenStem, 0x100, 0x100, 0},
    {"StemUpThatIsNotFrozen", DetailKind::kFrozenStem, 0x001, 0, 0},
};

class FlagKind : public Details, public testing::WithParamInterface<FlagCase> {};

TEST_P(FlagKind, IsCopiedAndDeletedWithoutARecord) {
    constexpr u32 kAll = 0x800 | 0x101 | 0x10 | 0x08;
    Write("q:c4 q:d4", "q:c4 q:r");
    LoadBoth();
    source.EntryAt(0)->flags |= GetParam().flags;
    EXPECT_EQ(Copy(GetParam().kinds, 0, 0), 1);
    EXPECT_EQ(Copy(GetParam().kinds, 0, 1), 1);
    EXPECT_EQ(target.EntryAt(0)->flags & kAll, GetParam().ontoNote);
    EXPECT_EQ(target.EntryAt(1)->flags & kAll, GetParam().ontoRest);
    EXPECT_EQ(Delete(GetParam().kinds), GetParam().ontoNote != 0 ? 1 : 0);
    EXPECT_EQ(source.EntryAt(0)->flags & GetParam().ontoNote, 0U);
    EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U);
}

INSTANTIATE_TEST_SUITE_P(Details, FlagKind, testing::ValuesIn(kFlagCases),
                         [](const auto& test) { return test.param.name; });

TEST_F(Details, EntriesWithoutDetailsCostNoHostCall) {
    Write("q:c4", "q:c4");
    LoadBoth();
    EXPECT_EQ(Copy(kOntoPlaced), 1);
    EXPECT_EQ(Delete(kFromSource), 0);
    EXPECT_EQ(target.EntryAt(0).MoveSmartShapeAssigns(source.EntryAt(0), HostTag("edEx")), 1);
    EXPECT_EQ(App().calls.Total(), 0U);
}

TEST_F(Details, KindsThatShareAFlagKeepItUntilTheLastIsGone) {
    Write("q:c4", "q:c4");
    host.Attach(Source(), HostTag("edST"), "stem");
    host.Attach(Source(), HostTag("edub"), "stub");
    LoadBoth();
    EXPECT_EQ(Delete(DetailKind::kStemAlt), 1);
    EXPECT_TRUE(source.EntryAt(0).HasFlag(DetailFlag::kStemOrBeamMods));
    EXPECT_EQ(Delete(DetailKind::kBeamStubDirection), 1);
    EXPECT_FALSE(source.EntryAt(0).HasFlag(DetailFlag::kStemOrBeamMods));
}

TEST_F(Details, EveryRecordOfAKindIsDeleted) {
    Write("q:c4", "q:c4");
    for (const char* content : {"a", "b", "c"}) {
        host.Attach(Source(), HostTag("edIM"), content);
    }
    LoadBoth();
    EXPECT_EQ(Delete(kFromSource), 1);
    EXPECT_EQ(host.Attached(Source(), HostTag("edIM")), "");
}

TEST_F(Details, ATupletBringsTheDurationOfItsEntry) {
    Write("(3:2 e:c4 e:d4 e:e4) h.:f4", "q:r h.:r");
    LoadBoth();
    EXPECT_EQ(Copy(DetailKind::kTuplet), 1);
    EXPECT_EQ(target.EntryAt(0)->duration, 512);
    EXPECT_TRUE(target.EntryAt(0).HasFlag(DetailFlag::kTuplet));
}

struct SameKindCase {
    const char* name;
    const char* target;
    i16 duration;
    u16 fieldAt6;
};

const SameKindCase kSameKindCases[] = {
    {"OntoANote", "h:c4", 1024, 77},
    {"NotOntoARest", "h:r", 2048, 0},
};

class EntryFields : public Details, public testing::WithParamInterface<SameKindCase> {};

TEST_P(EntryFields, GoToEntriesOfTheSameKind) {
    Write("q:c4", GetParam().target);
    LoadBoth();
    source.EntryAt(0)->fieldAt6 = 77;
    EXPECT_EQ(Copy(DetailKind::kDuration | DetailKind::kEntryField6), 1);
    EXPECT_EQ(target.EntryAt(0)->duration, GetParam().duration);
    EXPECT_EQ(target.EntryAt(0)->fieldAt6, GetParam().fieldAt6);
    EXPECT_EQ(Delete(DetailKind::kEntryField6), 1);
    EXPECT_EQ(source.EntryAt(0)->fieldAt6, 0);
}

INSTANTIATE_TEST_SUITE_P(Details, EntryFields, testing::ValuesIn(kSameKindCases),
                         [](const auto& test) { return test.param.name; });

TEST_F(Details, PositioningByHandRaisesTheModeOfTheMeasure) {
    Write("q:c4", "q:c4");
    LoadBoth();
    const u16 modes[][2] = {{0, 0}, {1, 4}, {2, 6}, {3, 3}, {0x19, 0x1C}};
    for (const auto& [before, after] : modes) {
        EDTMeasureSpec2014 measure = host.Score().Measure(1);
        measure.positioning = before;
        host.Score().Records().Save(standin::Tag::kMeasure, standin::RecordKey::Other(1),
                                    standin::BytesOf(measure));
        EXPECT_EQ(Copy(DetailKind::kEntryField6), 1);
        EXPECT_EQ(host.Score().Measure(1).positioning, after) << before;
    }
}

}  // namespace
