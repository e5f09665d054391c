// The record classes. A class named ...Record is the base of a class with operations of its own.
#pragma once

#include "Class Files/score/records/FinPIDetail.h"
#include "Class Files/score/records/FinPIEnigmaPref.h"
#include "Class Files/score/records/FinPIEnigmaVarArray.h"
#include "Class Files/score/records/FinPIEnigmaVarLen.h"
#include "Class Files/score/records/FinPIMeasOther.h"
#include "Class Files/score/records/FinPIOther.h"
#include "Class Files/score/records/FinPIPseudoPref.h"
#include "Class Files/score/records/PseudoPreferences.h"
#include "shell/host/host_records.h"
#include "shell/host/host_records_more.h"

// The data version of staves, and of what measures note of smart shapes.
inline constexpr u32 kStaffVersion = 0x12000000;
inline constexpr u32 kSmartShapeMeasVersion = 0x9000000;

#define ENIGMA_RECORD(family, record, structure, ...) using record = family<structure, __VA_ARGS__>;
#include "Class Files/score/records/EnigmaRecords.inc"
#undef ENIGMA_RECORD
