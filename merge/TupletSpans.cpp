#include "merge/TupletSpans.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/callbacks.h"
#include "shell/host/detail_flags.h"
#include "shell/host/entry_detail_tags.h"
#include "shell/host/host_details.h"

namespace {

// Times of entries are rounded to whole units; ends computed from them can differ by one.
constexpr i32 kRounding = 1;
constexpr u16 kDeepestNesting = 16;

i64 SymbolicLength(const EDTTuplet2005& tuplet) {
    return i64{tuplet.symbolicCount} * tuplet.symbolicUnitDuration;
}

i64 ReferenceLength(const EDTTuplet2005& tuplet) {
    return i64{tuplet.referenceCount} * tuplet.referenceUnitDuration;
}

// The tuplets that begin at the entry, outer ones first.
std::vector<EDTTuplet2005> LoadTuplets(u32 entryNumber) {
    std::vector<EDTTuplet2005> tuplets;
    EDTTuplet2005 tuplet{};
    EntryDetailKey key{entryNumber - 1, 0xFFFF};
    for (u16 i = 0; i < kDeepestNesting; ++i) {
        u32 size = sizeof(tuplet);
        if (Host::NextEData(EntryDetailTag::kTuplet, static_cast<void*>(&key),
                            static_cast<void*>(&tuplet), &size, kInterfaceVersion) == 0 ||
            key.entryNumber != entryNumber) {
            break;
        }
        if (SymbolicLength(tuplet) > 0 && ReferenceLength(tuplet) > 0) {
            tuplets.push_back(tuplet);
        }
    }
    std::ranges::stable_sort(tuplets, [](const EDTTuplet2005& a, const EDTTuplet2005& b) {
        return SymbolicLength(a) > SymbolicLength(b);
    });
    return tuplets;
}

struct OpenTuplet {
    i32 end;
    double inside;  // actual length of a duration unit inside
};

// Capped, because damaged tuplets may last longer than the type can hold.
i32 EndOf(const EDTTuplet2005& tuplet, i32 start, double outside) {
    constexpr double kLatest = 1 << 30;
    const double length = static_cast<double>(ReferenceLength(tuplet)) * outside;
    return static_cast<i32>(std::lround(std::min(start + length, kLatest)));
}

}  // namespace

std::vector<TupletSpan> TupletsOf(const FinPITGFPtr& frame) {
    std::vector<TupletSpan> spans;
    std::vector<OpenTuplet> open;
    const DocumentScope document{frame.Document()};
    for (const EXENTRY& entry : frame.Entries()) {
        // Grace entries take no time, nor do tuplets of them.
        if ((entry.flags & (EntryFlag::kVoice2 | EntryFlag::kGrace)) != 0) {
            continue;
        }
        while (!open.empty() && open.back().end <= entry.elapsedTime + kRounding) {
            open.pop_back();
        }
        if ((entry.flags & DetailFlag::kTuplet) == 0) {
            continue;
        }
        for (const EDTTuplet2005& tuplet : LoadTuplets(entry.entryNumber)) {
            const double outside = open.empty() ? 1 : open.back().inside;
            const i32 end = EndOf(tuplet, entry.elapsedTime, outside);
            spans.push_back({entry.elapsedTime, end, tuplet.symbolicCount,
                             tuplet.symbolicUnitDuration, tuplet.referenceCount,
                             tuplet.referenceUnitDuration});
            open.push_back({end, outside * static_cast<double>(ReferenceLength(tuplet)) /
                                     static_cast<double>(SymbolicLength(tuplet))});
        }
    }
    return spans;
}

bool SameTupletsRunAt(i32 time, std::span<const TupletSpan> a, std::span<const TupletSpan> b) {
    const auto runningAt = [time](std::span<const TupletSpan> spans) {
        std::vector<TupletSpan> running;
        std::ranges::copy_if(spans, std::back_inserter(running), [time](const TupletSpan& span) {
            return span.start < time && time < span.end - kRounding;
        });
        return running;
    };
    const std::vector<TupletSpan> first = runningAt(a);
    const std::vector<TupletSpan> second = runningAt(b);
    return std::ranges::equal(first, second, [](const TupletSpan& x, const TupletSpan& y) {
        return x.start == y.start && std::abs(x.end - y.end) <= kRounding &&
               x.symbolicCount == y.symbolicCount &&
               x.symbolicUnitDuration == y.symbolicUnitDuration &&
               x.referenceCount == y.referenceCount &&
               x.referenceUnitDuration == y.referenceUnitDuration;
    });
}
