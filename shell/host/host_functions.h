// Every function that passes between the host and the plug-in, as prototypes: the callbacks
// the host exports and the six functions the plug-in exports. A host defines the callbacks;
// the plug-in takes only their types from here and looks each up by name at run time.
//
// All calls use the platform's C calling convention. Results of 16 bits: nonzero = success or
// yes, unless said otherwise. The interface version word comes last; record calls pass the
// version of their record class. Layers count from 0, slots and measures from 1.
#pragma once

#include "shell/host/host_frames.h"
#include "shell/host/host_types.h"

#if defined(PLYWELD_HOST)
#if defined(_WIN32)
#define PLYWELD_HOST_FUNCTION __declspec(dllexport)
#else
#define PLYWELD_HOST_FUNCTION __attribute__((visibility("default")))
#endif
#else
#define PLYWELD_HOST_FUNCTION
#endif

extern "C" {

// Called for every event of a dialog's window; the result goes back as the window
// procedure's result, sign-extended. dialogObject is what FX_Dialog was given.
typedef i16 (*DialogEventCallback)(WindowHandle window, u32 message, u64 eventWord, i64 eventLong,
                                   void* dialogObject);

// --- Documents and parts ---------------------------------------------------------------------

PLYWELD_HOST_FUNCTION u16 FX_GetCurrentEnigmaDocument(u32 version);  // 0 = none
PLYWELD_HOST_FUNCTION i16 FX_SetCurrentEnigmaDocument(u16 document, u32 version);
// 0 starts; 0 = none left.
PLYWELD_HOST_FUNCTION u16 FX_GetNextEnigmaDocument(u16 document, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetDocumentPath(u16 document, char16* buffer, u32 units, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetCurrentPartID(u32 version);         // 0 = the score
PLYWELD_HOST_FUNCTION i16 FX_GetNextPartID(i16 part, u32 version);  // 0 starts; negative ends
PLYWELD_HOST_FUNCTION i16 FX_SetCurrentPartID(i16 part, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetCurrentPartInView(i16 part, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetPartName_UTF16(i16 part, char16* buffer, u32 units, u32 version);
// buffer holds 511 units.
PLYWELD_HOST_FUNCTION i16 FX_AutoNumberedName_UTF16(u16 staff, i16 measure, i32 position,
                                                    char16* buffer, u32 version);

// --- Selection, layers, staves ---------------------------------------------------------------

// Nonzero when something is selected; wholeDocument is filled in either case.
PLYWELD_HOST_FUNCTION i16 FX_GetCurERegions(u64* result, EREGION* selection, EREGION* wholeDocument,
                                            u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetMaxLayers(u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetShowLayer(i16 layer, u32 version);
PLYWELD_HOST_FUNCTION u16 FX_SlotToInst(i16 slot, u16 staffList, u32 version);   // 0 = no such slot
PLYWELD_HOST_FUNCTION i16 FX_InstToSlot(u16 staff, u16 staffList, u32 version);  // 0 = not in list

// --- Records ---------------------------------------------------------------------------------

// size in: the buffer's capacity; out: the stored size. A shorter record leaves the rest of
// the buffer untouched, a longer one is cut.
PLYWELD_HOST_FUNCTION i16 FX_LoadEData(u32 tag, const void* key, void* data, u32* size,
                                       u32 version);
// An inci of 0xFFFF in the key: the host writes the key it used.
PLYWELD_HOST_FUNCTION i16 FX_SaveEData(u32 tag, void* key, const void* data, u32 size, u32 version);
// Writes the key it used.
PLYWELD_HOST_FUNCTION i16 FX_CreateEData(u32 tag, void* key, const void* data, u32 size,
                                         u32 version);
PLYWELD_HOST_FUNCTION i16 FX_DeleteEData(u32 tag, const void* key, u32 version);
// The first record after the key, the last one before it; the key found is written back.
PLYWELD_HOST_FUNCTION i16 FX_NextEData(u32 tag, void* key, void* data, u32* size, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_PreviousEData(u32 tag, void* key, void* data, u32* size, u32 version);

// --- Frames and metrics ----------------------------------------------------------------------

// Null = no such staff, measure or layer. The frame is the caller's until FX_FreeTGF; each
// load is a copy of its own.
PLYWELD_HOST_FUNCTION EXFRAME* FX_LoadTGF(u16 firstKey, i16 slot, i16 measure, u16 layer,
                                          i16 alwaysOne, u32 version);
// Stores the entries and recomputes times in the store; the lent frame stays as it is.
PLYWELD_HOST_FUNCTION i16 FX_SaveTGF(EXFRAME* frame, u32 version);
PLYWELD_HOST_FUNCTION void FX_FreeTGF(EXFRAME* frame, u32 version);
// The total time of the voice-1 entries; 0 when empty.
PLYWELD_HOST_FUNCTION i32 FX_GetTGFDuration(EXFRAME* frame, u32 version);
// New entries are zeroed and have fresh entry numbers. The entry array may move.
PLYWELD_HOST_FUNCTION i16 FX_InsertEXENTRY(EXFRAME* frame, i16 index, i16 count, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_DeleteEXENTRY(EXFRAME* frame, i16 index, i16 count, u32 version);
// Drops entries without notes and without duration.
PLYWELD_HOST_FUNCTION i16 FX_ReduceEntries(EXFRAME* frame, u32 version);
// Staff 0 = the measure's own; 0 = no such measure.
PLYWELD_HOST_FUNCTION i32 FX_GetMeasureDuration(u16 staff, i16 measure, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetKeySig(i16 measure, u16 staff, i16 flag, i16 zero, u32 version);
// 0 = the entry has no metrics.
PLYWELD_HOST_FUNCTION i16 FX_GetEntryMetrics(EXFRAME* frame, i16 index, ENTRYMETRICS* out,
                                             u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetEntryMetrics2014(EXFRAME* frame, i16 index, ENTRYMETRICS* out,
                                                 u32 version);
PLYWELD_HOST_FUNCTION void FX_FreeEntryMetrics(ENTRYMETRICS* metrics, u32 version);
PLYWELD_HOST_FUNCTION void FX_FreeMeasureMetrics(void* metrics, u32 version);

// --- Edits, progress, layout -----------------------------------------------------------------

PLYWELD_HOST_FUNCTION i16 FX_StartFinaleEdit_UTF16(const char16* undoText, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_EndFinaleEdit(u32 version);
// Restores the document as it was at the start of the edit.
PLYWELD_HOST_FUNCTION i16 FX_CancelFinaleEdit(u32 version);
PLYWELD_HOST_FUNCTION u64 FX_StartMassEdit(const EREGION* region, i16 zero,
                                           u32 version);  // 0 = none
// 0 = the user stopped. Staff 0 and layer -1 = not given.
PLYWELD_HOST_FUNCTION i16 FX_MassEditProgress(u64 handle, i16 steps, u16 staff, i16 measure,
                                              i16 layer, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_EndMassEdit(u64 handle, i16 stopped, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_RebeamRegion(const EREGION* region, i16 zero, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_UpdateLayout(i16 number, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_RedrawMusic(const EREGION* region, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_ExecuteMenuItem(u16 command, u32 version);

// --- Dialogs and alerts ----------------------------------------------------------------------

// Runs the template with that number from the plug-in module's own resources. Bit 0 of flags:
// modal, returns after the dialog ended; otherwise returns at once.
PLYWELD_HOST_FUNCTION i16 FX_Dialog(u16 dialogNumber, DialogEventCallback callback,
                                    WindowHandle owner, u16 flags, void* dialogObject, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_EndDialog(WindowHandle window, u32 version);
PLYWELD_HOST_FUNCTION u32 FX_GetDlgItemVal(WindowHandle window, u16 control, i16 kind, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetDlgItemVal(WindowHandle window, u16 control, i16 kind, u32 value,
                                           u32 version);
// A drop-down list's value is the position of its selection from 1; 0 = none.
PLYWELD_HOST_FUNCTION u32 FX_GetDlgCntlVal(WindowHandle window, u16 control, i16 zero1, i16 zero2,
                                           u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetDlgCntlVal(WindowHandle window, u16 control, i16 zero, u32 value,
                                           u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetDlgString_UTF16(WindowHandle window, u16 control, char16* buffer,
                                                u32 units, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetDlgString_UTF16(WindowHandle window, u16 control,
                                                const char16* text, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_EnableDlgItem(WindowHandle window, u16 control, i16 enabled,
                                           u32 version);
PLYWELD_HOST_FUNCTION i16 FX_ShowHideDlgItem(WindowHandle window, u16 control, i16 shown,
                                             u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetDlgFocus(WindowHandle window, u16 control, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetDlgItemUser(WindowHandle window, u16 control, i16 kind, double* out,
                                            u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetDlgItemUser(WindowHandle window, u16 control, i16 kind,
                                            double value, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_SetTimer(WindowHandle window, u64 timer, u32 milliseconds,
                                      u32 version);
PLYWELD_HOST_FUNCTION i16 FX_KillTimer(WindowHandle window, u64 timer, u32 version);
// text is used when stringId is 0; stringId is of the plug-in's own string table.
PLYWELD_HOST_FUNCTION i16 FX_AlertMessage_UTF16(WindowHandle owner, i16 kind, u16 stringId,
                                                const char16* text, u32 version);

// --- Text and state --------------------------------------------------------------------------

PLYWELD_HOST_FUNCTION i16 FX_GetMeasureNumberString(i16 measure, char16* buffer, u32 units, i16 one,
                                                    i16 zero, u32 version);
PLYWELD_HOST_FUNCTION i16 FX_GetCurrentWindowInfo(WINDOWINFO* out, u32 version);

}  // extern "C"

// The types of the plug-in's exports, for whoever looks them up.
using FinaleExtensionVersionFunction = u32(u32 hostVersion);
using FinaleExtensionInitFunction = i16(WindowHandle hostMainWindow, u32* flags);
using FinaleExtensionEnumerateFunction = i16(WindowHandle hostMainWindow, i16 item,
                                             MenuItemDescriptor* out);
using FinaleExtensionGetMenuStatusFunction = i16(i16 item);
using FinaleExtensionInvokeFunction = i16(WindowHandle owner, u16 item, const EREGION* selection,
                                          const EREGION* wholeDocument);
using FinaleExtensionTerminateFunction = void();
