#include "Class Files/score/document/FinPIStaff.h"

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u32 kStaffAtMeasure = HostTag("SOSC");
constexpr u32 kNameText = HostTag("txbl");
constexpr u32 kFullNamePosition = HostTag("otNS");
constexpr u32 kAbbreviatedNamePosition = HostTag("otns");
constexpr u16 kNoItem = 0xFFFF;  // creating a text with it takes the next free item

// Dependent structures of the serialized form, in order.
enum DependentStruct : u16 {
    kFullName = 2,
    kAbbreviatedName,
    kFullNamePos,
    kAbbreviatedNamePos,
    kFret,
    kFirstShapeNotes,
    kLastShapeNotes = kFirstShapeNotes + 3,
    kDrumStaff,
};

// A record that the staff refers to by item number; 0 = by none.
template <typename Record>
bool LoadReferred(Record& record, u16 item) {
    if (item == 0) {
        return true;
    }
    record.SetCmpers(item);
    return record.Load() != 0;
}

i16 CommitText(FinPIText& text, u16& item) {
    const bool hasData = text.IsEmpty() == 0;
    if (text.Commit() == 0) {
        return 0;
    }
    item = hasData ? text.GetCmper1() : u16{0};
    return 1;
}

u16 NextFretInstrument() {
    FinPIFretInstrument last{0};
    return last.LoadLast() != 0 ? static_cast<u16>(last.GetCmper1() + 1) : u16{1};
}

}  // namespace

FinPIStaff::FinPIStaff(u16 staff, i16 measure, u32 position)
    : StaffRecord{measure > 0 ? kStaffAtMeasure : HostTag("SOIS"), staff, 0},
      m_meas{std::max(measure, i16{0})},
      m_pos{position},
      m_isRealStaff{static_cast<u16>(measure > 0 ? 0 : 1)},
      m_fullName{kNameText, kNoItem, 0},
      m_abbreviatedName{kNameText, kNoItem, 0},
      m_fullNamePosition{kFullNamePosition, staff, 0},
      m_abbreviatedNamePosition{kAbbreviatedNamePosition, staff, 0},
      m_fretInstrument{kNoItem},
      m_shapeNoteDoubleWhole{staff},
      m_shapeNoteWhole{staff},
      m_shapeNoteHalf{staff},
      m_shapeNoteQuarter{staff},
      m_drumStaff{staff} {
    if (Load() == 0 || !LoadDependents()) {
        PostRecordError<FinPILoadEDataFailed>("FinPIStaff::FinPIStaff", m_tag);
    }
}

std::array<ShapeNotesRecord*, 4> FinPIStaff::ShapeNotes() noexcept {
    return {&m_shapeNoteDoubleWhole, &m_shapeNoteWhole, &m_shapeNoteHalf, &m_shapeNoteQuarter};
}

// A staff need not have its own positions, shape notes and drums, but records that it refers to by
// number must exist.
bool FinPIStaff::LoadDependents() {
    m_fullNamePosition.Load();
    m_abbreviatedNamePosition.Load();
    m_drumStaff.Load();
    if ((flags & StaffFlag::kShapeNotes) != 0) {
        for (ShapeNotesRecord* const record : ShapeNotes()) {
            record->Load();
        }
    }
    const bool hasFret = (flags & StaffFlag::kFretInstrument) != 0;
    return LoadReferred(m_fullName, fullNameText) &&
           LoadReferred(m_abbreviatedName, abbreviatedNameText) &&
           LoadReferred(m_fretInstrument, hasFret ? fretInstrument : u16{0});
}

u16 FinPIStaff::GetKey(EnigmaKey& out) const {
    if (m_isRealStaff != 0) {
        return StaffRecord::GetKey(out);
    }
    out = {m_cmper1, static_cast<u16>(m_meas), static_cast<u16>(m_pos),
           static_cast<u16>(m_pos >> 16U)};
    return 4 * sizeof(u16);
}

void FinPIStaff::SetKey(const EnigmaKey& key) {
    if (m_isRealStaff != 0) {
        StaffRecord::SetKey(key);
        return;
    }
    m_cmper1 = key[0];
    m_meas = static_cast<i16>(key[1]);
    m_pos = key[2] | (u32{key[3]} << 16U);
}

