// The host's stored records that are only carried, copied or measured, and the preferences
// and definitions of which single fields are read. As in host_records.h, bytes that belong to
// the host alone are opaque, and "assumed" marks a field that a host might keep elsewhere.
#pragma once

#include <cstddef>

#include "shell/host/host_types.h"

#pragma pack(push, 2)

// Records without a field of interest.

struct EDTKeyFormat {
    u8 opaque0[12];
};
struct EDTStaffRaw {
    u8 opaque0[72];
};
struct EDTDrumStaff2010 {
    u8 opaque0[12];
};
struct EDTTextBlock25_4 {
    u8 opaque0[30];
};
struct EDTSmartShapeMeas {
    u8 opaque0[12];
};
struct EDTCustomLineDefinition2012 {
    u8 opaque0[72];
};
struct EDTArticulationDefinition25_6 {
    u8 opaque0[60];
};
struct EDTMarkingCategory2012 {
    u8 opaque0[296];
};
struct EDTMarkingCategoryRaw {
    u8 opaque0[36];
};
struct EDTPercussionNoteDef2012 {
    u8 opaque0[20];
};
struct EDTRawShape {
    u8 opaque0[12];
};
struct EDTTextRepeat2005 {
    u8 opaque0[14];
};
struct EDTTextRepeatStyle2005 {
    u8 opaque0[16];
};
struct EDTFretInstrument25_3 {
    u8 opaque0[252];
};
struct EDTFretInstrumentInci {
    u8 opaque0[12];
};
struct XEDTVoicingDef {
    u8 opaque0[12];
};
struct EDTEnclosure25_4 {
    u8 opaque0[24];
};
struct CurrEDTNamePos {
    u8 opaque0[12];
};
struct EDTGfhold2004 {
    u8 opaque0[14];
};
struct EDTCenterShape {
    u8 opaque0[30];
};
struct EDTShapeNotes2012 {
    u8 opaque0[410];
};
struct EDTBaseline {
    u8 opaque0[10];
};
struct EDTClefDef2012 {
    u8 opaque0[20];
};
struct EEnigmaFont {
    u8 opaque0[6];
};
struct EDTStemPrefs26_2 {
    u8 opaque0[1810];
};
struct EDTMultimeasureRest {
    u8 opaque0[24];
};
struct EDTShape2014b {
    u8 opaque0[132];
};

// Records with single fields of interest.

// 'otpD', by part.
struct EDTPartDefinition {
    u16 staffList;  // assumed: of the part's staves; 0 = the score's own
    u8 opaque2[10];
};

// 'SDFL', by staff and measure: a staff's own key and time signature in a measure. Every field is
// assumed, and in effect when the staff's flags say so.
struct EDTMeasureFloat2014 {
    u16 key;
    i16 beats;
    i16 beatDuration;  // duration units
    u16 flags;         // MeasureFlag
    u8 opaque8[12];
};

// 'pfOB'.
struct EDTBarlinePrefs26_2 {
    u16 hidesFirstSignatures;  // assumed; nonzero: the first measure shows no key and no time
    u8 opaque2[30];
};

// 'pfgp'.
struct EDTGeneralPrefs27_3 {
    u8 opaque0[30];
    u16 watchedByDialogs;  // open dialogs answer a change of it
    u8 opaque32[44];
};

// 'pfPG', item 0xFFFE.
struct EDTPartPrefs {
    u16 part;  // 0: the octave rule of transposing staves applies
    u8 opaque2[10];
};

// 'pfMS', assembled from option records.
struct EDTMiscDocPrefs {
    u8 opaque0[46];
    u16 commonTime;  // nonzero: 4/4 is shown as common time
    u16 cutTime;     // nonzero: 2/2 is shown as cut time
    u8 opaque50[24];
    u16 specialPartExtractionList;  // the item number of its staff list
    u8 opaque76[30];
};

// The host's own beam and clef preferences, 'pfOb' and 'pfOZ'.
struct EDTBeamPrefs26_2 {
    u16 words[8];
};
struct EDTClefPrefs26_2 {
    u16 words[9];
};

// 'otCE', by measure: a clef that holds from a position on. Every field is assumed.
struct EDTClefExtra {
    u16 clef;
    u16 staff;
    i32 position;  // in the measure's nominal duration units
    u8 opaque8[4];
};

