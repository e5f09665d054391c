// The host's stored records, as far as this project reads or writes them. Bytes that belong
// to the host alone are named opaque and are carried unchanged. A field that a host might
// keep elsewhere is marked "assumed": such a host needs a change in this file only.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

struct EDTMeasureSpec2014 {
    u8 opaque0[8];
    i16 beats;
    i16 beatDuration;  // duration units
    u16 flags;         // MeasureFlag
    u16 positioning;   // assumed: the low three bits are the positioning mode
    u16 key;           // assumed
    u8 opaque18[12];
};

// 'SOIS' by staff; 'SOSC' by staff, measure and position.
struct EDTStaffSpec2014 {
    u8 opaque0[10];
    u16 flags;  // StaffFlag
    u8 opaque12;
    u8 transpositionClef;
    u8 opaque14[6];
    u16 transposition;
    u8 opaque22[8];
    u16 fullNameText;
    u16 abbreviatedNameText;
    u8 opaque34[12];
    u16 fretInstrument;
    u8 opaque48[88];
};

struct EDTStaffSystemSpec2005 {
    u8 opaque0[8];
    i16 firstMeasure;
    u8 opaque10[2];
    i16 nextSystemFirstMeasure;
    u8 opaque14[14];
};

struct EDTPageSpec {
    u8 opaque0[22];
};

struct EDTLayerPrefs {
    u8 opaque0[4];
};

struct CurrEDTMiscPrefs {
    u8 opaque0[6];
    u16 keepOctaveTransposition;
    u16 showActiveLayerOnly;
    u8 opaque10[26];
};

// An expression assigned to a position in a measure. The bytes from 24 on do not belong to the
// host.
struct MyExpressionAssign {
    u16 definition;
    u16 positionLow;
    u8 opaque4[4];
    i16 staff;  // negative counts as 0
    u16 layer;  // ExpressionLayer
    u8 opaque12[2];
    u16 staffListMarker;  // nonzero: assigned through a staff list
    u16 positionHigh;
    i16 graceIndex;
    u8 opaque20[4];
    u16 hasPosition;     // filled after every load
    u16 belongsToEntry;  // filled after every load
    u8 cached28[16];
};

struct EDTSmartShapeEnd {
    u16 staff;
    u16 measure;
    u32 entryNumber;
    i32 position;
};

struct EDTSmartShape {
    u8 opaque0[4];
    EDTSmartShapeEnd start;  // assumed
    u8 opaque16[8];
    EDTSmartShapeEnd end;  // assumed
    u8 opaque36[56];
};

// Marks an entry as an end of a smart shape; 'edEx' for entries, 'edLx' for lyrics.
struct EDTSmartShapeEntMark {
    u16 shapeNumber;  // assumed
    u8 opaque2[10];
};

struct EDTLyric2011 {
    u16 textBlock;  // assumed
    u16 syllable;   // assumed
    u8 opaque4[8];
};

struct EDTTuplet2005 {
    i16 symbolicCount;          // assumed
    i16 symbolicUnitDuration;   // assumed, duration units
    i16 referenceCount;         // assumed
    i16 referenceUnitDuration;  // assumed, duration units
    u8 opaque8[28];
};

// The beginning of every detail of a note.
struct NoteDetailHead {
    u16 noteID;  // assumed
};

#pragma pack(pop)

static_assert(sizeof(EDTMeasureSpec2014) == 30);
static_assert(offsetof(EDTMeasureSpec2014, beats) == 8);
static_assert(offsetof(EDTMeasureSpec2014, beatDuration) == 10);
static_assert(offsetof(EDTMeasureSpec2014, flags) == 12);
static_assert(offsetof(EDTMeasureSpec2014, positioning) == 14);
static_assert(offsetof(EDTMeasureSpec2014, key) == 16);

