#include "Class Files/score/FinPISmartShapeMark.h"

#include "shell/host/detail_flags.h"

FinPISmartShapeMark::FinPISmartShapeMark(const FinPIEntryPtr& entry, u32 tag)
    : FinPIEntryDetail{entry, tag, 0, DetailFlag::kSmartShape} {}
