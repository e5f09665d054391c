// What a host may do that the interface leaves open: whatever it is, the plug-in must work with it.
#pragma once

#include <optional>
#include <string_view>

#include "host/score/host_call.h"

namespace standin {

struct Manners {
    bool taciturn = false;   // results that nobody promised are 0, whatever the call did
    bool talkative = false;  // they are 1, also when the call did nothing
    bool wide = false;       // what it fills without being told a size is longer than assumed
    bool gaps = false;       // record numbers of entry details do not close up after a delete
    bool sorting = false;    // every save sorts the notes of an entry by pitch
    bool rounding = false;   // entries of a tuplet take whole units, the last one what remains
    bool shy = false;        // callbacks that a run can do without are not exported

    bool operator==(const Manners&) const = default;
};

// Whether the interface says what the call's result means. The rest may answer anything.
bool IsResultPromised(HostCall call) noexcept;

// Whether a run does the same where the callback is missing. Not of those that an edit is made of:
// a run could still be kept, but no longer taken back.
bool IsDispensable(HostCall call) noexcept;

struct Manner {
    const char* name;
    bool Manners::*flag;
};
inline constexpr Manner kManners[] = {
    {"taciturn", &Manners::taciturn}, {"talkative", &Manners::talkative},
    {"wide", &Manners::wide},         {"gaps", &Manners::gaps},
    {"sorting", &Manners::sorting},   {"rounding", &Manners::rounding},
    {"shy", &Manners::shy},
};

// From names joined by commas; empty when one of them is no manner's.
std::optional<Manners> ParseManners(std::string_view names);

}  // namespace standin
