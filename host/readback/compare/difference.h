// One difference between two scores, and its place.
#pragma once

#include <optional>
#include <string>

#include "shell/host/host_types.h"

namespace standin::readback {

struct Difference {
    enum class Kind : u8 {
        kLost,    // only in the first score
        kGained,  // only in the second
        kOther,   // in both, but not alike
    };
    Kind kind = Kind::kOther;
    std::string what;  // "C#4 quarter lost", in the language of the user interface
    // Where, each from 1; nothing of these for a difference of the scores as a whole.
    u32 part = 0;
    u32 measure = 0;             // by place
    std::string number;          // of the measure, as it is printed
    u32 staff = 0;               // through the score; 0 = of the part as a whole
    std::optional<double> beat;  // as the time signature counts; none for the measure as a whole
};

// "m. 5, staff 2, beat 2.5: C#4 quarter lost"
std::string WordsFor(const Difference& difference);

}  // namespace standin::readback