i16 FinPIStaff::Commit() {
    if (m_isRealStaff == 0) {
        PostError(FinPIAppError("FinPIStaff::Commit", "Cannot modify a virtual staff."));
        return 0;
    }
    // Dependent records would be written to the other document, although the staff cannot be.
    if (Host::GetCurrentEnigmaDocument() != m_docID) {
        PostError(
            FinPIAppError("FinPIStaff::Commit", "Attempted to update a non-current document"));
        return 0;
    }
    return CommitNameTexts() != 0 && CommitFretInstrument() != 0 && StaffRecord::Commit() != 0 &&
           m_fullNamePosition.Commit() != 0 && m_abbreviatedNamePosition.Commit() != 0 &&
           CommitShapeNotes() != 0;
}

i16 FinPIStaff::CommitNameTexts() {
    return m_commitNameTexts == 0 || (CommitText(m_fullName, fullNameText) != 0 &&
                                      CommitText(m_abbreviatedName, abbreviatedNameText) != 0);
}

i16 FinPIStaff::CommitFretInstrument() {
    if ((flags & StaffFlag::kFretInstrument) == 0) {
        fretInstrument = 0;
        return 1;
    }
    // Created at a number in use, it would take the place of another staff's.
    if (m_fretInstrument.IsLoaded() == 0 && m_fretInstrument.IsEmpty() == 0 &&
        m_fretInstrument.GetCmper1() == kNoItem) {
        m_fretInstrument.SetCmpers(NextFretInstrument());
    }
    if (m_fretInstrument.Commit() == 0) {
        return 0;
    }
    if (m_fretInstrument.IsLoaded() != 0) {
        fretInstrument = m_fretInstrument.GetCmper1();
    } else {
        flags &= static_cast<u16>(~StaffFlag::kFretInstrument);
        fretInstrument = 0;
    }
    return 1;
}

i16 FinPIStaff::CommitShapeNotes() {
    if ((flags & StaffFlag::kShapeNotes) == 0) {
        return DeleteShapeNotes();
    }
    if (m_commitShapeNotes == 0) {
        return 1;
    }
    bool anyLoaded = false;
    for (ShapeNotesRecord* const record : ShapeNotes()) {
        if (record->Commit() == 0) {
            return 0;
        }
        anyLoaded = anyLoaded || record->IsLoaded() != 0;
    }
    if (anyLoaded) {
        return 1;
    }
    flags &= static_cast<u16>(~StaffFlag::kShapeNotes);
    return Save();
}

i16 FinPIStaff::DeleteShapeNotes() {
    for (ShapeNotesRecord* const record : ShapeNotes()) {
        record->Reset(0);
        if (record->Load() != 0 && record->Delete() == 0) {
            return 0;
        }
    }
    return 1;
}

FinPIEnigmaData* FinPIStaff::Dependent(u16 index) {
    switch (index) {
        case kFullName:
            return &m_fullName;
        case kAbbreviatedName:
            return &m_abbreviatedName;
        case kFullNamePos:
            return &m_fullNamePosition;
        case kAbbreviatedNamePos:
            return &m_abbreviatedNamePosition;
        case kFret:
            return &m_fretInstrument;
        case kDrumStaff:
            return &m_drumStaff;
        default:
            return index >= kFirstShapeNotes && index <= kLastShapeNotes
                       ? ShapeNotes()[static_cast<std::size_t>(index - kFirstShapeNotes)]
                       : nullptr;
    }
}

u32 FinPIStaff::GetSerializedDependentStruct(u16 index, u16 /*serialVersion*/, void* out,
                                             u32 size) const {
    const FinPIEnigmaData* const dependent = const_cast<FinPIStaff*>(this)->Dependent(index);
    return dependent == nullptr ? 0 : dependent->GetSerialized(out, size);
}

i16 FinPIStaff::PutSerializedDependentStruct(u16 index, u16 /*serialVersion*/, const void* bytes,
                                             u32 size) {
    FinPIEnigmaData* const dependent = Dependent(index);
    if (dependent == nullptr || dependent->PutSerialized(bytes, size) == 0) {
        return 0;
    }
    if (index == kFullName || index == kAbbreviatedName) {
        m_commitNameTexts = 1;
    } else if (index >= kFirstShapeNotes && index <= kLastShapeNotes) {
        m_commitShapeNotes = 1;
    }
    return 1;
}

i16 FinPIStaff::GetField(u16 field, u16 serialVersion, void* out, u32 size) const {
    if (StaffRecord::GetField(field, serialVersion, out, size) != 0) {
        return 1;
    }
    const FinPIVarString other("GetSerialized failed for fieldID %d", int{field});
    PostError(FinPIAppError("FinPIStaff::GetField", field == kDrumStaff
                                                        ? "GetSerialized failed for m_drumStaff."
                                                        : other.Text()));
    return 0;
}
