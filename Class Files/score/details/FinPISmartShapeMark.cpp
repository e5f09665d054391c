#include "Class Files/score/details/FinPISmartShapeMark.h"

FinPISmartShapeMark::FinPISmartShapeMark(const FinPIEntryPtr& entry, u32 tag)
    : FinPIEntryDetail{entry, tag, 0, kEntryFlags} {}
