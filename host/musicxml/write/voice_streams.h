// The streams of a measure: which entries are written in sequence, and as which voice.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/musicxml/write/measure_plan.h"

namespace standin {

// A stream before it becomes part of a plan.
struct VoiceStream {
    std::string voice;
    std::string readAs;  // the voice that was read into the layers, where it is another
    std::vector<PlannedEvent> events;
    std::vector<BracketTuplet> tuplets;  // in places among the events as they came together
    bool changed = false;                // its voice has other music than in the file
    u32 rank = 0;                        // streams of lower ranks were written first
};

// The measure counted from 0. A voice that does not overlap itself becomes one stream on all its
// staves. If a voice, including its rests, would newly be on two staves at once, its music away
// from its own staff gets a voice that is free there. Layers of only hidden rests become no stream.
std::vector<VoiceStream> StreamsOf(const ImportedScore& score, const ScorePart& part,
                                   std::size_t measure);

// As it is written: the layer's own voice, or the entry's where it is a guest there; for a layer
// that never had one, the first number not in use. staff: within the part, from 0; measure: from 1.
std::string VoiceName(const ScorePart& part, u16 measure, std::size_t staff, u16 layer,
                      u32 entry = 0);

}  // namespace standin
