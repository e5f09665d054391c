// Loading, saving, reloading and giving back frames; inserting and deleting entries; the form in
// which entries go to the host.
#include <utility>
#include <vector>

#include "Class Files/score/document/FinPILayer.h"
#include "Class Files/score/document/FinPIStaff.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "Class Files/score/frames/NormalizeFrame.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

constexpr char kNotCurrent[] =
    "29999 short __cdecl FinPITGFPtr::SaveTGF(void) const: Attempted to update a non-current "
    "document";

class Frames : public LibraryTest {
protected:
    Frames() : LibraryTest{2, 3} { host.Layer(1, 1, 0, "q:c4 q:d4 q:e4 e:f4 e:g4"); }

    FinPITGFPtr Load(u16 layer = 0) const { return {host.Staff(1), 1, layer}; }
};

TEST_F(Frames, DeletingKeepsOtherNotes) {
    FinPITGFPtr frame = Load();
    Refuse(HostCall::kDeleteEXENTRY);
    EXPECT_EQ(frame.DeleteEntriesAt(1, 2), 0);
    App().faults = {};
    EXPECT_EQ(frame.Count(), 5) << "a refusal changes nothing";
    App().faults.respellsNotes = true;
    frame.EntryAt(4)->noteCount = 0;
    frame.EntryAt(4)->flags &= ~EntryFlag::kNote;
    EXPECT_EQ(frame.DeleteEntriesAt(1, 2), 1);
    App().faults = {};
    for (const EXENTRY& entry : frame.Entries()) {
        EXPECT_EQ(entry.notes[0].second, 0) << "goes with the spelling";
    }
    EXPECT_EQ(+frame.EntryAt(2)->notes[0].pitch, 0) << "a rest has nothing of the note it was";
    EXPECT_EQ(frame.SaveTGF(), 1);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 e:f4 e:r");
    const std::set<u32> numbers{frame.EntryAt(0).Number(), frame.EntryAt(2).Number(), 0, 4711};
    EXPECT_EQ(frame.DeleteEntries(numbers), 1);
    EXPECT_EQ(host.Layer(1, 1, 0), "e:f4");
}

TEST_F(Frames, ReduceDropsEmptyEntries) {
    FinPITGFPtr frame = Load();
    frame.EntryAt(0)->notes[0].noteID = 0;
    EXPECT_EQ(frame.InsertEntries(1, 2), 1);
    EXPECT_EQ(frame.Count(), 7);
    EXPECT_EQ(+frame.EntryAt(0)->notes[0].noteID, 1);
    frame.EntryAt(2)->duration = 512;
    frame.EntryAt(0)->notes[0].noteID = 0;
    EXPECT_EQ(frame.ReduceEntries(false), 1);
    EXPECT_EQ(frame.Count(), 6);
    EXPECT_EQ(+frame.EntryAt(0)->notes[0].noteID, 1);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 q:d4 q:e4 e:f4 e:g4") << "not saved";
    frame.EntryAt(0)->notes[0].noteID = 0;
    EXPECT_EQ(frame.SaveTGF(), 1);
    EXPECT_EQ(+frame.EntryAt(0)->notes[0].noteID, 1);
    frame.EntryAt(0)->notes[0].noteID = 0;
    EXPECT_EQ(frame.ReloadTGF(), 1);
    EXPECT_EQ(+frame.EntryAt(0)->notes[0].noteID, 1);
    EXPECT_EQ(frame.ReduceEntries(true), 1);
    EXPECT_EQ(host.Layer(1, 1, 0), "q:c4 e:r q:d4 q:e4 e:f4 e:g4");
}

