// A score in the notation of stand_in.h: can be built, printed and reduced.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/unit/support/plugin_driver.h"
#include "tests/unit/support/stand_in.h"

namespace standin {

// Slots and measures count from 1; layers, entries and notes from 0.
struct WrittenScore {
    struct Frame {
        i16 slot;
        u16 measure;
        u16 layer;
        std::vector<std::string> words;  // "q:c4", "(3:2", ")", "v2{", "}"
    };
    struct Detail {
        EntryPlace place;
        u32 tag;  // 0 = flags alone
        u32 entryFlags = 0;
        int note = 0;  // of details of a note
        char content = 'a';
    };
    struct Shape {
        EntryPlace from;
        EntryPlace to;
        bool onLyrics;
    };
    struct Expression {
        EntryPlace place;  // of its entry
        i16 layer;         // that it is assigned to; -1 = none in particular
    };
    struct Duration {
        i16 slot;
        u16 measure;
        i32 duration;  // that the staff has there
    };

    int staves = 1;
    int measures = 1;
    int layers = 4;  // that the host has
    std::vector<Duration> durations;
    std::vector<Frame> frames;
    std::vector<Detail> details;
    std::vector<Shape> shapes;
    std::vector<Expression> expressions;
    EREGION selection{0, 1, 1, 0, 0, 1, 1, kEndOfMeasure};
    MergeOptions options;
};

bool IsEntry(const std::string& word);

// The score in a new host, selected; places without an entry are skipped.
std::unique_ptr<StandIn> Build(const WrittenScore& score);

// Every layer that the score has now.
std::vector<std::string> LayersOf(const StandIn& host, const WrittenScore& score);

// As calls of the test fixture.
std::string Print(const WrittenScore& score);

// Every score with one thing less: a layer, a detail; the largest ones last.
std::vector<WrittenScore> SmallerThan(const WrittenScore& score);

}  // namespace standin
