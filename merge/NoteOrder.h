// The order of an entry's notes, which the host may change whenever it saves them.
#pragma once

#include <vector>

#include "Class Files/score/frames/FinPIEntryPtr.h"

// The IDs of the entry's notes, in their order.
std::vector<u16> NoteIDs(const FinPIEntryPtr& entry);

// Puts the notes with these IDs first, in this order, until the scope ends.
class NotesInOrder {
public:
    NotesInOrder(const FinPIEntryPtr& entry, const std::vector<u16>& noteIDs);
    ~NotesInOrder();
    NotesInOrder(const NotesInOrder&) = delete;
    NotesInOrder& operator=(const NotesInOrder&) = delete;

private:
    const FinPIEntryPtr& m_entry;
    std::vector<u16> m_before;
};
