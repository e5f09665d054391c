// The host's records that are attached to an entry and whose content only the host knows. All are
// assumed to be 12 bytes, times the tag's second character where that is a small number; a detail
// of a note is assumed to begin with the note's ID.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

// The key of a detail.
struct EntryDetailKey {
    u32 entryNumber;
    u16 recordNumber;  // among the entry's records of the tag, from 0
};

// Details of an entry.

struct EDTArticulation25_6 {
    u8 opaque0[12];
};
struct EDTLyricEntryInfo {
    u8 opaque0[12];
};
struct EDTBeamAltRecord {
    u8 opaque0[24];
};
struct EDTSecondaryBeamBreak {
    u8 opaque0[12];
};
struct EDTBeamExtension {
    u8 opaque0[12];
};
struct STHG {
    u8 opaque0[12];
};
struct EDTCustomStemMods {
    u8 opaque0[12];
};
struct BEAMSTUB {
    u8 opaque0[12];
};
struct EDTAlter {
    u8 opaque0[12];
};

// Details of a note.

struct EDTCrossStaff {
    u16 noteID;
    u8 opaque2[10];
};
struct EDTAccidentalMods2012 {
    u16 noteID;
    u8 opaque2[22];
};
struct EDTNoteheadMods2012 {
    u16 noteID;
    u8 opaque2[22];
};
struct EDTTieMods {
    u16 noteID;
    u8 opaque2[34];
};
struct EDTDotMods {
    u16 noteID;
    u8 opaque2[10];
};
struct EDTPercNoteCode {
    u16 noteID;
    u8 opaque2[10];
};

#pragma pack(pop)

static_assert(sizeof(EntryDetailKey) == 6 && offsetof(EntryDetailKey, recordNumber) == 4);
static_assert(sizeof(EDTArticulation25_6) == 12 && sizeof(EDTLyricEntryInfo) == 12);
static_assert(sizeof(EDTBeamAltRecord) == 24 && sizeof(EDTSecondaryBeamBreak) == 12);
static_assert(sizeof(EDTBeamExtension) == 12 && sizeof(STHG) == 12);
static_assert(sizeof(EDTCustomStemMods) == 12 && sizeof(BEAMSTUB) == 12);
static_assert(sizeof(EDTAlter) == 12 && sizeof(EDTCrossStaff) == 12);
static_assert(sizeof(EDTAccidentalMods2012) == 24 && sizeof(EDTNoteheadMods2012) == 24);
static_assert(sizeof(EDTTieMods) == 36 && sizeof(EDTDotMods) == 12);
static_assert(sizeof(EDTPercNoteCode) == 12);