TEST_F(Frames, OtherDocumentIsReloadedNotSaved) {
    FinPITGFPtr frame = Load();
    const OtherDocument other;
    EXPECT_EQ(ErrorOf(frame.SaveTGF()), kNotCurrent);
    const FinPIEntryPtr entry = frame.EntryAt(0);
    EXPECT_EQ(entry.CreateEntryDetail(1, nullptr, 0, 0, 0), 0);
    EXPECT_EQ(entry.SaveEntryDetail(1, 0, nullptr, 0, 0), 0);
    EXPECT_EQ(entry.DeleteEntryDetail(1, 0, 0), 0);
    EXPECT_NE(TakePendingError(), "");
    EXPECT_EQ(frame.ReloadTGF(), 1);
    EXPECT_EQ(frame.Duration(), 4096);
    EXPECT_TRUE(frame.NextFrame());
    EXPECT_FALSE((FinPITGFPtr{host.Staff(1), 1, 0}));
    EXPECT_TRUE((FinPITGFPtr{host.Staff(1), 1, 0, host.Score().Number()}));
    EXPECT_NE(frame.Staff(host.Staff(1), 0).IsLoaded(), 0);
    EXPECT_EQ(FinPITGFPtr{}.Staff(host.Staff(1), 0).GetCmper1(), 1);
    EXPECT_NE(TakePendingError(), "");
    other->AddStaff(host.Staff(1));
    other->AddMeasure(4, 1024);
    Refuse(HostCall::kSetCurrentEnigmaDocument);
    EXPECT_EQ(ErrorOf(frame.Staff(host.Staff(1), 0).IsLoaded()),
              "29998 FinPIStaff::FinPIStaff: SOSC");
    EXPECT_EQ(frame.Duration(), 4096) << "of the entries held";
    for (FinPITGFPtr none; FinPITGFPtr* const refused : {&frame, &none}) {
        EXPECT_EQ(refused->InsertEntries(0, 1) + refused->DeleteEntriesAt(0, 1), 0);
    }
    EXPECT_EQ(FinPITGFPtr{}.SaveTGF() + FinPITGFPtr{}.Duration(), 0);
}

TEST_F(Frames, RefusedReloadKeepsFrame) {
    FinPITGFPtr frame = Load();
    const EXFRAME* const held = frame.Frame();
    const std::pair<HostCall, const char*> refusals[] = {
        {HostCall::kSaveTGF, "29996 FinPITGFPtr::ReloadTGF: aTGF"},
        {HostCall::kLoadTGF, "29999 FinPITGFPtr::ReloadTGF: Unable to reload."},
        {HostCall::kGetCurrentEnigmaDocument, kNotCurrent},
    };
    for (const auto& [refused, error] : refusals) {
        Refuse(refused);
        EXPECT_EQ(ErrorOf(frame.ReloadTGF()), error);
        App().faults = {};
        EXPECT_EQ(frame.Frame(), held);
    }
    const FinPITGFPtr copy{std::as_const(frame)};
    EXPECT_EQ(copy.Count(), 5) << "a copy has a loan of its own";
    EXPECT_NE(copy.Frame(), held);
    const FinPIEntryPtr entry = frame.EntryAt(0);
    EXPECT_EQ(FinPITGFPtr{entry}.Frame(), held) << "one that shares a frame is copied as such";
    EXPECT_EQ(ErrorOf(Load(4).ReloadTGF()),
              "29999 FinPITGFPtr::ReloadTGF: TGFPtr is not self-destroy.");
    Refuse(HostCall::kLoadTGF);
    EXPECT_EQ(ErrorOf(FinPITGFPtr{std::as_const(frame)}.ReloadTGF()),
              "29999 FinPITGFPtr::ReloadTGF: TGFPtr is NULL.");
}

TEST_F(Frames, NeighborsAreInSameLayer) {
    host.Layer(1, 2, 0, "w:a4");
    const FinPITGFPtr next = Load().NextFrame();
    EXPECT_EQ(next.EntryAt(0)->duration, 4096);
    EXPECT_EQ(next.NominalMeasureDuration(), 4096);
    EXPECT_EQ(next.PreviousFrame().Count(), 5);
    EXPECT_FALSE(Load().PreviousFrame());
    EXPECT_FALSE(next.NextFrame().NextFrame()) << "past the last measure";
    EXPECT_EQ(+next.Frame()->firstKey, 0) << "as the host expects it";
    App().ResetCounts();
    EXPECT_FALSE((FinPITGFPtr{99, 1, 0})) << "a staff in no slot";
    EXPECT_EQ(App().calls.Of(HostCall::kLoadTGF), 0U);
}

TEST_F(Frames, OnlyHostLayersHavePreferences) {
    EXPECT_NE(FinPILayer{3}.IsLoaded(), 0);
    EXPECT_EQ(ErrorOf(FinPILayer{4}.IsLoaded()), "29999 FinPILayer::FinPILayer: Invalid layer.");
}

