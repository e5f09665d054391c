// A drop-down list of numbers.
#pragma once

#include "Class Files/interface/FinPIPopupListTemplate.h"

class FinPIPopupListInt : public FinPIPopupListTemplate<i16> {
public:
    using FinPIPopupListTemplate<i16>::FinPIPopupListTemplate;
};
