// The positions of entries on the page. Nothing is drawn, so coordinates are invented; stems and
// pages are real.
#include <algorithm>

#include "host/callbacks/serve.h"
#include "shell/host/host_functions.h"

using namespace standin;

namespace {

constexpr i32 kWholeNote = 4 * kQuarterNote;
constexpr i32 kMiddleLine = 6;  // steps above middle C of the treble staff's middle line
constexpr i32 kUnitsPerStep = 12;

i32 StepsOf(const EXNOTE& note) noexcept {
    return static_cast<i16>(note.pitch) >> 4;
}

struct PitchRange {
    i32 lowest;
    i32 highest;
};

PitchRange RangeOf(const EXENTRY& entry) noexcept {
    PitchRange range{StepsOf(entry.notes[0]), StepsOf(entry.notes[0])};
    for (i16 i = 1; i < entry.noteCount; ++i) {
        range.lowest = std::min(range.lowest, StepsOf(entry.notes[i]));
        range.highest = std::max(range.highest, StepsOf(entry.notes[i]));
    }
    return range;
}

bool OtherLayerHasMusic(const Application& app, const Document& document, FrameKey key) {
    for (u16 layer = 0; layer < app.maxLayers; ++layer) {
        if (layer != key.layer && document.FindFrame({key.staff, key.measure, layer}) != nullptr) {
            return true;
        }
    }
    return false;
}

i16 StemDirection(const Application& app, const Document& document, FrameKey key,
                  const EXENTRY& entry) {
    const bool hasStem =
        (entry.flags & EntryFlag::kNote) != 0 && entry.noteCount > 0 && entry.duration < kWholeNote;
    if (!hasStem) {
        return 0;
    }
    bool isUp = false;
    if ((entry.flags & HostEntryFlag::kFixedStem) != 0) {
        isUp = (entry.flags & HostEntryFlag::kStemUp) != 0;
    } else if ((entry.flags & EntryFlag::kVoice2) != 0) {
        isUp = false;
    } else if ((entry.flags & EntryFlag::kLaunchVoice2) != 0) {
        isUp = true;
    } else if (OtherLayerHasMusic(app, document, key)) {
        isUp = key.layer % 2 == 0;
    } else {
        const PitchRange range = RangeOf(entry);
        isUp = range.lowest + range.highest < 2 * kMiddleLine;
    }
    return isUp ? i16{1} : i16{-1};
}

i16 Measure(HostCall call, EXFRAME* frame, i16 index, ENTRYMETRICS* out, u32 version) {
    return ServeDocument(call, version, i16{0}, [&](Application& app, Document& document) -> i16 {
        LentFrame* loan = app.lent.Find(frame);
        if (loan == nullptr) {
            ++app.calls.strangeFrames;
            return RefuseByRule(app, i16{0});
        }
        if (out == nullptr || !loan->IsIntact() || index < 0 || index >= frame->count ||
            loan->DocumentNumber() != document.Number()) {
            return RefuseByRule(app, i16{0});
        }
        const EXENTRY& entry = frame->entries[index];
        if ((entry.flags & EntryFlag::kIgnore) != 0 || entry.noteCount < 0 ||
            entry.noteCount > kMaxNotesPerEntry) {
            return 0;
        }
        const PitchRange range =
            entry.noteCount > 0 ? RangeOf(entry) : PitchRange{kMiddleLine, kMiddleLine};
        *out = ENTRYMETRICS{};
        out->left = entry.elapsedTime;
        out->right = entry.elapsedTime + kUnitsPerStep;
        out->top = (range.highest + 1) * kUnitsPerStep;
        out->bottom = (range.lowest - 1) * kUnitsPerStep;
        out->stemDirection = StemDirection(app, document, loan->Key(), entry);
        out->pageNumber = document.PageOfMeasure(loan->Key().measure);
        WriteOn(app, out + 1);
        return 1;
    });
}

}  // namespace

i16 FX_GetEntryMetrics(EXFRAME* frame, i16 index, ENTRYMETRICS* out, u32 version) {
    return Measure(HostCall::kGetEntryMetrics, frame, index, out, version);
}

i16 FX_GetEntryMetrics2014(EXFRAME* frame, i16 index, ENTRYMETRICS* out, u32 version) {
    return Measure(HostCall::kGetEntryMetrics2014, frame, index, out, version);
}

void FX_FreeEntryMetrics(ENTRYMETRICS*, u32 version) {
    Serve(HostCall::kFreeEntryMetrics, version, 0, [](Application&) { return 0; });
}

void FX_FreeMeasureMetrics(void*, u32 version) {
    Serve(HostCall::kFreeMeasureMetrics, version, 0, [](Application&) { return 0; });
}
