#include "merge/RestReplacement.h"

#include <algorithm>
#include <cstdlib>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "merge/EntryTools.h"
#include "merge/NoteOrder.h"
#include "shell/host/detail_flags.h"

namespace {

// Details of a rest that would be lost if it were replaced.
constexpr u32 kTiedToTheRest = DetailFlag::kArticulation | DetailFlag::kLyric;

// A host rounds the times of tuplets. It may round each entry separately, so errors add up until
// the tuplet ends. A larger difference is a different time.
constexpr i32 kTimeTolerance = 2;
constexpr i32 kMaxDrift = 14;

constexpr const char* kFillOperation = "Plyweld::FillRestRuns";

std::span<EXENTRY> Part(const FinPITGFPtr& frame, i16 first, i16 count) {
    const std::span<EXENTRY> entries = frame.Entries();
    const auto start = std::min(static_cast<std::size_t>(first), entries.size());
    return entries.subspan(start,
                           std::min(static_cast<std::size_t>(count), entries.size() - start));
}

bool AnyHas(std::span<const EXENTRY> entries, u32 flags) {
    return std::ranges::any_of(
        entries, [flags](const EXENTRY& entry) { return (entry.flags & flags) != 0; });
}

// Rests, some of them hidden, without any note.
bool HidesWithoutMusic(std::span<const EXENTRY> entries) {
    return AnyHas(entries, EntryFlag::kIgnore) && !AnyHas(entries, EntryFlag::kNote);
}

bool LeavesTupletsWhole(FramePair& frames, i32 startTime, i32 endTime) {
    if (!AnyHas(frames.source.Entries(), DetailFlag::kTuplet) &&
        !AnyHas(frames.destination.Entries(), DetailFlag::kTuplet)) {
        return true;
    }
    if (!frames.sourceTuplets) {
        frames.sourceTuplets = TupletsOf(frames.source);
    }
    const std::vector<TupletSpan> destination = TupletsOf(frames.destination);
    return SameTupletsRunAt(startTime, *frames.sourceTuplets, destination) &&
           SameTupletsRunAt(endTime, *frames.sourceTuplets, destination);
}

// A second voice may last longer than the entry that launches it and so overlap the next one.
bool LeavesSecondVoicesApart(const FinPITGFPtr& destination, std::span<const EXENTRY> music) {
    const auto end = [](const EXENTRY& entry) { return entry.elapsedTime + entry.actualDuration; };
    const auto isVoice2 = [](const EXENTRY& entry) {
        return (entry.flags & EntryFlag::kVoice2) != 0;
    };
    const std::span<const EXENTRY> present = destination.Entries();
    return std::ranges::none_of(music, [&](const EXENTRY& a) {
        return isVoice2(a) && std::ranges::any_of(present, [&](const EXENTRY& b) {
                   return isVoice2(b) && a.elapsedTime < end(b) && b.elapsedTime < end(a);
               });
    });
}

Replacement Fail(const char* detail) {
    PostError(FinPIAppError{kFillOperation, detail});
    return Replacement::kFailed;
}

// The stored frame still has the destination's contents from before the refusal.
Replacement Restore(FramePair& frames) {
    const FinPITGFPtr& held = frames.destination;
    frames.destination =
        FinPITGFPtr{held.StaffNumber(), held.Measure(), held.Layer(), held.Document()};
    return frames.destination ? Replacement::kRefused : Fail("Unable to reload.");
}

// All fields except the host's own. Details are copied later, and set their flags then.
void CopyFields(EXENTRY& target, const EXENTRY& source) {
    target.duration = source.duration;
    target.fieldAt6 = source.fieldAt6;
    target.flags = source.flags & ~DetailFlag::kStored;
    target.fieldAt12 = source.fieldAt12;
    target.noteCount = source.noteCount;
    std::ranges::copy(source.notes, std::begin(target.notes));
}

void CopySpan(FramePair& frames, const SourceSpan& span, i16 at) {
    const std::span<EXENTRY> source = Part(frames.source, span.first, span.count);
    const std::span<EXENTRY> target = Part(frames.destination, at, span.count);
    for (std::size_t k = 0; k < std::min(source.size(), target.size()); ++k) {
        CopyFields(target[k], source[k]);
    }
}

// False: the host did not delete the rests.
bool DeleteRests(FinPITGFPtr& frame, const RestRun& run) {
    const i16 count = frame.Count();
    if (run.count > 0) {
        frame.DeleteEntriesAt(run.start, run.count);
    }
    return frame.Count() == count - run.count;
}

// The usual order: delete the rests, then insert the entries.
Replacement Exchange(FramePair& frames, const RestRun& run, const SourceSpan& span) {
    const i16 count = frames.destination.Count();
    if (!DeleteRests(frames.destination, run)) {
        return Restore(frames);
    }
    if (frames.destination.InsertEntries(run.start, span.count) == 0 ||
        frames.destination.Count() != count - run.count + span.count) {
        return Restore(frames);
    }
    CopySpan(frames, span, run.start);
    return frames.destination.ReloadTGF() != 0 ? Replacement::kDone : Replacement::kFailed;
}

// The index in the span of the entry that sounds when the rest begins; -1 = none.
i16 SoundingAt(const FramePair& frames, const SourceSpan& span, i32 time) {
    const std::span<EXENTRY> source = Part(frames.source, span.first, span.count);
    for (std::size_t k = 0; k < source.size(); ++k) {
        if ((source[k].flags & EntryFlag::kVoice2) == 0 && source[k].elapsedTime <= time &&
            time < source[k].elapsedTime + source[k].actualDuration) {
            return static_cast<i16>(k);
        }
    }
    return -1;
}

// Moves the ends of smart shapes from the rests to the new entries, so both are in the frame
// meanwhile.
Replacement ExchangeKeepingShapes(FramePair& frames, const RestRun& run, const SourceSpan& span) {
    const i16 count = frames.destination.Count();
    const i16 at = static_cast<i16>(run.start + run.count);
    if (frames.destination.InsertEntries(at, span.count) == 0 ||
        frames.destination.Count() != count + span.count) {
        return Restore(frames);
    }
    CopySpan(frames, span, at);
    if (frames.destination.ReloadTGF() == 0) {
        return Replacement::kFailed;
    }
    for (i16 i = run.start; i < at; ++i) {
        const FinPIEntryPtr rest = frames.destination.EntryAt(i);
        const i16 k = rest ? SoundingAt(frames, span, rest->elapsedTime) : i16{-1};
        if (k >= 0) {
            MoveShapeEnds(rest, frames.destination.EntryAt(static_cast<i16>(at + k)));
        }
    }
    if (!DeleteRests(frames.destination, run)) {
        return Fail("Unable to replace rests.");
    }
    return frames.destination.ReloadTGF() != 0 ? Replacement::kDone : Replacement::kFailed;
}

void MatchTieEnds(const FinPIEntryPtr& target, const FinPIEntryPtr& source) {
    const i16 count = std::min(target->noteCount, source->noteCount);
    for (i16 i = 0; i < count; ++i) {
        auto& note = target->notes[i];
        note.flags =
            (note.flags & ~NoteFlag::kTieEnd) | (source->notes[i].flags & NoteFlag::kTieEnd);
    }
}

bool MoveMusic(FramePair& frames, const RestRun& run, const SourceSpan& span,
               std::set<u32>& graceRests) {
    for (i16 k = 0; k < span.count; ++k) {
        const FinPIEntryPtr source = frames.source.EntryAt(static_cast<i16>(span.first + k));
        const FinPIEntryPtr target = frames.destination.EntryAt(static_cast<i16>(run.start + k));
        if (!source || !target || source.IsNote() != target.IsNote()) {
            return false;
        }
        {
            const NotesInOrder order{target, NoteIDs(source)};
            MatchTieEnds(target, source);
            MoveAttachments(source, target, kPlacedEntryDetails);
        }
        frames.AddMoved(source, target);
        MakeRest(source, source->duration, frames.hideRests);
        if (source.IsGrace()) {
            graceRests.insert(source.Number());
        }
    }
    return true;
}

bool KeptTheirTimes(const FramePair& frames, const RestRun& run, const SourceSpan& span) {
    const std::span<EXENTRY> source = Part(frames.source, span.first, span.count);
    const std::span<EXENTRY> target = Part(frames.destination, run.start, span.count);
    i32 before = 0;  // entries of the span so far
    return std::ranges::equal(source, target, [&before](const EXENTRY& a, const EXENTRY& b) {
        const i32 tolerance = kTimeTolerance + std::min(before++, kMaxDrift);
        return std::abs(a.elapsedTime - b.elapsedTime) <= tolerance &&
               std::abs(a.actualDuration - b.actualDuration) <= tolerance;
    });
}

}  // namespace

