#include "Class Files/score/records/FinPIEnigmaVarArray.h"

#include <algorithm>

void FinPIEnigmaVarArray::SetCount(u32 count) {
    SetSize(std::size_t{std::max(count, 1U)} * m_elementSize);
}
