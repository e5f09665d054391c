#include "Class Files/score/frames/FinPIEntryPtr.h"

#include <algorithm>
#include <utility>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/score/frames/ScaledTime.h"

namespace {

bool HasVoice2Flag(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kVoice2) != 0;
}
bool HasGraceFlag(const EXENTRY& entry) {
    return (entry.flags & EntryFlag::kGrace) != 0;
}

std::size_t Unsigned(i16 index) {
    return static_cast<std::size_t>(index);
}

// The first voice-1 entry from this index on; -1 = none.
i16 FindVoice1(std::span<const EXENTRY> entries, i16 from) {
    const auto found =
        std::find_if_not(entries.begin() + std::min<std::ptrdiff_t>(from, std::ssize(entries)),
                         entries.end(), HasVoice2Flag);
    return found == entries.end() ? i16{-1} : static_cast<i16>(found - entries.begin());
}

}  // namespace

FinPIEntryPtr::FinPIEntryPtr(EXFRAME* frame, i16 index)
    : FinPITGFPtr{frame, CurrentDocument(), 0, 0} {
    if (index >= 0) {
        AskMeasureDurations();
    }
    Place(index);
}

FinPIEntryPtr::FinPIEntryPtr(const FinPITGFPtr& owner, i16 index) : FinPITGFPtr{owner} {
    Place(index);
}

FinPIEntryPtr::FinPIEntryPtr(FinPITGFPtr&& owner, i16 index) : FinPITGFPtr{std::move(owner)} {
    Place(index);
}

void FinPIEntryPtr::Place(i16 index) {
    if (index < 0 || index >= Count()) {
        static_cast<FinPITGFPtr&>(*this) = FinPITGFPtr{};
        return;
    }
    m_index = index;
    m_scaledPosition = ScaleToNominal(Entry()->elapsedTime, m_nominalDuration, m_staffDuration);
    m_scaledActualDuration =
        ScaleToNominal(Entry()->actualDuration, m_nominalDuration, m_staffDuration);
}

EXENTRY* FinPIEntryPtr::Entry() const noexcept {
    return m_index >= 0 && m_index < Count() ? m_frame->entries + m_index : nullptr;
}

std::span<EXNOTE> FinPIEntryPtr::Notes() const noexcept {
    EXENTRY* const entry = Entry();
    if (entry == nullptr) {
        return {};
    }
    const i16 count = std::clamp<i16>(entry->noteCount, 0, kMaxNotesPerEntry);
    return {entry->notes, static_cast<std::size_t>(count)};
}

FinPIEntryPtr FinPIEntryPtr::Shared() const {
    FinPIEntryPtr shared = Sibling(m_index);
    shared.m_createdRecord = m_createdRecord;
    return shared;
}

FinPIEntryPtr FinPIEntryPtr::Sibling(i16 index) const {
    FinPIEntryPtr sibling = EntryAt(index);
    sibling.m_stemDirections = m_stemDirections;
    sibling.m_region = m_region;
    return sibling;
}

FinPIEntryPtr FinPIEntryPtr::Step(i16 index) const {
    return IsOwner() ? FinPIEntryPtr{*this, index} : Sibling(index);
}

FinPIEntryPtr FinPIEntryPtr::Next(bool stayInFrame) const {
    if (m_index + 1 < Count()) {
        return Step(static_cast<i16>(m_index + 1));
    }
    return stayInFrame ? FinPIEntryPtr{} : FinPIEntryPtr{NextFrame(), 0};
}

FinPIEntryPtr FinPIEntryPtr::NextInVoice(bool stayInFrame) const {
    const auto following = static_cast<i16>(m_index + 1);
    if (IsVoice2()) {
        const bool isVoice2 = following < Count() && HasVoice2Flag(Entries()[Unsigned(following)]);
        return isVoice2 ? Step(following) : FinPIEntryPtr{};
    }
    const i16 next = FindVoice1(Entries(), following);
    if (next >= 0) {
        return Step(next);
    }
    if (stayInFrame) {
        return {};
    }
    FinPITGFPtr nextFrame = NextFrame();
    const i16 first = FindVoice1(nextFrame.Entries(), 0);
    return {std::move(nextFrame), first};
}

FinPIEntryPtr FinPIEntryPtr::PreviousInVoice() const {
    const std::span<EXENTRY> entries = Entries();
    for (auto before = static_cast<i16>(m_index - 1); before >= 0; --before) {
        const bool isVoice2 = HasVoice2Flag(entries[Unsigned(before)]);
        if (isVoice2 == IsVoice2()) {
            return Step(before);
        }
        if (IsVoice2()) {
            break;
        }
    }
    return {};
}

i32 FinPIEntryPtr::GraceOffset() const noexcept {
    i32 offset = 0;
    if (IsGrace()) {
        const std::span<EXENTRY> entries = Entries();
        for (auto i = Unsigned(m_index); i < entries.size() && HasGraceFlag(entries[i]); ++i) {
            offset -= entries[i].duration;
        }
    }
    return offset;
}

i16 FinPIEntryPtr::GraceIndex() const noexcept {
    i16 index = 0;
    if (IsGrace()) {
        const std::span<EXENTRY> entries = Entries();
        for (i16 i = m_index; i >= 0 && HasGraceFlag(entries[Unsigned(i)]); --i) {
            ++index;
        }
    }
    return index;
}
