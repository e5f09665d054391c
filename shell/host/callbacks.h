// The host callbacks the plug-in uses, one row each. Calls add the interface version word,
// except the record calls, which are given the version of their record class.
// No other place spells a callback's name.
#pragma once

#include "shell/host/callback.h"
#include "shell/host/host_functions.h"

namespace Host {

// Documents and parts
inline constinit Callback<decltype(FX_GetCurrentEnigmaDocument)> GetCurrentEnigmaDocument{
    "FX_GetCurrentEnigmaDocument"};
inline constinit Callback<decltype(FX_SetCurrentEnigmaDocument)> SetCurrentEnigmaDocument{
    "FX_SetCurrentEnigmaDocument"};
inline constinit Callback<decltype(FX_GetNextEnigmaDocument)> GetNextEnigmaDocument{
    "FX_GetNextEnigmaDocument"};
inline constinit Callback<decltype(FX_GetDocumentPath)> GetDocumentPath{"FX_GetDocumentPath"};
inline constinit Callback<decltype(FX_GetCurrentPartID)> GetCurrentPartID{"FX_GetCurrentPartID",
                                                                          -1};
inline constinit Callback<decltype(FX_GetNextPartID)> GetNextPartID{"FX_GetNextPartID", -1};
inline constinit Callback<decltype(FX_SetCurrentPartID)> SetCurrentPartID{"FX_SetCurrentPartID"};
inline constinit Callback<decltype(FX_SetCurrentPartInView)> SetCurrentPartInView{
    "FX_SetCurrentPartInView"};
inline constinit Callback<decltype(FX_GetPartName_UTF16)> GetPartName{"FX_GetPartName_UTF16"};
inline constinit Callback<decltype(FX_AutoNumberedName_UTF16)> AutoNumberedName{
    "FX_AutoNumberedName_UTF16"};

// Selection, layers, staves
inline constinit Callback<decltype(FX_GetCurERegions)> GetCurERegions{"FX_GetCurERegions"};
inline constinit Callback<decltype(FX_GetMaxLayers)> GetMaxLayers{"FX_GetMaxLayers", 4};
inline constinit Callback<decltype(FX_GetShowLayer)> GetShowLayer{"FX_GetShowLayer"};
inline constinit Callback<decltype(FX_SlotToInst)> SlotToInst{"FX_SlotToInst"};
inline constinit Callback<decltype(FX_InstToSlot)> InstToSlot{"FX_InstToSlot"};

// Records
inline constinit Callback<decltype(FX_LoadEData)> LoadEData{"FX_LoadEData"};
inline constinit Callback<decltype(FX_SaveEData)> SaveEData{"FX_SaveEData"};
inline constinit Callback<decltype(FX_CreateEData)> CreateEData{"FX_CreateEData"};
inline constinit Callback<decltype(FX_DeleteEData)> DeleteEData{"FX_DeleteEData"};
inline constinit Callback<decltype(FX_NextEData)> NextEData{"FX_NextEData"};
inline constinit Callback<decltype(FX_PreviousEData)> PreviousEData{"FX_PreviousEData"};

// Frames and metrics
inline constinit Callback<decltype(FX_LoadTGF)> LoadTGF{"FX_LoadTGF"};
inline constinit Callback<decltype(FX_SaveTGF)> SaveTGF{"FX_SaveTGF"};
inline constinit Callback<decltype(FX_FreeTGF)> FreeTGF{"FX_FreeTGF"};
inline constinit Callback<decltype(FX_GetTGFDuration)> GetTGFDuration{"FX_GetTGFDuration"};
inline constinit Callback<decltype(FX_InsertEXENTRY)> InsertEXENTRY{"FX_InsertEXENTRY"};
inline constinit Callback<decltype(FX_DeleteEXENTRY)> DeleteEXENTRY{"FX_DeleteEXENTRY"};
inline constinit Callback<decltype(FX_ReduceEntries)> ReduceEntries{"FX_ReduceEntries"};
inline constinit Callback<decltype(FX_GetMeasureDuration)> GetMeasureDuration{
    "FX_GetMeasureDuration"};
inline constinit Callback<decltype(FX_GetKeySig)> GetKeySig{"FX_GetKeySig"};
inline constinit Callback<decltype(FX_GetEntryMetrics)> GetEntryMetrics{"FX_GetEntryMetrics"};
inline constinit Callback<decltype(FX_GetEntryMetrics2014)> GetEntryMetrics2014{
    "FX_GetEntryMetrics2014"};
inline constinit Callback<decltype(FX_FreeEntryMetrics)> FreeEntryMetrics{"FX_FreeEntryMetrics"};
inline constinit Callback<decltype(FX_FreeMeasureMetrics)> FreeMeasureMetrics{
    "FX_FreeMeasureMetrics"};

// Edits, progress, layout
inline constinit Callback<decltype(FX_StartFinaleEdit_UTF16)> StartFinaleEdit{
    "FX_StartFinaleEdit_UTF16"};
inline constinit Callback<decltype(FX_EndFinaleEdit)> EndFinaleEdit{"FX_EndFinaleEdit"};
inline constinit Callback<decltype(FX_CancelFinaleEdit)> CancelFinaleEdit{"FX_CancelFinaleEdit"};
inline constinit Callback<decltype(FX_StartMassEdit)> StartMassEdit{"FX_StartMassEdit"};
inline constinit Callback<decltype(FX_MassEditProgress)> MassEditProgress{"FX_MassEditProgress"};
inline constinit Callback<decltype(FX_EndMassEdit)> EndMassEdit{"FX_EndMassEdit"};
inline constinit Callback<decltype(FX_RebeamRegion)> RebeamRegion{"FX_RebeamRegion"};
inline constinit Callback<decltype(FX_UpdateLayout)> UpdateLayout{"FX_UpdateLayout"};
inline constinit Callback<decltype(FX_RedrawMusic)> RedrawMusic{"FX_RedrawMusic"};
inline constinit Callback<decltype(FX_ExecuteMenuItem)> ExecuteMenuItem{"FX_ExecuteMenuItem"};

// Dialogs and alerts
inline constinit Callback<decltype(FX_Dialog)> Dialog{"FX_Dialog"};
inline constinit Callback<decltype(FX_EndDialog)> EndDialog{"FX_EndDialog"};
inline constinit Callback<decltype(FX_GetDlgItemVal)> GetDlgItemVal{"FX_GetDlgItemVal"};
inline constinit Callback<decltype(FX_SetDlgItemVal)> SetDlgItemVal{"FX_SetDlgItemVal"};
inline constinit Callback<decltype(FX_GetDlgCntlVal)> GetDlgCntlVal{"FX_GetDlgCntlVal"};
inline constinit Callback<decltype(FX_SetDlgCntlVal)> SetDlgCntlVal{"FX_SetDlgCntlVal"};
inline constinit Callback<decltype(FX_GetDlgString_UTF16)> GetDlgString{"FX_GetDlgString_UTF16"};
inline constinit Callback<decltype(FX_SetDlgString_UTF16)> SetDlgString{"FX_SetDlgString_UTF16"};
inline constinit Callback<decltype(FX_EnableDlgItem)> EnableDlgItem{"FX_EnableDlgItem"};
inline constinit Callback<decltype(FX_ShowHideDlgItem)> ShowHideDlgItem{"FX_ShowHideDlgItem"};
inline constinit Callback<decltype(FX_SetDlgFocus)> SetDlgFocus{"FX_SetDlgFocus"};
inline constinit Callback<decltype(FX_GetDlgItemUser)> GetDlgItemUser{"FX_GetDlgItemUser"};
inline constinit Callback<decltype(FX_SetDlgItemUser)> SetDlgItemUser{"FX_SetDlgItemUser"};
inline constinit Callback<decltype(FX_SetTimer)> SetTimer{"FX_SetTimer"};
inline constinit Callback<decltype(FX_KillTimer)> KillTimer{"FX_KillTimer"};
inline constinit Callback<decltype(FX_AlertMessage_UTF16)> AlertMessage{"FX_AlertMessage_UTF16"};

// Text and state
inline constinit Callback<decltype(FX_GetMeasureNumberString)> GetMeasureNumberString{
    "FX_GetMeasureNumberString"};
inline constinit Callback<decltype(FX_GetCurrentWindowInfo)> GetCurrentWindowInfo{
    "FX_GetCurrentWindowInfo"};

}  // namespace Host
