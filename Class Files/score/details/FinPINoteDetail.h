// A detail of one note of an entry, such as the shape of its notehead.
#pragma once

#include "Class Files/score/details/FinPIEntryDetail.h"

// The record begins with the note's ID. That of the note it is copied to takes its place.
class FinPINoteDetail : public FinPIEntryDetail {
public:
    // Index into the entry's notes; records of other notes are then skipped. At first none is
    // selected, and no record is skipped.
    virtual void SelectNote(i16 note) { m_note = note; }

    i16 IsSkipped() const override;
    i16 CopyAttributes(const FinPIEntryDetail& source) override;
    std::span<const u8> Identity() const override;

    // Copies the details of each source note to the note with the same pitch, or else the same
    // index, among the notes that can have them; other details are left out. Both entries are in
    // one staff and measure, where equal pitch fields are equal pitches, transposed or not.
    static i16 CopyNoteDetail(FinPINoteDetail& target, FinPINoteDetail& source, bool matchByPitch,
                              i16& anyCopied);

protected:
    // noteFlag: only notes with this flag have such details; 0 = all can.
    FinPINoteDetail(const FinPIEntryPtr& entry, u32 tag, u32 entryFlags, u32 noteFlag)
        : FinPIEntryDetail{entry, tag, 0, entryFlags}, m_noteFlag{noteFlag} {}
    ~FinPINoteDetail() = default;

private:
    u16 RecordNoteID() const;
    bool CanHaveDetail(const EXNOTE& note) const;
    // Indices into the entry's notes; -1 = none: the note that the loaded record belongs to, and
    // the one that corresponds to another entry's note at this place.
    i16 FindNoteOfRecord() const;
    i16 FindMatch(const EXNOTE& note, i16 place, bool byPitch) const;

    u32 m_noteFlag;
    i16 m_note = -1;
};
