// The record classes. A class named ...Record is what a class with operations of its own
// derives from.
#pragma once

#include "Class Files/score/FinPIDetail.h"
#include "Class Files/score/FinPIEnigmaPref.h"
#include "Class Files/score/FinPIEnigmaVarArray.h"
#include "Class Files/score/FinPIEnigmaVarLen.h"
#include "Class Files/score/FinPIMeasOther.h"
#include "Class Files/score/FinPIOther.h"
#include "Class Files/score/FinPIPseudoPref.h"
#include "Class Files/score/PseudoPreferences.h"
#include "shell/host/host_records.h"
#include "shell/host/host_records_more.h"

// The data version of staves, and of what measures note of smart shapes.
inline constexpr u32 kStaffVersion = 0x12000000;
inline constexpr u32 kSmartShapeMeasVersion = 0x9000000;

#define ENIGMA_RECORD(family, record, structure, ...) using record = family<structure, __VA_ARGS__>;
#include "Class Files/score/EnigmaRecords.inc"
#undef ENIGMA_RECORD
