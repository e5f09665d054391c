// Behavior that the interface leaves open to the host. The plug-in must work with all of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/score/host_call.h"

namespace standin {

struct Manners {
    bool taciturn = false;   // results without a meaning are 0, whatever the call did
    bool talkative = false;  // they are 1, even if the call did nothing
    bool wide = false;       // records of unstated size are longer than assumed
    bool gaps = false;       // record numbers of entry details do not close up after a delete
    bool sorting = false;    // every save sorts the notes of an entry by pitch
    bool rounding = false;   // entries of a tuplet take whole units, the last one the remainder
    bool shy = false;        // callbacks that a run does not need are not exported

    bool operator==(const Manners&) const = default;
};

// Whether a run does the same without the callback. Not for the calls of an edit, because such a
// run could not be undone.
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

// From names joined by commas; empty if one of them is not a manner.
std::optional<Manners> ParseManners(std::string_view names);
// The same names again; empty when there are none.
std::string NamesOf(const Manners& manners);

}  // namespace standin
