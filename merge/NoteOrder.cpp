#include "merge/NoteOrder.h"

#include <algorithm>

namespace {

void PutFirst(std::span<EXNOTE> notes, const std::vector<u16>& noteIDs) {
    auto place = notes.begin();
    for (const u16 noteID : noteIDs) {
        const auto found = std::find_if(
            place, notes.end(), [noteID](const EXNOTE& note) { return note.noteID == noteID; });
        if (found != notes.end()) {
            std::rotate(place, found, found + 1);
            ++place;
        }
    }
}

}  // namespace

std::vector<u16> NoteIDs(const FinPIEntryPtr& entry) {
    std::vector<u16> noteIDs;
    for (const EXNOTE& note : entry.Notes()) {
        noteIDs.push_back(note.noteID);
    }
    return noteIDs;
}

NotesInOrder::NotesInOrder(const FinPIEntryPtr& entry, const std::vector<u16>& noteIDs)
    : m_entry{entry}, m_before{NoteIDs(entry)} {
    PutFirst(m_entry.Notes(), noteIDs);
}

NotesInOrder::~NotesInOrder() {
    PutFirst(m_entry.Notes(), m_before);
}
