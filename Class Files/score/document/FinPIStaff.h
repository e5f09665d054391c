// A staff, in general or at a position in the score, with its dependent records.
#pragma once

#include <array>

#include "Class Files/score/document/FinPIShapeNote.h"

// The general staff can be changed and committed. The staff at a measure and position is the host's
// record of what is in effect there, and read-only.
class FinPIStaff final : public StaffRecord {
public:
    // Loads the staff, at a measure when that is above 0, and the records that it refers to;
    // posts a failure. position in the measure's nominal duration units.
    explicit FinPIStaff(u16 staff, i16 measure = 0, u32 position = 0);

    u16 GetSerialVersion() const override { return 1; }
    i16 GetField(u16 field, u16 serialVersion, void* out, u32 size) const override;
    // Also commits the dependent records and puts their item numbers into the staff. Fails, and
    // posts, when the staff's document is not the current one.
    i16 Commit() override;
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    u32 GetSerializedDependentStruct(u16 index, u16 serialVersion, void* out,
                                     u32 size) const override;
    i16 PutSerializedDependentStruct(u16 index, u16 serialVersion, const void* bytes,
                                     u32 size) override;

    // The clef that holds at the staff's measure and position; percent (may be null) becomes its
    // size. 0 with an error posted when there is none. Walks the clef changes back from there.
    i16 CurrClef(u16* percent) const;

    bool IsRealStaff() const noexcept { return m_isRealStaff != 0; }
    FinPIText& FullName() noexcept { return m_fullName; }
    FinPIText& AbbreviatedName() noexcept { return m_abbreviatedName; }
    FinPINamePos& FullNamePosition() noexcept { return m_fullNamePosition; }
    FinPINamePos& AbbreviatedNamePosition() noexcept { return m_abbreviatedNamePosition; }
    FinPIFretInstrument& FretInstrument() noexcept { return m_fretInstrument; }
    // Of double whole, whole, half and quarter notes.
    std::array<ShapeNotesRecord*, 4> ShapeNotes() noexcept;
    FinPIDrumStaff& DrumStaff() noexcept { return m_drumStaff; }
    // Whether a commit saves the name texts; the shape notes.
    void SetCommitNameTexts(bool commit) noexcept { m_commitNameTexts = commit ? 1 : 0; }
    void SetCommitShapeNotes(bool commit) noexcept { m_commitShapeNotes = commit ? 1 : 0; }

private:
    bool LoadDependents();
    i16 CommitNameTexts();
    i16 CommitFretInstrument();
    i16 CommitShapeNotes();
    i16 DeleteShapeNotes();
    FinPIEnigmaData* Dependent(u16 index);

    i16 m_meas;
    u32 m_pos;
    u16 m_isRealStaff;
    u16 m_commitNameTexts = 0;
    FinPIText m_fullName;
    FinPIText m_abbreviatedName;
    FinPINamePos m_fullNamePosition;
    FinPINamePos m_abbreviatedNamePosition;
    FinPIFretInstrument m_fretInstrument;
    u16 m_commitShapeNotes = 0;
    FinPIShapeNoteDoubleWhole m_shapeNoteDoubleWhole;
    FinPIShapeNoteWhole m_shapeNoteWhole;
    FinPIShapeNoteHalf m_shapeNoteHalf;
    FinPIShapeNoteQuarter m_shapeNoteQuarter;
    FinPIDrumStaff m_drumStaff;
};
