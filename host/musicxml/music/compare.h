// Compares scores as music, in words.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/musicxml/music/music.h"

namespace standin {

// The music that was cleared by intent: one layer within a selection.
struct ClearedMusic {
    EREGION selection{};  // slots of the score's own staff list
    u16 layer = 0;        // from 0
};

struct CompareOptions {
    // The second score is the first after a merge: layers are of no account, rests come and go,
    // two notes may stand as one chord and what both had may stand there once.
    bool merged = false;
    std::vector<ClearedMusic> replaced;  // need not be in the second score
    std::size_t mostDifferences = 200;   // no more are told
};

// One line a difference, e.g. "staff 2, measure 5, beat 2.5: C#4 quarter lost"; empty when the
// music is the same. A beat is a quarter note.
std::vector<std::string> Compare(const Music& before, const Music& after,
                                 const CompareOptions& options = {});

}  // namespace standin