// No music has more notes in an entry, or such times.
TEST_F(Frames, DamagedEntriesAreClamped) {
    auto& stored = const_cast<Frame&>(*host.Score().FindFrame(host.Key(1, 1, 0)));
    stored.entries.front().noteCount = -3;
    stored.entries.front().elapsedTime = -7;
    stored.entries.back().noteCount = 99;
    stored.entries.back().elapsedTime = 1 << 29;
    stored.entries.back().actualDuration = 1 << 29;
    const FinPITGFPtr frame = Load();
    EXPECT_EQ(+frame.Entries().front().noteCount, 0);
    EXPECT_EQ(+frame.Entries().front().elapsedTime, 0);
    EXPECT_EQ(+frame.Entries().back().noteCount, 12);
    EXPECT_EQ(+frame.Entries().back().elapsedTime, 1 << 28);
    EXPECT_EQ(+frame.Entries().back().actualDuration, 1 << 28);
    EXPECT_TRUE(frame.EntryAt(0).Notes().empty());
    for (const i16 count : {i16{0}, i16{-1}}) {
        frame.Frame()->count = count;
        EXPECT_TRUE(frame.Entries().empty());
    }
    frame.Frame()->count = 5;
}

// A chord with these note IDs, and something in every note slot.
EXENTRY Chord(const std::vector<u16>& noteIDs) {
    EXENTRY chord{};
    chord.flags = EntryFlag::kNote;
    chord.noteCount = static_cast<i16>(noteIDs.size());
    for (EXNOTE& note : chord.notes) {
        note = {0x1234, 7, 0, NoteFlag::kTieStart | NoteFlag::kNoteIDCopy};
    }
    for (std::size_t i = 0; i < noteIDs.size(); ++i) {
        chord.notes[i].noteID = noteIDs[i];
    }
    return chord;
}

void Normalize(EXENTRY& entry) {
    NormalizeFrame({&entry, 1});
}

TEST(NormalForm, NoteIDsAreUnique) {
    const std::pair<std::vector<u16>, std::vector<u16>> cases[] = {
        {{5, 2, 9}, {5, 2, 9}},
        {{3, 3, 0}, {4, 3, 5}},  // of equal IDs the last is kept
        {{1, 1, 1}, {2, 3, 1}},
        {std::vector<u16>(12), {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
        {{40}, {40}},                                            // more than the flags hold
        {{0xFFFE, 1, 0, 0, 0xFFFE}, {0xFFFF, 1, 2, 3, 0xFFFE}},  // none above the last ID
        {{0xFFFF, 5, 5}, {0xFFFF, 1, 5}},
    };
    for (const auto& [before, after] : cases) {
        SCOPED_TRACE(testing::PrintToString(before));
        EXENTRY chord = Chord(before);
        Normalize(chord);
        ASSERT_EQ(chord.noteCount, std::ssize(after));
        for (std::size_t i = 0; i < kMaxNotesPerEntry; ++i) {
            const EXNOTE& note = chord.notes[i];
            const u16 noteID = i < after.size() ? after[i] : u16{0};
            const u32 flags = NoteFlag::kTieStart | ((noteID & 0x1FU) << 16U);
            EXPECT_EQ(note.noteID, noteID);
            EXPECT_EQ(note.pitch, noteID != 0 ? 0x1234 : 0) << "slots past the notes are cleared";
            EXPECT_EQ(+note.flags, noteID != 0 ? flags : 0);
        }
    }
}

TEST(NormalForm, RestHasOnePlaceholder) {
    EXENTRY rest = Chord({});
    rest.flags = EntryFlag::kIgnore;
    for (int time = 1; time <= 2; ++time) {
        Normalize(rest);
        EXPECT_EQ(rest.noteCount, 1);
        EXPECT_EQ(+rest.flags, EntryFlag::kIgnore | EntryFlag::kNoNotes);
        EXPECT_EQ(+rest.notes[0].flags, NoteFlag::kRestPlaceholder);
    }
    EXENTRY withNote = Chord({0});
    withNote.flags = 0;
    Normalize(withNote);
    EXPECT_EQ(+withNote.notes[0].noteID, 1) << "no placeholder";
}

}  // namespace
}  // namespace standin
