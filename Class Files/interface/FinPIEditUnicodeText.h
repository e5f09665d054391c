// A text field for any characters.
#pragma once

#include "Class Files/interface/FinPIEditText.h"

class FinPIEditUnicodeText : public FinPIEditText {
public:
    using FinPIEditText::FinPIEditText;
};
