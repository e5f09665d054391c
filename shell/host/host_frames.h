// Data that the host lends or fills in: the selection region, entry frames with their entries and
// notes, metrics, the window's state and the menu item descriptor. Little-endian, packed to two
// bytes; every size and every used offset is asserted here.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

// A selection: slots of a staff list, and a span of time with both ends included.
struct EREGION {
    u16 startStaffList;  // 0 = the score's own
    i16 startSlot;       // from 1
    i16 startMeasure;    // from 1
    i32 startPosition;   // in the measure's nominal duration units
    u16 endStaffList;
    i16 endSlot;
    i16 endMeasure;
    i32 endPosition;  // kEndOfMeasure = through the end of the measure
};

// One notehead of an entry.
struct EXNOTE {
    u16 pitch;   // assumed: upper 12 bits signed diatonic steps above the key's tonic at
                 // middle C, low 4 bits alteration (bit 3 sign, bits 0-2 magnitude)
    u16 second;  // the host's
    u16 noteID;  // unique within the entry; 0 = not yet assigned
    u32 flags;   // NoteFlag
};

// A note, chord or rest.
struct EXENTRY {
    u32 entryNumber;  // the entry's identity; never changes, never reused
    i16 duration;     // notated, in duration units
    u16 fieldAt6;     // copied with the entry
    u32 flags;        // EntryFlag
    u16 fieldAt12;    // copied with the entry
    i16 noteCount;    // 0 to kMaxNotesPerEntry
    EXNOTE notes[kMaxNotesPerEntry];
    i32 elapsedTime;     // start from the barline, in the staff's duration units
    i32 actualDuration;  // time taken, tuplets applied; 0 for a grace entry
    u16 fieldAt144;      // the host's
};

// The entries of one layer of one staff in one measure. Lent by FX_LoadTGF until FX_FreeTGF.
struct EXFRAME {
    u16 firstKey;
    u16 slot;   // in the score's own staff list
    u16 staff;  // the host's instrument number
    u16 measure;
    u16 layer;  // from 0
    u8 opaque10[4];
    EXENTRY* entries;  // may be null; moves with insert and delete
    i16 count;
};

// The position of an entry on its page. Every field is assumed.
struct ENTRYMETRICS {
    i32 left;
    i32 top;
    i32 right;
    i32 bottom;
    i16 stemDirection;  // 1 up, -1 down, 0 no stem
    u16 pageNumber;     // 0 = not visible in page view
    u8 opaque20[12];
};

// The front window. Both fields are assumed.
struct WINDOWINFO {
    u16 document;
    u16 view;  // 0 page, 1 scroll, 2 studio
    u8 opaque4[12];
};

// One item of the host's plug-in menu, owned by the host.
struct MenuItemDescriptor {
    char16 text[128];
    char16 description[128];
    char16 textCopy[128];
    u16 skipsDialog;
    u16 alwaysOne;
    u8 opaque772[6];
    u32 flags;  // bit 0: the item opens a dialog
    u8 opaque782[242];
};

#pragma pack(pop)

static_assert(sizeof(EREGION) == 20);
static_assert(offsetof(EREGION, startSlot) == 2 && offsetof(EREGION, startMeasure) == 4);
static_assert(offsetof(EREGION, startPosition) == 6 && offsetof(EREGION, endStaffList) == 10);
static_assert(offsetof(EREGION, endSlot) == 12 && offsetof(EREGION, endMeasure) == 14);
static_assert(offsetof(EREGION, endPosition) == 16);

static_assert(sizeof(EXNOTE) == 10 && offsetof(EXNOTE, second) == 2);
static_assert(offsetof(EXNOTE, noteID) == 4 && offsetof(EXNOTE, flags) == 6);

static_assert(sizeof(EXENTRY) == 146);
static_assert(offsetof(EXENTRY, duration) == 4 && offsetof(EXENTRY, flags) == 8);
static_assert(offsetof(EXENTRY, fieldAt6) == 6 && offsetof(EXENTRY, fieldAt12) == 12);
static_assert(offsetof(EXENTRY, fieldAt144) == 144);
static_assert(offsetof(EXENTRY, noteCount) == 14 && offsetof(EXENTRY, notes) == 16);
static_assert(offsetof(EXENTRY, elapsedTime) == 136 && offsetof(EXENTRY, actualDuration) == 140);

static_assert(offsetof(EXFRAME, slot) == 2 && offsetof(EXFRAME, staff) == 4);
static_assert(offsetof(EXFRAME, measure) == 6 && offsetof(EXFRAME, layer) == 8);
static_assert(offsetof(EXFRAME, entries) == 14 && offsetof(EXFRAME, count) == 22);

static_assert(sizeof(ENTRYMETRICS) == 32 && offsetof(ENTRYMETRICS, stemDirection) == 16);
static_assert(offsetof(ENTRYMETRICS, pageNumber) == 18);
static_assert(sizeof(WINDOWINFO) == 16 && offsetof(WINDOWINFO, view) == 2);

static_assert(sizeof(MenuItemDescriptor) == 1024);
static_assert(offsetof(MenuItemDescriptor, description) == 256);
static_assert(offsetof(MenuItemDescriptor, textCopy) == 512);
static_assert(offsetof(MenuItemDescriptor, skipsDialog) == 768);
static_assert(offsetof(MenuItemDescriptor, alwaysOne) == 770);
static_assert(offsetof(MenuItemDescriptor, flags) == 778);

// Bits of EXENTRY::flags. The bits that mark attached details are in detail_flags.h.
namespace EntryFlag {
inline constexpr u32 kMadeRest = 0x80000000;      // set on every entry turned into a rest
inline constexpr u32 kNote = 0x40000000;          // a note or chord; clear: a rest
inline constexpr u32 kLaunchVoice2 = 0x20000000;  // voice-2 entries follow in the array
inline constexpr u32 kVoice2 = 0x10000000;
inline constexpr u32 kNoNotes = 0x01000000;  // set on entries without notes
inline constexpr u32 kGrace = 0x00800000;
inline constexpr u32 kIgnore = 0x00008000;  // hidden; such an entry has no metrics
}  // namespace EntryFlag

// Bits of EXNOTE::flags.
namespace NoteFlag {
inline constexpr u32 kRestPlaceholder = 0x80000000;
inline constexpr u32 kTieStart = 0x40000000;
inline constexpr u32 kTieEnd = 0x20000000;
inline constexpr u32 kCrossStaff = 0x10000000;
inline constexpr u32 kNoteIDCopy = 0x001F0000;  // the low five bits of the note ID
}  // namespace NoteFlag
