// The record classes: one line binds a class to its host structure, tag and version. A class
// named ...Record is what a class with operations of its own derives from.
#pragma once

#include "Class Files/score/FinPIDetail.h"
#include "Class Files/score/FinPIEnigmaPref.h"
#include "Class Files/score/FinPIEnigmaVarLen.h"
#include "Class Files/score/FinPIMeasOther.h"
#include "Class Files/score/FinPIOther.h"
#include "shell/host/host_records.h"
#include "shell/host/host_records_more.h"

// A hex digit after an escaped byte would belong to the escape; such tags come in two pieces.
// clang-format off

// The data version of staves, and of what measures note of smart shapes.
inline constexpr u32 kStaffVersion = 0x12000000;
inline constexpr u32 kSmartShapeMeasVersion = 0x9000000;

// By item and record number
using MeasureRecord               = FinPIOtherTemplate<EDTMeasureSpec2014, HostTag("SOMS")>;
using StaffRecord                 = FinPIOtherTemplate<EDTStaffSpec2014, HostTag("SOIS"), kStaffVersion>;
using StaffSystemRecord           = FinPIOtherTemplate<EDTStaffSystemSpec2005, HostTag("SOSS")>;
using FinPIPage                   = FinPIOtherTemplate<EDTPageSpec, HostTag("SOPS")>;
using FinPIPartView               = FinPIOtherTemplate<EDTPartDefinition, HostTag("otpD")>;
using MiscPrefsRecord             = FinPIOtherTemplate<CurrEDTMiscPrefs, HostTag("O\x03OM")>;
using FinPIKeyFormat              = FinPIOtherTemplate<EDTKeyFormat, HostTag("otKF")>;
using FinPIStaffRaw               = FinPIOtherTemplate<EDTStaffRaw, HostTag("O\x06IS")>;
using FinPIDrumStaff              = FinPIOtherTemplate<EDTDrumStaff2010, HostTag("otDS")>;
using FinPIText                   = FinPIOtherTemplate<EDTTextBlock25_4, HostTag("SOTX")>;
using TextBlockRaw                = FinPIOtherTemplate<EDTTextBlock25_4, HostTag("O\x03TX")>;
using FinPISmartShape             = FinPIOtherTemplate<EDTSmartShape, HostTag("O\x08Sx")>;
using FinPISmartShapeMeasSimple   = FinPIOtherTemplate<EDTSmartShapeMeas, HostTag("otMx"), kSmartShapeMeasVersion>;
using FinPICustomLineDefinition   = FinPIOtherTemplate<EDTCustomLineDefinition2012, HostTag("SOls")>;
using FinPIArticulationDefinition = FinPIOtherTemplate<EDTArticulationDefinition25_6, HostTag("O\x04IX")>;
using FinPIShapeExpression        = FinPIOtherTemplate<CurrentEDTShapeExpression, HostTag("O\x03" "DO")>;
using FinPIMarkingCategory        = FinPIOtherTemplate<EDTMarkingCategory2012, HostTag("SOMC")>;
using FinPIMarkingCategoryRaw     = FinPIOtherTemplate<EDTMarkingCategoryRaw, HostTag("O\x03MC")>;
using FinPIPercussionNoteDef      = FinPIOtherTemplate<EDTPercussionNoteDef2012, HostTag("SODi")>;
using FinPIRawShape               = FinPIOtherTemplate<EDTRawShape, HostTag("otSD")>;
using FinPITextRepeat             = FinPIOtherTemplate<EDTTextRepeat2005, HostTag("SORU")>;
using FinPITextRepeatDef          = FinPIOtherTemplate<EDTTextRepeatStyle2005, HostTag("SORS")>;
using FinPIFretInstrument         = FinPIOtherTemplate<EDTFretInstrument25_3, HostTag("O\x15" "fI")>;
using FretInstrumentInci          = FinPIOtherTemplate<EDTFretInstrumentInci, HostTag("otfI")>;
using FinPIPartVoicing            = FinPIOtherTemplate<XEDTVoicingDef, HostTag("otVD")>;
using FinPIPartPrefs              = FinPIOtherTemplate<EDTPartPrefs, HostTag("pfPG")>;
using FinPIEnclosure              = FinPIOtherTemplate<EDTEnclosure25_4, 0>;
using FinPINamePos                = FinPIOtherTemplate<CurrEDTNamePos, 0>;
using CompositeTimeSigRecord      = FinPIOtherTemplate<EDTCompositeTimeSig, 0>;

// By two items and record number
using FinPIMeasFloat              = FinPIDetailTemplate<EDTMeasureFloat2014, HostTag("SDFL")>;
using FinPIGfhold                 = FinPIDetailTemplate<EDTGfhold2004, HostTag("SDGF"), kInterfaceVersion, false>;
using FinPICenterShape            = FinPIDetailTemplate<EDTCenterShape, HostTag("D\x03" "Cx")>;
using ShapeNotesRecord            = FinPIDetailTemplate<EDTShapeNotes2012, HostTag("D\x15NI")>;
using FinPIBaseline               = FinPIDetFloatExTagTemplate<EDTBaseline>;

// By measure and record number
using ExpressionAssignRecord      = FinPIMeasOtherTemplate<MyExpressionAssign, HostTag("SODY"), 0x4000>;
using FinPIClefChange             = FinPIMeasOtherTemplate<EDTClefExtra, HostTag("otCE")>;
using FinPIMultimeasureRest       = FinPIMeasOtherTemplate<EDTMultimeasureRest, HostTag("O\x02XI")>;

// Preferences by item
using LayerPrefsRecord            = FinPIPrefTemplate<EDTLayerPrefs, HostTag("pfLA")>;
using FinPIGeneralPrefs           = FinPIPrefTemplate<EDTGeneralPrefs27_3, HostTag("pfgp")>;
using FinPIMiscDocPrefs           = FinPIPrefTemplate<EDTMiscDocPrefs, HostTag("pfMS")>;
using FinPIClef                   = FinPIPrefTemplate<EDTClefDef2012, HostTag("gbcf")>;
using FinPIFont                   = FinPIPrefTemplate<EEnigmaFont, HostTag("pfdf")>;
using BarlinePrefsRecord          = FinPIPrefTemplate<EDTBarlinePrefs26_2, HostTag("pfOB")>;
using BeamPrefsRecord             = FinPIPrefTemplate<EDTBeamPrefs26_2, HostTag("pfOb")>;
using ClefPrefsRecord             = FinPIPrefTemplate<EDTClefPrefs26_2, HostTag("pfOZ")>;
using StemPrefsRecord             = FinPIPrefTemplate<EDTStemPrefs26_2, HostTag("pfOs")>;

// Of changing size
using TextExpressionRecord        = FinPIEnigmaVarLenTemplate<EDTTextExpression2012, 34>;

// clang-format on
