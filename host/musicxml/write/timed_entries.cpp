#include "host/musicxml/write/timed_entries.h"

#include <cstdlib>

namespace standin {
namespace {

// The time in quarters at the division nearest to a time in duration units, as long as that
// is near enough; else exactly the units.
Rational NearestDivision(i64 units, Rational divisions) {
    const i64 scaled = units * divisions.num;
    const i64 scale = i64{kQuarterNote} * divisions.den;
    const i64 nearest = (scaled * 2 + scale) / (scale * 2);
    const Rational time = Rational::Of(nearest * divisions.den, divisions.num);
    return std::abs(RoundToUnits(time) - units) <= 1 ? time : Rational::OfUnits(units);
}

bool Agree(Rational time, i64 units) {
    return std::abs(RoundToUnits(time) - units) <= 1;
}

}  // namespace

std::vector<TimedEntry> TimedEntriesOf(const Frame& frame, bool voice2, const WrittenForms& forms,
                                       Rational divisions) {
    std::vector<TimedEntry> timed;
    timed.reserve(frame.entries.size());
    Rational time{};
    for (const EXENTRY& entry : frame.entries) {
        if (((entry.flags & EntryFlag::kVoice2) != 0) != voice2) {
            continue;
        }
        if (!Agree(time, entry.elapsedTime)) {
            time = NearestDivision(entry.elapsedTime, divisions);
        }
        TimedEntry& result = timed.emplace_back();
        result.entry = &entry;
        result.start = time;
        if ((entry.flags & EntryFlag::kGrace) != 0) {
            result.asWritten = true;
            continue;
        }
        const WrittenForm& form = forms[entry.fieldAt12];
        const i64 end = i64{entry.elapsedTime} + entry.actualDuration;
        result.asWritten = form.notated == entry.duration && Agree(time + form.length, end) &&
                           (form.length.num != 0 || entry.actualDuration == 0);
        const Rational finish =
            result.asWritten ? time + form.length : NearestDivision(end, divisions);
        result.length = finish - time;
        time = finish;
    }
    return timed;
}

}  // namespace standin
