#include "host/musicxml/write/entries/timed_entries.h"

#include <algorithm>
#include <cstdlib>

#include "host/score/time/entry_times.h"

namespace standin {
namespace {

// Times in finer ones cannot be added.
constexpr i64 kFinestDivisions = i64{1} << 20U;

// The time in quarters at the division nearest to a time in duration units, as long as that
// is near enough; else exactly the units.
Rational NearestDivision(i64 units, Rational divisions) {
    if (divisions.num >= kFinestDivisions) {
        return Rational::OfUnits(units);
    }
    const i64 scaled = units * divisions.num;
    const i64 scale = i64{kQuarterNote} * divisions.den;
    const i64 nearest = (scaled * 2 + scale) / (scale * 2);
    const Rational time = Rational::Of(nearest * divisions.den, divisions.num);
    return std::abs(RoundToUnits(time) - units) <= 1 ? time : Rational::OfUnits(units);
}

// The exact time where it is a division; else the nearest to the rounded one.
Rational DivisionAt(TimePosition exact, i64 units, Rational divisions) {
    const Rational time = Rational::OfUnits(exact.Whole()) +
                          Rational::Of(exact.Numerator(), exact.Denominator() * kQuarterNote);
    return (time * divisions).den == 1 ? time : NearestDivision(units, divisions);
}

bool Agree(Rational time, i64 units) {
    return std::abs(RoundToUnits(time) - units) <= 1;
}

// The ratio inside a tuplet. 0:0, which fits no length, if the tuplet counts in two units.
TimeRatio Inside(const EDTTuplet2005& tuplet, TimeRatio outside) {
    constexpr i64 kMost = i64{1} << 20U;
    const i64 actual = i64{outside.actual} * tuplet.symbolicCount;
    const i64 normal = i64{outside.normal} * tuplet.referenceCount;
    const bool isUsable = tuplet.symbolicUnitDuration == tuplet.referenceUnitDuration &&
                          actual > 0 && actual <= kMost && normal > 0 && normal <= kMost;
    return isUsable ? TimeRatio{static_cast<int>(actual), static_cast<int>(normal)}
                    : TimeRatio{0, 0};
}

void AddRatios(const ImportedScore& score, const Frame& frame, bool voice2,
               std::vector<TimedEntry>& timed) {
    for (const TupletRun& run : TupletRunsOf(frame.entries, voice2, score.document->Records())) {
        const auto tuplet = FromBytes<EDTTuplet2005>(*run.record);
        for (TimedEntry& entry : timed) {
            const auto place = static_cast<std::size_t>(entry.entry - frame.entries.data());
            if (run.first <= place && place <= run.last) {
                entry.ratio = Inside(tuplet, entry.ratio);
            }
        }
    }
}

bool NeedsRatio(const TimedEntry& timed) {
    return !timed.asWritten && timed.entry->duration != timed.entry->actualDuration;
}

}  // namespace

std::vector<TimedEntry> TimedEntriesOf(const ImportedScore& score, const Frame& frame, bool voice2,
                                       Rational divisions) {
    const auto isInVoice = [voice2](const EXENTRY& entry) {
        return ((entry.flags & EntryFlag::kVoice2) != 0) == voice2;
    };
    if (std::ranges::none_of(frame.entries, isInVoice)) {
        return {};
    }
    const std::vector<TimePosition> ends = ExactEndsOf(frame.entries, score.document->Records());
    std::vector<TimedEntry> timed;
    timed.reserve(frame.entries.size());
    Rational time{};
    for (std::size_t i = 0; i < frame.entries.size(); ++i) {
        const EXENTRY& entry = frame.entries[i];
        if (!isInVoice(entry)) {
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
        const WrittenForm& form = score.forms[entry.fieldAt12];
        const i64 end = i64{entry.elapsedTime} + entry.actualDuration;
        result.asWritten = form.notated == entry.duration && Agree(time + form.length, end) &&
                           (form.length.num != 0 || entry.actualDuration == 0);
        const Rational finish =
            result.asWritten ? time + form.length : DivisionAt(ends[i], end, divisions);
        result.length = finish - time;
        time = finish;
    }
    if (std::ranges::any_of(timed, NeedsRatio)) {
        AddRatios(score, frame, voice2, timed);
    }
    return timed;
}

}  // namespace standin
