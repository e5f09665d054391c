#include "merge/EntryTools.h"

#include <algorithm>

#include "Class Files/foundation/FinPIException.h"
#include "shell/host/entry_detail_tags.h"

namespace {

bool HasEqualPitches(const FinPIEntryPtr& entry) {
    const std::span<const EXNOTE> notes = entry.Notes();
    for (auto note = notes.begin(); note != notes.end(); ++note) {
        if (std::any_of(note + 1, notes.end(),
                        [note](const EXNOTE& other) { return other.pitch == note->pitch; })) {
            return true;
        }
    }
    return false;
}

// Details left behind would belong to a rest, so the run must fail. Ignored if the failing
// operation has already posted an error.
void PostStayedBehind() {
    PostError(FinPIAppError{"Plyweld::MergeFrame", "Unable to move details."});
}

}  // namespace

i16 FindCoincidentEntry(const FinPITGFPtr& frame, i32 position, i32 graceOffset, bool voice2) {
    i16 otherVoice = -1;
    const i16 count = frame.Count();
    for (i16 i = 0; i < count; ++i) {
        const FinPIEntryPtr entry = frame.EntryAt(i);
        if (entry.ScaledPosition() != position ||
            (graceOffset < kAnyGraceOffset && entry.GraceOffset() != graceOffset)) {
            continue;
        }
        if (entry.IsVoice2() == voice2) {
            return i;
        }
        if (otherVoice < 0) {
            otherVoice = i;
        }
    }
    return otherVoice;
}

void MakeRest(const FinPIEntryPtr& entry, i16 duration, bool hidden) {
    if (!entry) {
        return;
    }
    entry->flags |= EntryFlag::kMadeRest | EntryFlag::kNoNotes;
    entry->flags &= ~EntryFlag::kNote;
    entry->noteCount = 0;
    std::fill(std::begin(entry->notes), std::end(entry->notes), EXNOTE{});
    entry->duration = duration;
    if (hidden) {
        entry->flags |= EntryFlag::kIgnore;
    }
}

bool MoveShapeEnds(const FinPIEntryPtr& source, const FinPIEntryPtr& target) {
    if (target.MoveSmartShapeAssigns(source, EntryDetailTag::kSmartShapeAssign) != 0 &&
        target.MoveSmartShapeAssigns(source, EntryDetailTag::kSmartShapeLyricAssign) != 0) {
        return true;
    }
    PostStayedBehind();
    return false;
}

void MoveAttachments(const FinPIEntryPtr& source, const FinPIEntryPtr& target, u32 detailKinds) {
    const u32 kinds =
        HasEqualPitches(source) ? detailKinds & ~DetailKind::kMatchNotesByPitch : detailKinds;
    if (target.CopyDetailsFrom(kinds, source) == 0) {
        PostStayedBehind();
        return;
    }
    i16 anyDeleted = 0;
    if (source.DeleteDetails(kMovedDetails, anyDeleted) == 0) {
        PostStayedBehind();
    }
    MoveShapeEnds(source, target);
}