// 'otTU' and 'otTL', by the item number that a measure holds in place of its beats or its beat
// duration. A 0 ends the list; further values are in the next record number. Assumed.
struct EDTCompositeTimeSig {
    i16 groups[6];
};

// 'SODT' and 'O\x03DO': what an expression says and where it is put.
struct EDTTextExpression2012 {
    u8 opaque0[12];
    i16 horizontalPlacement;  // ExpressionPlacement
    u8 opaque14[20];
};
struct CurrentEDTShapeExpression {
    u8 opaque0[12];
    i16 horizontalPlacement;  // ExpressionPlacement
    u8 opaque14[22];
};

#pragma pack(pop)

// Values of an expression definition's horizontalPlacement: from kFirstOnEntry on, the
// expression belongs to an entry.
namespace ExpressionPlacement {
inline constexpr i16 kAtPosition = 3;
inline constexpr i16 kFirstOnEntry = 9;
}  // namespace ExpressionPlacement

static_assert(sizeof(EDTPartDefinition) == 12);
static_assert(sizeof(EDTKeyFormat) == 12);
static_assert(sizeof(EDTStaffRaw) == 72);
static_assert(sizeof(EDTDrumStaff2010) == 12);
static_assert(sizeof(EDTTextBlock25_4) == 30);
static_assert(sizeof(EDTSmartShapeMeas) == 12);
static_assert(sizeof(EDTCustomLineDefinition2012) == 72);
static_assert(sizeof(EDTArticulationDefinition25_6) == 60);
static_assert(sizeof(EDTMarkingCategory2012) == 296);
static_assert(sizeof(EDTMarkingCategoryRaw) == 36);
static_assert(sizeof(EDTPercussionNoteDef2012) == 20);
static_assert(sizeof(EDTRawShape) == 12);
static_assert(sizeof(EDTTextRepeat2005) == 14);
static_assert(sizeof(EDTTextRepeatStyle2005) == 16);
static_assert(sizeof(EDTFretInstrument25_3) == 252);
static_assert(sizeof(EDTFretInstrumentInci) == 12);
static_assert(sizeof(XEDTVoicingDef) == 12);
static_assert(sizeof(EDTEnclosure25_4) == 24);
static_assert(sizeof(CurrEDTNamePos) == 12);
static_assert(sizeof(EDTMeasureFloat2014) == 20);
static_assert(sizeof(EDTGfhold2004) == 14);
static_assert(sizeof(EDTCenterShape) == 30);
static_assert(sizeof(EDTShapeNotes2012) == 410);
static_assert(sizeof(EDTBaseline) == 10);
static_assert(sizeof(EDTGeneralPrefs27_3) == 76);
static_assert(offsetof(EDTGeneralPrefs27_3, watchedByDialogs) == 30);
static_assert(sizeof(EDTClefDef2012) == 20);
static_assert(sizeof(EEnigmaFont) == 6);
static_assert(sizeof(EDTBarlinePrefs26_2) == 32);
static_assert(sizeof(EDTStemPrefs26_2) == 1810);
static_assert(sizeof(EDTMultimeasureRest) == 24);
static_assert(sizeof(EDTShape2014b) == 132);

static_assert(sizeof(EDTPartPrefs) == 12);
static_assert(sizeof(EDTMiscDocPrefs) == 106);
static_assert(offsetof(EDTMiscDocPrefs, commonTime) == 46);
static_assert(offsetof(EDTMiscDocPrefs, cutTime) == 48);
static_assert(offsetof(EDTMiscDocPrefs, specialPartExtractionList) == 74);
static_assert(sizeof(EDTBeamPrefs26_2) == 16 && sizeof(EDTClefPrefs26_2) == 18);
static_assert(sizeof(EDTClefExtra) == 12 && offsetof(EDTClefExtra, position) == 4);
static_assert(sizeof(EDTCompositeTimeSig) == 12);
static_assert(sizeof(EDTTextExpression2012) == 34 && sizeof(CurrentEDTShapeExpression) == 36);
static_assert(offsetof(EDTTextExpression2012, horizontalPlacement) == 12);
static_assert(offsetof(CurrentEDTShapeExpression, horizontalPlacement) == 12);
