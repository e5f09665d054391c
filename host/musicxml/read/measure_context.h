// The <attributes> that affect how the following music is read.
#pragma once

#include <pugixml.hpp>

#include "host/musicxml/problem.h"
#include "host/score/time/rational.h"

namespace standin {

struct Meter {
    i16 beats = 4;
    i16 beatDuration = kQuarterNote;  // duration units

    i32 Length() const noexcept { return i32{beats} * beatDuration; }
};

struct MeasureContext {
    Rational divisions{};  // a quarter note; 0 = not given yet
    int fifths = 0;        // sharps of the part's first staff, -7 to 7
    Meter meter;
};

// Applies the <attributes> element.
Problem ReadAttributes(pugi::xml_node attributes, MeasureContext& context);

// The time signature, compound beats of three joined: 6/8 is two beats of three eighths.
Meter MeterOf(pugi::xml_node time, Meter fallback);

}  // namespace standin
