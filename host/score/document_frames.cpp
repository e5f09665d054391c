// The frames of a document and the entries in them.
#include <algorithm>
#include <utility>

#include "host/score/application.h"
#include "host/score/beam_groups.h"
#include "host/score/document.h"
#include "host/score/entry_form.h"
#include "host/score/records/detail_kinds.h"
#include "host/score/selection.h"
#include "host/score/time/entry_times.h"
#include "shell/host/detail_flags.h"

namespace standin {

const Frame* Document::FindFrame(FrameKey key) const {
    const auto found = m_frames.find(key);
    return found == m_frames.end() || found->second.entries.empty() ? nullptr : &found->second;
}

Frame& Document::FrameAt(FrameKey key) {
    return m_frames[key];
}

void Document::PutFrame(FrameKey key, std::vector<EXENTRY> entries) {
    ComputeTimes(entries, m_records,
                 App().manners.rounding ? TupletRounding::kWholeUnits : TupletRounding::kBothEnds);
    for (EXENTRY& entry : entries) {
        ToStoredForm(entry);
        entry.flags =
            (entry.flags & ~DetailFlag::kStored) | DetailFlagsOf(entry.entryNumber, m_records);
    }
    Frame changed;
    changed.entries = std::move(entries);
    const Frame* stored = FindFrame(key);
    if (stored == nullptr ? changed.entries.empty()
                          : SameEntries(stored->entries, changed.entries)) {
        return;
    }
    BeforeFrameChange(key);
    Frame& frame = FrameAt(key);
    DropLostEntries(key, frame.entries, changed.entries);
    for (const EXENTRY& entry : changed.entries) {
        m_homes[entry.entryNumber] = key;
    }
    changed.needsRebeam = true;
    frame = std::move(changed);
    m_needRebeam.push_back(key);
}

void Document::DropLostEntries(FrameKey key, const std::vector<EXENTRY>& before,
                               const std::vector<EXENTRY>& now) {
    std::vector<u32> kept;
    kept.reserve(now.size());
    for (const EXENTRY& entry : now) {
        kept.push_back(u32{entry.entryNumber});
    }
    std::ranges::sort(kept);
    for (const EXENTRY& entry : before) {
        const u32 number = entry.entryNumber;
        if (!std::ranges::binary_search(kept, number) && m_homes[number] == key) {
            m_homes[number] = {};
            m_records.DeleteDetails(number);
        }
    }
}

u32 Document::NewEntryNumber() {
    m_homes.emplace_back();
    return static_cast<u32>(m_homes.size() - 1);
}

FrameKey Document::HomeOf(u32 entry) const {
    return IsIssued(entry) ? m_homes[entry] : FrameKey{};
}

const EXENTRY* Document::FindEntry(u32 entry) const {
    const Frame* frame = FindFrame(HomeOf(entry));
    if (frame == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(
        frame->entries, [entry](const EXENTRY& other) { return other.entryNumber == entry; });
    return found == frame->entries.end() ? nullptr : &*found;
}

void Document::RefreshDetailFlags(u32 entry) {
    const EXENTRY* stored = FindEntry(entry);
    if (stored == nullptr) {
        return;
    }
    const u32 flags = (stored->flags & ~DetailFlag::kStored) | DetailFlagsOf(entry, m_records);
    const u32 changed = stored->flags ^ flags;
    if (changed == 0) {
        return;
    }
    const FrameKey key = HomeOf(entry);
    const auto index = stored - FindFrame(key)->entries.data();
    BeforeFrameChange(key);
    Frame& frame = FrameAt(key);
    frame.entries[static_cast<std::size_t>(index)].flags = flags;
    if ((changed & DetailFlag::kSecondaryBeamBreak) != 0) {
        frame.beams.clear();
        frame.needsRebeam = true;
        m_needRebeam.push_back(key);
    }
}

int Document::Rebeam(const EREGION& region) {
    const auto isInside = [&](FrameKey key) {
        return HoldsFrame(region, SlotOfStaff(key.staff, region.startStaffList), key.measure);
    };
    int beamed = 0;
    std::vector<FrameKey> waiting;
    for (const FrameKey key : std::exchange(m_needRebeam, {})) {
        Frame& frame = FrameAt(key);
        if (!frame.needsRebeam) {
            continue;
        }
        if (!isInside(key)) {
            waiting.push_back(key);
            continue;
        }
        BeforeFrameChange(key);
        frame.beams = ComputeBeams(frame.entries, Measure(key.measure), m_records);
        frame.needsRebeam = false;
        ++beamed;
    }
    m_needRebeam = std::move(waiting);
    return beamed;
}

}  // namespace standin
