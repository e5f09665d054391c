// A drop-down list.
#pragma once

#include "Class Files/interface/FinPISequenceControlTemplate.h"

template <typename Value>
class FinPIPopupListTemplate : public FinPISequenceControlTemplate<Value> {
public:
    using FinPISequenceControlTemplate<Value>::FinPISequenceControlTemplate;
};
