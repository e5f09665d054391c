// The callbacks by number, to count them and to refuse them.
#pragma once

#include <cstddef>

namespace standin {

enum class HostCall {
    kGetCurrentEnigmaDocument,
    kSetCurrentEnigmaDocument,
    kGetNextEnigmaDocument,
    kGetDocumentPath,
    kGetCurrentPartID,
    kGetNextPartID,
    kSetCurrentPartID,
    kSetCurrentPartInView,
    kGetPartName,
    kAutoNumberedName,
    kGetCurERegions,
    kGetMaxLayers,
    kGetShowLayer,
    kSlotToInst,
    kInstToSlot,
    kLoadEData,
    kSaveEData,
    kCreateEData,
    kDeleteEData,
    kNextEData,
    kPreviousEData,
    kLoadTGF,
    kSaveTGF,
    kFreeTGF,
    kGetTGFDuration,
    kInsertEXENTRY,
    kDeleteEXENTRY,
    kReduceEntries,
    kGetMeasureDuration,
    kGetKeySig,
    kGetEntryMetrics,
    kGetEntryMetrics2014,
    kFreeEntryMetrics,
    kFreeMeasureMetrics,
    kStartFinaleEdit,
    kEndFinaleEdit,
    kCancelFinaleEdit,
    kStartMassEdit,
    kMassEditProgress,
    kEndMassEdit,
    kRebeamRegion,
    kUpdateLayout,
    kRedrawMusic,
    kExecuteMenuItem,
    kDialog,
    kEndDialog,
    kGetDlgItemVal,
    kSetDlgItemVal,
    kGetDlgCntlVal,
    kSetDlgCntlVal,
    kGetDlgString,
    kSetDlgString,
    kEnableDlgItem,
    kShowHideDlgItem,
    kSetDlgFocus,
    kGetDlgItemUser,
    kSetDlgItemUser,
    kSetTimer,
    kKillTimer,
    kAlertMessage,
    kGetMeasureNumberString,
    kGetCurrentWindowInfo,
    kCount
};

inline constexpr std::size_t kHostCallCount = static_cast<std::size_t>(HostCall::kCount);

// The exported name, such as "FX_LoadTGF".
const char* NameOf(HostCall call) noexcept;

}  // namespace standin
