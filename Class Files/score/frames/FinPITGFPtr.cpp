#include "Class Files/score/frames/FinPITGFPtr.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIStaff.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "Class Files/score/frames/NormalizeFrame.h"
#include "shell/host/callbacks.h"

namespace {

constexpr char kNotCurrent[] = "Attempted to update a non-current document";
constexpr char kSaveTGF[] = "short __cdecl FinPITGFPtr::SaveTGF(void) const";
constexpr char kReloadTGF[] = "FinPITGFPtr::ReloadTGF";
constexpr i16 kAlwaysOne = 1;
constexpr u16 kNoStaff = 0;           // does not load, in any document
constexpr i32 kLatestTime = 1 << 28;  // duration units: longer than any frame

EXFRAME* LoadFrame(u16 firstKey, u16 slot, u16 measure, u16 layer) {
    EXFRAME* const frame = Host::LoadTGF(firstKey, static_cast<i16>(slot),
                                         static_cast<i16>(measure), layer, kAlwaysOne);
    if (frame != nullptr && frame->entries != nullptr) {
        // An entry has twelve slots for notes, whatever its count says. Times are summed, so none
        // may be longer than music can be.
        for (i16 i = 0; i < frame->count; ++i) {
            EXENTRY& entry = frame->entries[i];
            entry.noteCount = std::clamp<i16>(entry.noteCount, 0, kMaxNotesPerEntry);
            entry.elapsedTime = std::clamp(i32{entry.elapsedTime}, 0, kLatestTime);
            entry.actualDuration = std::clamp(i32{entry.actualDuration}, 0, kLatestTime);
        }
    }
    return frame;
}

// A frame of the current document with the four load keys of another one.
EXFRAME* LoadAgain(const EXFRAME& frame) {
    return LoadFrame(frame.firstKey, frame.slot, frame.measure, frame.layer);
}

// The host's result, computed from the entries held here.
i32 DurationOf(std::span<const EXENTRY> entries) {
    i64 duration = 0;
    for (const EXENTRY& entry : entries) {
        duration += (entry.flags & EntryFlag::kVoice2) == 0 ? entry.actualDuration : 0;
    }
    return static_cast<i32>(std::min<i64>(duration, kLatestTime));
}

// The fields that the host may respell while it deletes entries.
struct NoteFields {
    u16 pitch;
    u16 second;
};
using EntryNoteFields = std::array<NoteFields, kMaxNotesPerEntry>;

std::vector<EntryNoteFields> KeepNoteFields(std::span<const EXENTRY> entries) {
    std::vector<EntryNoteFields> kept(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::ranges::transform(entries[i].notes, kept[i].begin(), [](const EXNOTE& note) {
            return NoteFields{note.pitch, note.second};
        });
    }
    return kept;
}

void RestoreNoteFields(EXENTRY& entry, const EntryNoteFields& kept) {
    EXNOTE* note = entry.notes;
    for (const NoteFields& fields : kept) {
        if (note->pitch != fields.pitch) {
            note->pitch = fields.pitch;
            note->second = fields.second;
        }
        ++note;
    }
}

}  // namespace

FinPITGFPtr::FinPITGFPtr(u16 staff, u16 measure, u16 layer, u16 document)
    : m_document{document != 0 ? document : CurrentDocument()} {
    const DocumentScope scope{m_document};
    if (!scope) {
        return;
    }
    const i16 slot = SlotOfStaff(staff, 0);
    if (slot > 0) {
        m_frame = LoadFrame(0, static_cast<u16>(slot), measure, layer);
    }
    m_owned = m_frame != nullptr;
    AskMeasureDurations();
}

FinPITGFPtr::FinPITGFPtr(EXFRAME* frame, u16 document, i32 nominalDuration,
                         i32 staffDuration) noexcept
    : m_document{document},
      m_frame{frame},
      m_nominalDuration{nominalDuration},
      m_staffDuration{staffDuration} {}

