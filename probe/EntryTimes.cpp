#include "probe/EntryTimes.h"

#include <algorithm>
#include <cmath>

#include "probe/Details.h"
#include "shell/host/callbacks.h"

namespace probe {

namespace {

constexpr long double kHalf = 0.5L + 1e-6L;  // the nearest unit, either one in the middle

}  // namespace

void EntryTimes::Compare(const EXENTRY& entry, long double start, long double end,
                         bool isInTuplet) {
    const long double offset = std::max(
        std::abs(static_cast<long double>(entry.elapsedTime) - start),
        std::abs(static_cast<long double>(entry.elapsedTime + entry.actualDuration) - end));
    (isInTuplet ? m_inTuplets : m_plain).Count(offset <= kHalf);
    if (isInTuplet) {
        m_largestOffset = std::max(m_largestOffset, offset);
    }
}

void EntryTimes::Look(EXFRAME& frame, Details& details) {
    ExactClock voice1;
    ExactClock voice2;
    for (i16 i = 0; i < frame.count; ++i) {
        const EXENTRY entry = frame.entries[i];
        const std::vector<EDTTuplet2005> tuplets = details.Read(entry);
        const bool isVoice2 = (entry.flags & EntryFlag::kVoice2) != 0;
        if (!isVoice2 && (entry.flags & EntryFlag::kLaunchVoice2) != 0) {
            voice2 = voice1.Launch();
        }
        ExactClock& clock = isVoice2 ? voice2 : voice1;
        const long double start = clock.Time();
        if ((entry.flags & EntryFlag::kGrace) != 0) {
            m_graces.Count(entry.actualDuration == 0 &&
                           std::abs(static_cast<long double>(entry.elapsedTime) - start) < 1.5L);
            continue;
        }
        for (const EDTTuplet2005& tuplet : tuplets) {
            clock.OpenTuplet(tuplet);
        }
        const bool isInTuplet = clock.IsInTuplet();
        clock.Advance(entry.duration);
        Compare(entry, start, clock.Time(), isInTuplet);
    }
    const i32 duration = Host::GetTGFDuration(&frame);
    if (duration != 0 || frame.count > 0) {
        m_frames.Count(std::abs(static_cast<long double>(duration) - voice1.Time()) < 1.5L);
    }
}

void EntryTimes::Report(Findings& findings) const {
    findings.Begin(Text::kFreedoms);
    const std::string assumed = Say(Text::kUsualTuplets);
    if (m_inTuplets.seen == m_inTuplets.good) {
        findings.Add("FX_SaveTGF EDTTuplet2005", assumed, m_inTuplets);
    } else {
        const auto hundredths = std::lround(m_largestOffset * 100);
        findings.Add(
            "FX_SaveTGF EDTTuplet2005", assumed,
            Say(Text::kOffBy,
                {std::to_string(m_inTuplets.good), std::to_string(m_inTuplets.seen),
                 std::to_string(hundredths / 100) + "." + std::to_string(hundredths % 100 / 10) +
                     std::to_string(hundredths % 10)}),
            false);
    }
    findings.Begin(Text::kFrames);
    findings.Add("EXENTRY elapsedTime, actualDuration", Say(Text::kTimes), m_plain);
    findings.Add("EXENTRY elapsedTime", Say(Text::kGraces), m_graces);
    findings.Add("FX_GetTGFDuration", Say(Text::kFrameDuration), m_frames);
}

}  // namespace probe
