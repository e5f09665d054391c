// The form in which entries go to the host.
#include <gtest/gtest.h>
#include <vector>

#include "Class Files/score/NormalizeFrame.h"

namespace {

struct NoteIDCase {
    const char* name;
    std::vector<u16> before;
    std::vector<u16> after;
};

const NoteIDCase kNoteIDCases[] = {
    {"IDsOfTheirOwnStay", {5, 2, 9}, {5, 2, 9}},
    {"ANoteWithoutIDGetsOne", {1, 0}, {1, 2}},
    {"OfEqualIDsTheLastIsKept", {3, 3, 0}, {4, 3, 5}},
    {"OfThreeEqualOnesToo", {1, 1, 1}, {2, 3, 1}},
    {"AppendedNotesGoOnFromTheHighest", {1, 2, 0, 0}, {1, 2, 3, 4}},
    {"TwelveNotes", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
    {"MoreThanTheFlagsHold", {40}, {40}},
};

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

EXFRAME FrameOf(EXENTRY* entries, i16 count) {
    EXFRAME frame{};
    frame.entries = entries;
    frame.count = count;
    return frame;
}

TEST(NormalForm, NoteIDsAreUniqueAndCopiedToTheFlags) {
    for (const NoteIDCase& c : kNoteIDCases) {
        EXENTRY chord = Chord(c.before);
        EXFRAME frame = FrameOf(&chord, 1);
        NormalizeFrame(frame);
        ASSERT_EQ(chord.noteCount, static_cast<i16>(c.after.size())) << c.name;
        for (std::size_t i = 0; i < kMaxNotesPerEntry; ++i) {
            const EXNOTE& note = chord.notes[i];
            const u16 noteID = i < c.after.size() ? c.after[i] : u16{0};
            EXPECT_EQ(note.noteID, noteID) << c.name << ", note " << i;
            EXPECT_EQ(note.pitch, noteID != 0 ? 0x1234 : 0) << "slots past the notes are cleared";
            EXPECT_EQ(+note.flags,
                      noteID != 0 ? NoteFlag::kTieStart | ((noteID & 0x1FU) << 16U) : 0)
                << c.name;
        }
    }
}

TEST(NormalForm, ARestHasOnePlaceholderHoweverOftenItIsNormalized) {
    EXENTRY rest = Chord({});
    rest.flags = EntryFlag::kIgnore;
    EXFRAME frame = FrameOf(&rest, 1);
    for (int time = 1; time <= 2; ++time) {
        NormalizeFrame(frame);
        EXPECT_EQ(rest.noteCount, 1);
        EXPECT_EQ(+rest.flags, EntryFlag::kIgnore | EntryFlag::kNoNotes);
        EXPECT_EQ(+rest.notes[0].flags, NoteFlag::kRestPlaceholder);
        EXPECT_EQ(rest.notes[0].noteID, 0);
    }
}

TEST(NormalForm, AnEmptyFrameStaysEmpty) {
    EXFRAME frame{};
    NormalizeFrame(frame);
    EXPECT_TRUE(frame.entries == nullptr);
}

}  // namespace
