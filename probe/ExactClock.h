// The exact time that one voice of a frame has reached, with tuplets applied.
#pragma once

#include <vector>

#include "shell/host/host_records.h"

namespace probe {

class ExactClock {
public:
    // In duration units from the barline.
    long double Time() const noexcept { return m_time; }
    bool IsInTuplet() const noexcept { return !m_tuplets.empty(); }

    // A tuplet begins with the entry that advances next. The outer ones come first.
    void OpenTuplet(const EDTTuplet2005& tuplet);
    // duration: as written.
    void Advance(i32 duration);
    // Another voice begins at the time of this one, outside its tuplets.
    ExactClock Launch() const;

private:
    struct Tuplet {
        long double written;  // the span that fills it
        long double factor;   // by which its entries are shorter
        long double filled = 0;
    };

    long double m_time = 0;
    std::vector<Tuplet> m_tuplets;  // the innermost last
};

}  // namespace probe
