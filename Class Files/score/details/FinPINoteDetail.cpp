#include "Class Files/score/details/FinPINoteDetail.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

#include "shell/host/host_records.h"

namespace {

i16 FindNote(std::span<const EXNOTE> notes, auto&& matches) {
    const auto found = std::ranges::find_if(notes, matches);
    return found == notes.end() ? i16{-1} : static_cast<i16>(found - notes.begin());
}

}  // namespace

u16 FinPINoteDetail::RecordNoteID() const {
    NoteDetailHead head;
    std::memcpy(&head, GetData(), sizeof(head));
    return head.noteID;
}

bool FinPINoteDetail::CanHaveDetail(const EXNOTE& note) const {
    return m_noteFlag == 0 || (note.flags & m_noteFlag) != 0;
}

i16 FinPINoteDetail::IsSkipped() const {
    return m_note >= 0 &&
           RecordNoteID() != m_entry.Notes()[static_cast<std::size_t>(m_note)].noteID;
}

i16 FinPINoteDetail::CopyAttributes(const FinPIEntryDetail& source) {
    if (FinPIEntryDetail::CopyAttributes(source) == 0 || m_note < 0) {
        return 0;
    }
    const NoteDetailHead head{m_entry.Notes()[static_cast<std::size_t>(m_note)].noteID};
    std::memcpy(MutableData(), &head, sizeof(head));
    return 1;
}

std::span<const u8> FinPINoteDetail::Identity() const {
    return FinPIEntryDetail::Identity().subspan(sizeof(NoteDetailHead));
}

i16 FinPINoteDetail::FindNoteOfRecord() const {
    const u16 noteID = RecordNoteID();
    return FindNote(m_entry.Notes(), [this, noteID](const EXNOTE& note) {
        return note.noteID == noteID && CanHaveDetail(note);
    });
}

i16 FinPINoteDetail::FindMatch(const EXNOTE& note, i16 place, bool byPitch) const {
    const std::span<const EXNOTE> notes = m_entry.Notes();
    if (byPitch) {
        return FindNote(notes, [this, &note](const EXNOTE& candidate) {
            return candidate.pitch == note.pitch && CanHaveDetail(candidate);
        });
    }
    const bool isThere =
        place < std::ssize(notes) && CanHaveDetail(notes[static_cast<std::size_t>(place)]);
    return isThere ? place : i16{-1};
}

i16 FinPINoteDetail::CopyNoteDetail(FinPINoteDetail& target, FinPINoteDetail& source,
                                    bool matchByPitch, i16& anyCopied) {
    std::map<std::pair<i16, u32>, u32> timesSeen;
    Walk records{source};
    while (records.Next()) {
        const i16 from = source.FindNoteOfRecord();
        if (from < 0) {
            continue;
        }
        const EXNOTE& note = source.m_entry.Notes()[static_cast<std::size_t>(from)];
        const i16 onto = target.FindMatch(note, from, matchByPitch);
        if (onto < 0) {
            continue;
        }
        target.SelectNote(onto);
        const u32 earlierEqual = timesSeen[{from, source.RecordKey()}]++;
        if (target.CopyRecord(source, earlierEqual, "FinPINoteDetail::CopyNoteDetail", anyCopied) ==
            0) {
            return 0;
        }
    }
    return records.HasFailed() ? 0 : 1;
}
