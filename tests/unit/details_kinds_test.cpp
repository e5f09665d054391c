// What each kind of details does when it is copied and deleted.
#include <vector>

#include "Class Files/score/EntryDetailKinds.h"
#include "Class Files/score/FinPISmartShapeAssign.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

enum class Onto { kAnyEntries, kSameKind };

struct KindCase {
    const char* name;
    u32 kinds;
    u32 tag;
    Onto onto;
    u32 noteFlag;  // of note kinds: the flag of notes that have such details
    bool ofNote;   // the record begins with the note's ID
};

// Every kind with a record and one tag. What depends on the stem or on a shape has tests of its
// own.
std::vector<KindCase> EveryKind() {
    std::vector<KindCase> cases;
    const auto addEntryDetail = [&]<typename Kind>(const char* name, u32 kinds, Onto onto) {
        if constexpr (!std::is_base_of_v<FinPISmartShapeMark, Kind>) {
            if (Kind::kSecondTag == 0) {
                cases.push_back({name, kinds, Kind::kTag, onto, 0, false});
            }
        }
    };
#define FLAG_DETAIL(...)
#define ENTRY_DETAIL(kind, selector, rule) \
    addEntryDetail.template operator()<kind>(#kind, selector, Onto::rule);
#define NOTE_DETAIL(kind, selector) \
    cases.push_back({#kind, selector, kind::kTag, Onto::kSameKind, kind::kNoteFlags, true});
#include "Class Files/score/EntryDetailKinds.inc"
#undef FLAG_DETAIL
#undef ENTRY_DETAIL
#undef NOTE_DETAIL
    return cases;
}

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
              GetParam().onto == Onto::kAnyEntries ? Content() : "");
}

TEST_P(Kind, IsLeftAloneUnlessSelected) {
    Prepare("q:c4 q:d4");
    EXPECT_EQ(Copy(~GetParam().kinds & kOntoPlaced), 1);
    EXPECT_EQ(Delete(~GetParam().kinds & kFromSource), 0);
    EXPECT_EQ(host.Attached(Target(), GetParam().tag), "");
    EXPECT_EQ(host.Attached(Source(), GetParam().tag), Content());
}

INSTANTIATE_TEST_SUITE_P(Details, Kind, testing::ValuesIn(EveryKind()),
                         [](const auto& test) { return test.param.name; });

TEST_F(Details, FlagsAreCopiedAndDeletedWithoutARecord) {
    constexpr u32 kAll = 0x800 | 0x101 | 0x10 | 0x08;
    const struct {
        const char* name;
        u32 kinds;
        u32 flags;
        u32 ontoNote;  // flags afterwards of a target note with its stem down
        u32 ontoRest;
    } cases[] = {
        {"PrimaryBeamBreak", DetailKind::kPrimaryBeamBreak, 0x800, 0x800, 0x800},
        {"FirstFlag", DetailKind::kFlagDetails, 0x10, 0x10, 0},
        {"SecondFlag", DetailKind::kFlagDetails, 0x08, 0x08, 0},
        {"FrozenStemUp", DetailKind::kFrozenStem, 0x101, 0x100, 0},
        {"FrozenStemDown", DetailKind::kFrozenStem, 0x100, 0x100, 0},
        {"StemUpThatIsNotFrozen", DetailKind::kFrozenStem, 0x001, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Write("q:c4 q:d4", "q:c4 q:r");
        LoadBoth();
        source.EntryAt(0)->flags |= c.flags;
        EXPECT_EQ(Copy(c.kinds, 0, 0), 1);
        EXPECT_EQ(Copy(c.kinds, 0, 0), 1) << "again, onto the same";
        EXPECT_EQ(Copy(c.kinds, 0, 1), 1);
        EXPECT_EQ(target.EntryAt(0)->flags & kAll, c.ontoNote);
        EXPECT_EQ(target.EntryAt(1)->flags & kAll, c.ontoRest);
        EXPECT_EQ(Delete(c.kinds), c.ontoNote != 0 ? 1 : 0);
        EXPECT_EQ(source.EntryAt(0)->flags & c.ontoNote, 0U);
        EXPECT_EQ(App().calls.Of(HostCall::kLoadEData), 0U);
    }
}

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

TEST_F(Details, EntryFieldsGoToEntriesOfTheSameKind) {
    Write("q:c4 q:d4", "h:c4 h:r");
    LoadBoth();
    source.EntryAt(0)->fieldAt6 = 77;
    for (const i16 to : {i16{0}, i16{1}}) {
        EXPECT_EQ(Copy(DetailKind::kDuration | DetailKind::kEntryField6, 0, to), 1);
    }
    EXPECT_EQ(target.EntryAt(0)->duration, 1024);
    EXPECT_EQ(target.EntryAt(0)->fieldAt6, 77);
    EXPECT_EQ(target.EntryAt(1)->duration, 2048) << "a rest is no note";
    EXPECT_EQ(target.EntryAt(1)->fieldAt6, 0);
    EXPECT_EQ(Delete(DetailKind::kEntryField6), 1);
    EXPECT_EQ(source.EntryAt(0)->fieldAt6, 0);
}

TEST_F(Details, PositioningByHandRaisesTheModeOfTheMeasure) {
    Write("q:c4", "q:c4");
    LoadBoth();
    const u16 modes[][2] = {{0, 0}, {1, 4}, {2, 6}, {3, 3}, {0x19, 0x1C}};
    for (const auto& [before, after] : modes) {
        EDTMeasureSpec2014 measure = host.Score().Measure(1);
        measure.positioning = before;
        Put(Tag::kMeasure, RecordKey::Other(1), measure);
        EXPECT_EQ(Copy(DetailKind::kEntryField6), 1);
        EXPECT_EQ(host.Score().Measure(1).positioning, after) << before;
    }
}

}  // namespace
}  // namespace standin
