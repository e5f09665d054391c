#include "Class Files/score/frames/NormalizeFrame.h"

#include <algorithm>

namespace {

constexpr u32 kNoteIDCopyShift = 16;
constexpr u32 kNoteIDCopyBits = NoteFlag::kNoteIDCopy >> kNoteIDCopyShift;

bool IsPlaceholder(const EXENTRY& entry, const EXNOTE& note) {
    return (entry.flags & EntryFlag::kNote) == 0 && note.noteID == 0 &&
           (note.flags & NoteFlag::kRestPlaceholder) != 0;
}

bool IsUniqueID(std::span<const EXNOTE> notes, u16 noteID) {
    return std::ranges::count_if(
               notes, [noteID](const EXNOTE& note) { return note.noteID == noteID; }) == 1;
}

u16 LowestFreeID(std::span<const EXNOTE> notes) {
    u16 noteID = 1;
    while (std::ranges::find(notes, noteID, &EXNOTE::noteID) != notes.end()) {
        ++noteID;
    }
    return noteID;
}

// If two notes have the same ID, the later one keeps it.
void AssignNoteIDs(std::span<EXNOTE> notes) {
    u16 highest = 0;
    for (const EXNOTE& note : notes) {
        highest = std::max(highest, note.noteID);
    }
    for (EXNOTE& note : notes) {
        if (note.noteID == 0 || !IsUniqueID(notes, note.noteID)) {
            note.noteID = highest < UINT16_MAX ? ++highest : LowestFreeID(notes);
        }
        note.flags = (note.flags & ~NoteFlag::kNoteIDCopy) |
                     ((note.noteID & kNoteIDCopyBits) << kNoteIDCopyShift);
    }
}

void NormalizeEntry(EXENTRY& entry) {
    entry.noteCount = std::clamp<i16>(entry.noteCount, 0, kMaxNotesPerEntry);
    const std::span<EXNOTE> slots{entry.notes};
    const std::span<EXNOTE> notes = slots.first(static_cast<std::size_t>(entry.noteCount));
    if (notes.size() != 1 || !IsPlaceholder(entry, notes.front())) {
        AssignNoteIDs(notes);
    }
    std::ranges::fill(slots.subspan(notes.size()), EXNOTE{});
    if (notes.empty()) {
        entry.flags |= EntryFlag::kNoNotes;
        entry.noteCount = 1;
        slots.front().flags = NoteFlag::kRestPlaceholder;
    }
}

}  // namespace

void NormalizeFrame(std::span<EXENTRY> entries) {
    for (EXENTRY& entry : entries) {
        NormalizeEntry(entry);
    }
}