FinPITGFPtr::FinPITGFPtr(const FinPITGFPtr& other)
    : m_document{other.m_document},
      m_frame{other.m_frame},
      m_owned{other.m_owned},
      m_nominalDuration{other.m_nominalDuration},
      m_staffDuration{other.m_staffDuration} {
    if (m_owned != 0 && m_frame != nullptr) {
        const DocumentScope scope{m_document};
        m_frame = scope ? LoadAgain(*other.m_frame) : nullptr;
    }
}

FinPITGFPtr::FinPITGFPtr(FinPITGFPtr&& other) noexcept
    : m_document{other.m_document},
      m_frame{std::exchange(other.m_frame, nullptr)},
      m_owned{std::exchange(other.m_owned, u16{0})},
      m_nominalDuration{other.m_nominalDuration},
      m_staffDuration{other.m_staffDuration} {}

FinPITGFPtr& FinPITGFPtr::operator=(FinPITGFPtr other) noexcept {
    std::swap(m_document, other.m_document);
    std::swap(m_frame, other.m_frame);
    std::swap(m_owned, other.m_owned);
    std::swap(m_nominalDuration, other.m_nominalDuration);
    std::swap(m_staffDuration, other.m_staffDuration);
    return *this;
}

FinPITGFPtr::~FinPITGFPtr() {
    Release();
}

void FinPITGFPtr::Release() noexcept {
    if (m_owned != 0 && m_frame != nullptr) {
        const DocumentScope scope{m_document};
        Host::FreeTGF(m_frame);
    }
    m_frame = nullptr;
}

// Expects the document to be current.
void FinPITGFPtr::AskMeasureDurations() {
    if (m_frame != nullptr) {
        const auto measure = static_cast<i16>(m_frame->measure);
        m_nominalDuration = MeasureDuration(0, measure);
        m_staffDuration = MeasureDuration(m_frame->staff, measure);
    }
}

u16 FinPITGFPtr::Document() const {
    return m_frame != nullptr ? m_document : CurrentDocument();
}

std::span<EXENTRY> FinPITGFPtr::Entries() const noexcept {
    if (m_frame == nullptr || m_frame->entries == nullptr) {
        return {};
    }
    return {m_frame->entries, static_cast<std::size_t>(std::max(+m_frame->count, 0))};
}

FinPIEntryPtr FinPITGFPtr::EntryAt(i16 index) const {
    return {FinPITGFPtr{m_frame, m_document, m_nominalDuration, m_staffDuration}, index};
}

i16 FinPITGFPtr::FindEntryByNumber(u32 entryNumber) const noexcept {
    const std::span<EXENTRY> entries = Entries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].entryNumber == entryNumber) {
            return static_cast<i16>(i);
        }
    }
    return -1;
}

i32 FinPITGFPtr::Duration() const {
    if (m_frame == nullptr) {
        return 0;
    }
    const DocumentScope scope{m_document};
    const i32 duration = scope ? Host::GetTGFDuration(m_frame) : 0;
    return duration != 0 ? std::clamp(duration, 0, kLatestTime) : DurationOf(Entries());
}

i16 FinPITGFPtr::SaveTGF() const {
    if (m_frame == nullptr) {
        return 0;
    }
    if (Host::GetCurrentEnigmaDocument() != m_document) {
        PostError(FinPIAppError{kSaveTGF, kNotCurrent});
        return 0;
    }
    NormalizeFrame(Entries());
    return Host::SaveTGF(m_frame);
}

