#include "tests/unit/support/made_up_lines.h"

#include <algorithm>
#include <map>
#include <utility>

namespace standin {
namespace {

bool IsNext(const MadeUpPart& part, const MadeUpEvent& one, const MadeUpEvent& other) {
    const int end = one.start + one.value.length;
    const int length = part.measures[static_cast<std::size_t>(one.measure)].length;
    return one.measure == other.measure
               ? end == other.start
               : one.measure + 1 == other.measure && end == length && other.start == 0;
}

bool CanBeTied(const MadeUpPart& part, const MadeUpEvent& one, const MadeUpEvent& other) {
    return IsNext(part, one, other) && one.staff == other.staff && one.CarriesLines() &&
           other.CarriesLines();
}

MadeUpPitch& TiedPitch(MadeUpEvent& event) {
    const auto found = std::ranges::find(event.pitches, "A", &MadeUpPitch::step);
    if (found != event.pitches.end()) {
        return *found;
    }
    event.pitches.push_back({"A", 0, event.voice});
    return event.pitches.back();
}

struct Line {
    MadeUpEvent* start = nullptr;
    int number = 1;
};

bool IsBefore(const MadeUpEvent& one, const MadeUpEvent& other) {
    return std::pair{one.measure, one.start} < std::pair{other.measure, other.start};
}

int FreeNumber(const std::vector<Line>& open) {
    int number = 1;
    while (
        std::ranges::any_of(open, [number](const Line& line) { return line.number == number; })) {
        ++number;
    }
    return number;
}

std::string Direction(const std::string& kind, bool isStart, int number, int staff, int staves) {
    const bool isWedge = kind == "wedge";
    std::string line = NumberedElement(kind,
                                       !isStart  ? "stop"
                                       : isWedge ? "crescendo"
                                                 : "down",
                                       number);
    if (!isWedge) {
        line.insert(line.size() - 2, " size=\"8\"");
    }
    return "<direction><direction-type>" + line + "</direction-type>" +
           (staves > 1 ? "<staff>" + std::to_string(staff) + "</staff>" : "") + "</direction>\n";
}

}  // namespace

// Ties have their own pitch in each voice, so that no other note comes between.
void AddTies(MadeUpPart& part, MadeUpChances& chances) {
    std::map<int, MadeUpEvent*> before;
    for (MadeUpEvent* event : part.Events()) {
        const bool tied = chances.Wants(chances.Chance(12));
        if (event->grace) {
            continue;
        }
        MadeUpEvent* previous = std::exchange(before[event->voice], event);
        if (previous != nullptr && tied && CanBeTied(part, *previous, *event)) {
            TiedPitch(*previous).tieTo = true;
            TiedPitch(*event).tieFrom = true;
        }
    }
}

// In the order of the text a number is free again after the stop.
void AddSlurs(MadeUpPart& part, MadeUpChances& chances) {
    std::vector<Line> open;
    for (MadeUpEvent* event : part.Events()) {
        if (event->pitches.empty()) {
            continue;
        }
        for (std::size_t i = 0; i < open.size();) {
            const Line line = open[i];
            const bool ends = !event->grace && IsBefore(*line.start, *event) &&
                              chances.Chance(line.start->voice == event->voice ? 50 : 4);
            if (!ends) {
                ++i;
                continue;
            }
            open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
            if (chances.Wants(true) && line.start->CarriesLines() && event->CarriesLines()) {
                line.start->notations.push_back(NumberedElement("slur", "start", line.number));
                event->notations.push_back(NumberedElement("slur", "stop", line.number));
            }
        }
        if (open.size() < 3 && chances.Chance(18)) {
            open.push_back({event, FreeNumber(open)});
        }
    }
}

void AddDirections(MadeUpPart& part, const std::string& kind, MadeUpChances& chances) {
    std::vector<Line> open;
    for (MadeUpEvent* event : part.Events()) {
        for (std::size_t i = 0; i < open.size();) {
            const Line line = open[i];
            if (event->grace || line.start->voice != event->voice ||
                !IsBefore(*line.start, *event) || !chances.Chance(45)) {
                ++i;
                continue;
            }
            open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
            if (chances.Wants(true) && line.start->CarriesLines() && event->CarriesLines()) {
                const int staff = line.start->staff;
                line.start->directions.push_back(
                    Direction(kind, true, line.number, staff, part.staves));
                event->directions.push_back(
                    Direction(kind, false, line.number, staff, part.staves));
            }
        }
        const bool hasOne = std::ranges::any_of(open, [event](const Line& line) {
            return line.start->voice / 5 == event->voice / 5;  // of the same staff
        });
        if (!event->grace && !hasOne && chances.Chance(kind == "wedge" ? 10 : 4)) {
            open.push_back({event, FreeNumber(open)});
        }
    }
}

}  // namespace standin
