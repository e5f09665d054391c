#include "merge/EntryTools.h"

#include <algorithm>
#include <utility>

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

EntriesByPosition::EntriesByPosition(const FinPITGFPtr& frame) : m_frame{frame} {
    std::vector<std::pair<i32, i16>> all;
    const i16 count = frame.Count();
    all.reserve(static_cast<std::size_t>(count));
    for (i16 i = 0; i < count; ++i) {
        all.emplace_back(frame.EntryAt(i).ScaledPosition(), i);
    }
    std::ranges::sort(all);
    m_positions.reserve(all.size());
    m_indices.reserve(all.size());
    for (const auto& [position, index] : all) {
        m_positions.push_back(position);
        m_indices.push_back(index);
    }
}

std::span<const i16> EntriesByPosition::At(i32 position) const {
    const auto [first, last] = std::equal_range(m_positions.begin(), m_positions.end(), position);
    return std::span{m_indices}.subspan(static_cast<std::size_t>(first - m_positions.begin()),
                                        static_cast<std::size_t>(last - first));
}

i16 FindCoincidentEntry(const EntriesByPosition& entries, i32 position, i32 graceOffset,
                        bool voice2) {
    i16 otherVoice = -1;
    for (const i16 index : entries.At(position)) {
        const FinPIEntryPtr entry = entries.Frame().EntryAt(index);
        if (graceOffset < kAnyGraceOffset && entry.GraceOffset() != graceOffset) {
            continue;
        }
        if (entry.IsVoice2() == voice2) {
            return index;
        }
        if (otherVoice < 0) {
            otherVoice = index;
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
    std::ranges::fill(entry->notes, EXNOTE{});
    entry->duration = duration;
    if (hidden) {
        entry->flags |= EntryFlag::kIgnore;
    }
}

void MoveShapeEnds(const FinPIEntryPtr& source, const FinPIEntryPtr& target) {
    if (target.MoveSmartShapeAssigns(source, EntryDetailTag::kSmartShapeAssign) == 0 ||
        target.MoveSmartShapeAssigns(source, EntryDetailTag::kSmartShapeLyricAssign) == 0) {
        PostStayedBehind();
    }
}

void MoveAttachments(const FinPIEntryPtr& source, const FinPIEntryPtr& target, u32 detailKinds) {
    const u32 kinds =
        HasEqualPitches(source) ? detailKinds & ~DetailKind::kMatchNotesByPitch : detailKinds;
    if (target.CopyDetailsFrom(kinds, source) == 0) {
        PostStayedBehind();
        return;
    }
    i16 anyDeleted{};
    if (source.DeleteDetails(kMovedDetails, anyDeleted) == 0) {
        PostStayedBehind();
    }
    MoveShapeEnds(source, target);
}