i16 FinPITGFPtr::ReloadTGF() {
    if (m_owned == 0) {
        PostError(FinPIAppError{kReloadTGF, "TGFPtr is not self-destroy."});
        return 0;
    }
    if (m_frame == nullptr) {
        PostError(FinPIAppError{kReloadTGF, "TGFPtr is NULL."});
        return 0;
    }
    const DocumentScope scope{m_document, DocumentScope::Current::kAsked};
    if (!scope) {
        PostError(FinPIAppError{kSaveTGF, kNotCurrent});
        return 0;
    }
    NormalizeFrame(Entries());
    if (Host::SaveTGF(m_frame) == 0) {
        PostRecordError<FinPISaveEDataFailed>(kReloadTGF, kFrameTag);
        return 0;
    }
    EXFRAME* const stored = LoadAgain(*m_frame);
    if (stored == nullptr) {
        PostError(FinPIAppError{kReloadTGF, "Unable to reload."});
        return 0;
    }
    Host::FreeTGF(std::exchange(m_frame, stored));
    return 1;
}

i16 FinPITGFPtr::InsertEntries(i16 index, i16 count) {
    if (m_frame == nullptr) {
        return 0;
    }
    const DocumentScope scope{m_document};
    NormalizeFrame(Entries());
    return scope ? Host::InsertEXENTRY(m_frame, index, count) : i16{0};
}

i16 FinPITGFPtr::DeleteEntriesAt(i16 index, i16 count) {
    if (m_frame == nullptr) {
        return 0;
    }
    const DocumentScope scope{m_document};
    if (!scope) {
        return 0;
    }
    NormalizeFrame(Entries());
    const std::vector<EntryNoteFields> kept = KeepNoteFields(Entries());
    const i16 result = Host::DeleteEXENTRY(m_frame, index, count);
    const std::span<EXENTRY> remaining = Entries().first(std::min(Entries().size(), kept.size()));
    const std::size_t gone = kept.size() - remaining.size();
    std::size_t before = 0;
    for (EXENTRY& entry : remaining) {
        if (before == static_cast<std::size_t>(index)) {
            before += gone;
        }
        RestoreNoteFields(entry, kept[before]);
        ++before;
    }
    return result;
}

i16 FinPITGFPtr::DeleteEntries(const std::set<u32>& entryNumbers) {
    for (const u32 entryNumber : entryNumbers) {
        const i16 index = FindEntryByNumber(entryNumber);
        if (index < 0) {
            continue;
        }
        DeleteEntriesAt(index, 1);
        if (FindEntryByNumber(entryNumber) >= 0) {
            PostError(FinPIAppError{"FinPITGFPtr::DeleteEntries", "Unable to delete entries."});
        }
    }
    return ReduceEntries(true);
}

i16 FinPITGFPtr::ReduceEntries(bool save) {
    if (m_frame != nullptr) {
        const DocumentScope scope{m_document};
        NormalizeFrame(Entries());
        if (scope) {
            Host::ReduceEntries(m_frame);
        }
    }
    return save ? ReloadTGF() : i16{1};
}

FinPITGFPtr FinPITGFPtr::NeighbourFrame(i16 measure) const {
    const DocumentScope scope{m_document};
    FinPITGFPtr neighbour;
    if (scope) {
        neighbour.m_document = m_document;
        neighbour.m_frame =
            LoadFrame(m_frame->firstKey, m_frame->slot, static_cast<u16>(measure), m_frame->layer);
        neighbour.m_owned = neighbour.m_frame != nullptr;
        neighbour.AskMeasureDurations();
    }
    return neighbour;
}

FinPITGFPtr FinPITGFPtr::NextFrame() const {
    return m_frame == nullptr ? FinPITGFPtr{} : NeighbourFrame(static_cast<i16>(Measure() + 1));
}

FinPITGFPtr FinPITGFPtr::PreviousFrame() const {
    return Measure() < 2 ? FinPITGFPtr{} : NeighbourFrame(static_cast<i16>(Measure() - 1));
}

FinPIStaff FinPITGFPtr::Staff(u16 staff, u32 position) const {
    if (m_frame == nullptr) {
        PostError(FinPIAppError{"FinPITGFPtr::Staff", "TGF is null."});
        return FinPIStaff{1};
    }
    const DocumentScope scope{m_document};
    return FinPIStaff{scope ? staff : kNoStaff, static_cast<i16>(Measure()), position};
}
