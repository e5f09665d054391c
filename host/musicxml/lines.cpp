#include "host/musicxml/lines.h"

#include <algorithm>
#include <array>

namespace standin {
namespace {

// In the order of LineKind.
constexpr std::array<std::string_view, 9> kNames{"slur",      "glissando", "slide",
                                                 "wavy-line", "wedge",     "octave-shift",
                                                 "dashes",    "bracket",   "pedal"};

}  // namespace

std::optional<LineKind> LineKindOf(std::string_view elementName) {
    const auto found = std::ranges::find(kNames, elementName);
    if (found == kNames.end()) {
        return std::nullopt;
    }
    return static_cast<LineKind>(found - kNames.begin());
}

std::string_view NameOfLine(LineKind kind) {
    return kNames.at(static_cast<std::size_t>(kind));
}

std::optional<LineRole> LineRoleOf(LineKind kind, std::string_view type) {
    using enum LineRole;
    if (type == "stop") {
        return kStop;
    }
    if (type == "continue") {
        return kOnTheWay;
    }
    switch (kind) {
        case LineKind::kWedge:
            return type == "crescendo" || type == "diminuendo" ? std::optional{kStart}
                                                               : std::nullopt;
        case LineKind::kOctaveShift:
            return type == "up" || type == "down" ? std::optional{kStart} : std::nullopt;
        case LineKind::kPedal:
            if (type == "change" || type == "discontinue" || type == "resume") {
                return kOnTheWay;
            }
            return type == "start" || type == "sostenuto" ? std::optional{kStart} : std::nullopt;
        default:
            return type == "start" ? std::optional{kStart} : std::nullopt;
    }
}

}  // namespace standin