static_assert(sizeof(EDTStaffSpec2014) == 136);
static_assert(offsetof(EDTStaffSpec2014, flags) == 10);
static_assert(offsetof(EDTStaffSpec2014, transpositionClef) == 13);
static_assert(offsetof(EDTStaffSpec2014, transposition) == 20);
static_assert(offsetof(EDTStaffSpec2014, fullNameText) == 30);
static_assert(offsetof(EDTStaffSpec2014, abbreviatedNameText) == 32);
static_assert(offsetof(EDTStaffSpec2014, fretInstrument) == 46);

static_assert(sizeof(EDTStaffSystemSpec2005) == 28);
static_assert(offsetof(EDTStaffSystemSpec2005, firstMeasure) == 8);
static_assert(offsetof(EDTStaffSystemSpec2005, nextSystemFirstMeasure) == 12);

static_assert(sizeof(EDTPageSpec) == 22);
static_assert(sizeof(EDTLayerPrefs) == 4);

static_assert(sizeof(CurrEDTMiscPrefs) == 36);
static_assert(offsetof(CurrEDTMiscPrefs, keepOctaveTransposition) == 6);
static_assert(offsetof(CurrEDTMiscPrefs, showActiveLayerOnly) == 8);

static_assert(sizeof(MyExpressionAssign) == 44);
static_assert(offsetof(MyExpressionAssign, positionLow) == 2);
static_assert(offsetof(MyExpressionAssign, staff) == 8);
static_assert(offsetof(MyExpressionAssign, layer) == 10);
static_assert(offsetof(MyExpressionAssign, staffListMarker) == 14);
static_assert(offsetof(MyExpressionAssign, positionHigh) == 16);
static_assert(offsetof(MyExpressionAssign, graceIndex) == 18);
static_assert(offsetof(MyExpressionAssign, hasPosition) == 24);
static_assert(offsetof(MyExpressionAssign, belongsToEntry) == 26);

static_assert(sizeof(EDTSmartShape) == 92);
static_assert(offsetof(EDTSmartShape, start) == 4 && offsetof(EDTSmartShape, end) == 24);
static_assert(sizeof(EDTSmartShapeEnd) == 12);
static_assert(offsetof(EDTSmartShapeEnd, measure) == 2);
static_assert(offsetof(EDTSmartShapeEnd, entryNumber) == 4);
static_assert(offsetof(EDTSmartShapeEnd, position) == 8);

static_assert(sizeof(EDTSmartShapeEntMark) == 12 && sizeof(EDTLyric2011) == 12);
static_assert(offsetof(EDTLyric2011, syllable) == 2);
static_assert(sizeof(EDTTuplet2005) == 36);
static_assert(offsetof(EDTTuplet2005, symbolicUnitDuration) == 2);
static_assert(offsetof(EDTTuplet2005, referenceCount) == 4);
static_assert(offsetof(EDTTuplet2005, referenceUnitDuration) == 6);

// Bits of EDTMeasureSpec2014::flags.
namespace MeasureFlag {
inline constexpr u16 kCompositeNumerator = 0x80;
inline constexpr u16 kCompositeDenominator = 0x40;
}  // namespace MeasureFlag

// Bits of EDTStaffSpec2014::flags.
namespace StaffFlag {
inline constexpr u16 kFretInstrument = 0x200;
inline constexpr u16 kShapeNotes = 0x80;
// Assumed: the staff has a key or a time of its own, in its measures' records; it shows none.
inline constexpr u16 kOwnKeySig = 0x01;
inline constexpr u16 kOwnTimeSig = 0x02;
inline constexpr u16 kNoKeySig = 0x04;
inline constexpr u16 kNoTimeSig = 0x08;
}  // namespace StaffFlag

// Bits of MyExpressionAssign::layer.
namespace ExpressionLayer {
inline constexpr u16 kLayerMask = 0x0007;        // the layer + 1; 0 = no particular layer
inline constexpr u16 kShapeDefinition = 0x2000;  // the definition is a shape, not a text
}  // namespace ExpressionLayer
