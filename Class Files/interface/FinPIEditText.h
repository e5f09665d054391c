// A text field, used through its text operations.
#pragma once

#include "Class Files/interface/FinPIGenericControl.h"

class FinPIEditText : public FinPIGenericControl {
public:
    using FinPIGenericControl::FinPIGenericControl;
};
