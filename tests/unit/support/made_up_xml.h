// MusicXML made up from a seed, as other programs write it: the same seed gives the same text on
// every machine. Written by itself, without the stand-in's reading or writing.
#pragma once

#include <set>
#include <string>

#include "shell/host/host_types.h"

namespace standin {

struct MadeUpXml {
    std::string text;
    int features = 0;  // its optional features
};

// One or two parts of one or two staves and some measures: voices over two staves, slurs that
// overlap with few numbers, tuplets beside and inside each other, with and without brackets,
// hairpins and octave shifts on two staves, lyrics, ties, grace notes, chords. Each line's ends
// pair in the order of the text. Features, counted from 0, that are in `without` are left out,
// and nothing else changes.
struct MadeUpWishes {
    std::set<int> without = {};
    bool allBracketed = false;  // every tuplet has its bracket
};
MadeUpXml MakeUpXml(u32 seed, const MadeUpWishes& wishes = {});

}  // namespace standin
