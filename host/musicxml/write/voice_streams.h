// The streams of a measure: which entries are written one after the other, and as which voice.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/musicxml/write/measure_plan.h"

namespace standin {

// A stream on its way into a plan.
struct VoiceStream {
    std::string voice;
    std::string readAs;  // the voice that the layers stand for, where it is another
    std::vector<PlannedEvent> events;
    std::vector<BracketTuplet> tuplets;  // in places among the events as they came together
    bool changed = false;                // its voice holds other music than was read
    u32 rank = 0;                        // streams of lower ranks were written first
};

// The measure counted from 0. A voice that shares no time with itself becomes one stream, over
// all its staves. Of one that newly would be on two staves at once, rests too, what is away from
// its own staff becomes a voice that is free there. Layers of nothing but hidden rests give none.
std::vector<VoiceStream> StreamsOf(const ImportedScore& score, const ScorePart& part,
                                   std::size_t measure);

// As it is written: the layer's own voice, or the entry's where it is a guest there; for a layer
// that never had one, the first number not in use. staff: within the part, from 0; measure: from 1.
std::string VoiceName(const ScorePart& part, u16 measure, std::size_t staff, u16 layer,
                      u32 entry = 0);

}  // namespace standin
