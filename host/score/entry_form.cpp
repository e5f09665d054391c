#include "host/score/entry_form.h"

#include <algorithm>
#include <vector>

namespace standin {
namespace {

constexpr u32 IDCopy(u16 noteID) noexcept {
    return (u32{noteID} << 16U) & NoteFlag::kNoteIDCopy;
}

bool IsPlaceholder(const EXNOTE& note) noexcept {
    return (note.flags & NoteFlag::kRestPlaceholder) != 0;
}

const char* WhyNotesAreWrong(const EXENTRY& entry) noexcept {
    u32 seen[kMaxNotesPerEntry] = {};
    for (i16 i = 0; i < entry.noteCount; ++i) {
        const EXNOTE& note = entry.notes[i];
        if (IsPlaceholder(note)) {
            return "a rest's placeholder among notes";
        }
        if (note.noteID == 0) {
            return "a note without ID";
        }
        if ((note.flags & NoteFlag::kNoteIDCopy) != IDCopy(note.noteID)) {
            return "a note whose flags carry another ID";
        }
        if (std::find(seen, seen + i, note.noteID) != seen + i) {
            return "two notes with one ID";
        }
        seen[i] = note.noteID;
    }
    return nullptr;
}

const char* WhyEntryIsWrong(const EXENTRY& entry) noexcept {
    if (entry.noteCount < 0 || entry.noteCount > kMaxNotesPerEntry) {
        return "a note count out of range";
    }
    if (entry.duration < 0) {
        return "a negative duration";
    }
    if ((entry.flags & EntryFlag::kNote) == 0) {
        const bool bare =
            entry.noteCount == 0 || (entry.noteCount == 1 && IsPlaceholder(entry.notes[0]));
        return bare ? nullptr : "a rest with notes";
    }
    if (entry.noteCount == 0) {
        return "a note entry without notes";
    }
    return entry.duration == 0 ? "a note without duration" : WhyNotesAreWrong(entry);
}

}  // namespace

void ToStoredForm(EXENTRY& entry) noexcept {
    if (entry.noteCount == 1 && IsPlaceholder(entry.notes[0])) {
        entry.noteCount = 0;
    }
    if (entry.noteCount == 0) {
        entry.flags |= EntryFlag::kNoNotes;
    } else {
        entry.flags &= ~EntryFlag::kNoNotes;
    }
    for (i16 i = 0; i < kMaxNotesPerEntry; ++i) {
        EXNOTE& note = entry.notes[i];
        if (i < entry.noteCount) {
            note.flags = (note.flags & ~NoteFlag::kNoteIDCopy) | IDCopy(note.noteID);
        } else {
            note = EXNOTE{};
        }
    }
}

const char* WhyNotStorable(std::span<const EXENTRY> entries) {
    bool mayContinueVoice2 = false;
    std::vector<u32> numbers;
    numbers.reserve(entries.size());
    for (const EXENTRY& entry : entries) {
        if (const char* reason = WhyEntryIsWrong(entry)) {
            return reason;
        }
        const bool isVoice2 = (entry.flags & EntryFlag::kVoice2) != 0;
        if (isVoice2 && !mayContinueVoice2) {
            return "voice 2 without the entry that launches it";
        }
        mayContinueVoice2 = isVoice2 || (entry.flags & EntryFlag::kLaunchVoice2) != 0;
        numbers.push_back(u32{entry.entryNumber});
    }
    std::ranges::sort(numbers);
    if (std::ranges::adjacent_find(numbers) != numbers.end()) {
        return "an entry that appears twice";
    }
    return nullptr;
}

}  // namespace standin