bool MayReplace(FramePair& frames, const RestRun& run, const SourceSpan& span, i32 startTime) {
    const std::span<const EXENTRY> rests = Part(frames.destination, run.start, run.count);
    const std::span<const EXENTRY> music = Part(frames.source, span.first, span.count);
    return !(HidesWithoutMusic(music) && !rests.empty()) && !AnyHas(rests, kTiedToTheRest) &&
           LeavesSecondVoicesApart(frames.destination, music) &&
           LeavesTupletsWhole(frames, startTime, startTime + run.duration);
}

Replacement ReplaceRests(FramePair& frames, const RestRun& run, const SourceSpan& span,
                         std::set<u32>& graceRests) {
    const i16 expected = static_cast<i16>(frames.destination.Count() - run.count + span.count);
    const bool shapes =
        AnyHas(Part(frames.destination, run.start, run.count), DetailFlag::kSmartShape);
    const Replacement exchanged =
        shapes ? ExchangeKeepingShapes(frames, run, span) : Exchange(frames, run, span);
    if (exchanged != Replacement::kDone) {
        return exchanged;
    }
    if (frames.destination.Count() != expected || !MoveMusic(frames, run, span, graceRests)) {
        return Fail("Entries were lost.");
    }
    if (frames.destination.ReloadTGF() == 0) {
        return Replacement::kFailed;
    }
    return KeptTheirTimes(frames, run, span) ? Replacement::kDone
                                             : Fail("Entries did not keep their times.");
}
