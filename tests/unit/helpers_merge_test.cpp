// The parts that a merge is made of, each by itself: which entries coincide, which source entries
// take a time, what moves from one entry to another.
#include "merge/EntryTools.h"
#include "merge/NoteOrder.h"
#include "merge/RestReplacement.h"
#include "merge/SourceSpan.h"
#include "tests/unit/details_fixture.h"

namespace standin {
namespace {

constexpr u32 kNotehead = HostTag("E\002cn");

class Helpers : public Details {
protected:
    FinPITGFPtr Load(std::string_view notation) {
        host.Layer(1, 1, 2, notation);
        return {host.Staff(1), 1, 2};
    }
};

TEST_F(Helpers, CoincidentEntryHasTimeGraceOffsetAndVoice) {
    //                                0     1     2        3      4
    const FinPITGFPtr frame = Load("ge:d4 gs:e4 q:c4 v2{h:a3} q:d4");
    const struct {
        i32 position;
        i32 graceOffset;
        bool voice2;
        i16 index;
    } cases[] = {
        {0, -768, false, 0},
        {0, -256, false, 1},
        {0, 0, false, 2},
        {0, 0, true, 3},
        {1024, 0, false, 4},
        {1024, 0, true, 4},  // of the other voice, where there is none of this one
        {1024, -256, false, -1},
        {1023, 0, false, -1},
        {0, kAnyGraceOffset, false, 0},
        {0, kAnyGraceOffset, true, 3},
        {0, kAnyGraceOffset - 1, false, -1},
    };
    const EntriesByPosition entries{frame};
    for (const auto& c : cases) {
        EXPECT_EQ(FindCoincidentEntry(entries, c.position, c.graceOffset, c.voice2), c.index)
            << c.position << " " << c.graceOffset << " " << c.voice2;
    }
    const FinPITGFPtr long2 = Load("q:c4 v2{q:a3 q:b3} q:d4 q:e4");
    EXPECT_EQ(FindCoincidentEntry(EntriesByPosition{long2}, 1024, 0, true), 2);
    EXPECT_EQ(FindCoincidentEntry(EntriesByPosition{long2}, 1024, 0, false), 3);
    const FinPITGFPtr several = Load("ge:d4 q:c4");
    EXPECT_EQ(FindCoincidentEntry(EntriesByPosition{several}, 0, kAnyGraceOffset, true), 0)
        << "the first of the other voice";
}

TEST_F(Helpers, SpanTakesExactlyItsTime) {
    //                                0    1    2        3    4      5    6
    const FinPITGFPtr frame = Load("ge:b3 q:c4 q:d4 v2{e:a3 e:b3} q:e4 q:f4");
    const struct {
        i32 start;
        i32 duration;
        i16 first;
        i16 count;  // 0 = no entries take the time
    } cases[] = {
        {0, 1024, 0, 2},     // with the grace entry before it
        {0, 2048, 0, 5},     // with the second voice in it
        {1024, 1024, 2, 3},  //
        {2048, 2048, 5, 2},  // to the end
        {3072, 1024, 6, 1},  //
        {0, 4096, 0, 7},     //
        {0, 512, 0, 0},     {512, 512, 0, 0},   {0, 1536, 0, 0},   {0, 4097, 0, 0},
        {1024, 0, 0, 0},    {4096, 1024, 0, 0}, {3072, 512, 0, 0}, {-1, 1025, 0, 0},
    };
    for (const auto& c : cases) {
        SourceSpan span;
        EXPECT_EQ(FindSourceSpan(frame, c.start, c.duration, span), c.count == 0 ? 0 : 1)
            << c.start << " " << c.duration;
        if (c.count != 0) {
            EXPECT_EQ(span.first, c.first) << c.start << " " << c.duration;
            EXPECT_EQ(span.count, c.count) << c.start << " " << c.duration;
        }
    }
    SourceSpan span;
    EXPECT_EQ(FindSourceSpan(Load("q:c4 h:d4"), 1024, 1024, span), 0) << "ends too late";
}

TEST_F(Helpers, MadeRestKeepsPlaceWithoutNotes) {
    const FinPITGFPtr frame = Load("q:c4 v2{ge:a3,b3 h:a3} q:d4");
    const FinPIEntryPtr grace = frame.EntryAt(1);
    MakeRest(grace, 256, false);
    EXPECT_EQ(+grace->flags & (EntryFlag::kNote | EntryFlag::kIgnore), 0U);
    EXPECT_TRUE(grace.IsVoice2() && grace.IsGrace());
    EXPECT_TRUE(grace.HasFlag(EntryFlag::kMadeRest) && grace.HasFlag(EntryFlag::kNoNotes));
    EXPECT_EQ(+grace->noteCount, 0);
    EXPECT_EQ(+grace->notes[1].pitch, 0);
    EXPECT_EQ(+grace->duration, 256);
    MakeRest(frame.EntryAt(3), 1024, true);
    EXPECT_TRUE(frame.EntryAt(3).HasFlag(EntryFlag::kIgnore));
    MakeRest({}, 1024, true);
}

TEST_F(Helpers, NoteDetailsGoByPitchOrPlace) {
    const auto moved = [&](const char* from, const char* to, char noteID) {
        const std::string content = OfNote(noteID, "x");
        WriteAndLoad(from, to, {{kNotehead, content}});
        MoveAttachments(source.EntryAt(0), target.EntryAt(0), kChordDetails);
        EXPECT_EQ(host.Attached(Source(), kNotehead), "");
        return host.Attached(Target(), kNotehead);
    };
    EXPECT_EQ(moved("q:c4,e4", "q:e4,c4", 1), OfNote(2, "x"));
    EXPECT_EQ(moved("q:c4,e4", "q:e4,c4", 2), OfNote(1, "x"));
    EXPECT_EQ(moved("q:c4,c4", "q:c4,c4,e4", 2), OfNote(2, "x"));
    EXPECT_EQ(moved("q:c4,e4,c4", "q:c4,e4,c4", 3), OfNote(3, "x"));
}

TEST_F(Helpers, RefusedMoveLeavesErrorPending) {
    for (const HostCall call : {HostCall::kCreateEData, HostCall::kDeleteEData}) {
        WriteAndLoad("q:c4", "q:c4", {{kArticulation, "dot"}});
        Refuse(call);
        MoveAttachments(source.EntryAt(0), target.EntryAt(0), kChordDetails);
        App().faults = {};
        EXPECT_NE(TakePendingError(), "");
    }
    MoveAttachments(source.EntryAt(0), {}, kChordDetails);
    EXPECT_NE(TakePendingError(), "") << "nothing to move them to";
    Write("q:c4", "q:d4");
    host.Slur(Source(), Target());
    LoadBoth();
    Refuse(HostCall::kSaveEData);
    MoveShapeEnds(source.EntryAt(0), target.EntryAt(0));
    App().faults = {};
    EXPECT_NE(TakePendingError(), "");
}

TEST_F(Helpers, NotesAreReorderedForAScope) {
    const FinPITGFPtr frame = Load("q:c4,d4,e4");
    const FinPIEntryPtr chord = frame.EntryAt(0);
    {
        const NotesInOrder order{chord, {3, 9, 1}};
        EXPECT_EQ(NoteIDs(chord), (std::vector<u16>{3, 1, 2}));
    }
    EXPECT_EQ(NoteIDs(chord), (std::vector<u16>{1, 2, 3}));
}

// The sixteenths were at other times than they are once the host has placed them.
TEST_F(Helpers, PlacedEntriesMayBeRoundedAgain) {
    const struct {
        int index;
        i32 start, duration;  // how far they were off
        bool isAllowed;
    } cases[] = {
        {0, 2, 0, true},   {0, -3, 0, false}, {0, 0, -2, true},    {0, 0, 3, false},
        {1, 3, 0, true},   {1, 4, 0, false},  {14, 16, 0, true},   {14, 0, 17, false},
        {15, 16, 0, true}, {15, 0, 16, true}, {15, -17, 0, false}, {15, 0, -17, false},
    };
    for (const auto& [index, start, duration, isAllowed] : cases) {
        SCOPED_TRACE(testing::Message() << index << ": " << start << ", " << duration);
        std::string sixteenths;
        for (int i = 0; i < 16; ++i) {
            sixteenths += " s:c4";
        }
        Write(sixteenths.substr(1), "w:r");
        LoadBoth();
        source.Frame()->entries[index].elapsedTime += start;
        source.Frame()->entries[index].actualDuration += duration;
        FramePair frames{{}, std::move(source), std::move(target)};
        std::set<u32> graceRests;
        EXPECT_EQ(ReplaceRests(frames, {0, 1, 4096}, {0, 16}, graceRests) == Replacement::kDone,
                  isAllowed);
        EXPECT_EQ(TakePendingError().empty(), isAllowed);
    }
}

}  // namespace
}  // namespace standin
