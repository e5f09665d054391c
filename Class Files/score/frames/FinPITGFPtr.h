// The entries of one layer of one staff in one measure, in memory that the host lends.
#pragma once

#include <set>
#include <span>

#include "shell/host/host_frames.h"

// The tag that names a frame in errors.
inline constexpr u32 kFrameTag = HostTag("aTGF");

class FinPIEntryPtr;
class FinPIStaff;

// Owns the loan of a frame it loaded: the host has it back when the pointer ends. A copy of an
// owner loads the frame again, so that each owner gives back its own; a copy of a pointer that
// does not own shares the frame. Every host call runs with the frame's document current.
// Durations and positions: duration units. Results of 16 bits: 0 = failed; failures are posted
// unless said otherwise.
class FinPITGFPtr {
public:
    FinPITGFPtr() noexcept = default;  // no frame
    // document 0 = the current one. No frame when the host has none there. Rests on
    // FX_InstToSlot, FX_LoadTGF and FX_GetMeasureDuration.
    FinPITGFPtr(u16 staff, u16 measure, u16 layer, u16 document = 0);
    FinPITGFPtr(const FinPITGFPtr& other);
    FinPITGFPtr(FinPITGFPtr&& other) noexcept;
    FinPITGFPtr& operator=(FinPITGFPtr other) noexcept;
    ~FinPITGFPtr();

    // False: no frame. A frame that holds nothing is a frame.
    explicit operator bool() const noexcept { return m_frame != nullptr; }
    EXFRAME* Frame() const noexcept { return m_frame; }
    bool IsOwner() const noexcept { return m_owned != 0; }
    u16 Document() const;  // without a frame the current one

    // The frame's keys; 0 without a frame.
    u16 StaffNumber() const noexcept { return m_frame == nullptr ? u16{0} : m_frame->staff; }
    u16 Measure() const noexcept { return m_frame == nullptr ? u16{0} : m_frame->measure; }
    u16 Layer() const noexcept { return m_frame == nullptr ? u16{0} : m_frame->layer; }

    // The measure's own duration, and the one it has in the frame's staff.
    i32 NominalMeasureDuration() const noexcept { return m_nominalDuration; }
    i32 StaffMeasureDuration() const noexcept { return m_staffDuration; }

    // The entries in place; insert, delete, reduce and reload move them.
    std::span<EXENTRY> Entries() const noexcept;
    i16 Count() const noexcept { return static_cast<i16>(Entries().size()); }
    // Shares the frame, which must outlive it; invalid if the entry does not exist.
    FinPIEntryPtr EntryAt(i16 index) const;
    // -1 = no entry of the frame has that number.
    i16 FindEntryByNumber(u32 entryNumber) const noexcept;
    // The total time of the voice-1 entries; 0 when empty. Calls FX_GetTGFDuration, and adds up the
    // entries if that returns 0.
    i32 Duration() const;

    // Stores the frame. Does not switch documents: fails when the frame's is not the current
    // one. A refusal of FX_SaveTGF is not posted.
    i16 SaveTGF() const;
    // Saves, then loads the stored frame in place of the held one, which an owner only can.
    i16 ReloadTGF();
    // The host's result. The new entries are zeroed and have entry numbers.
    i16 InsertEntries(i16 index, i16 count);
    // The host's result, which has no meaning: compare Count() before and after. The remaining
    // entries keep the first two fields of their notes, which the host may respell.
    i16 DeleteEntriesAt(i16 index, i16 count);
    // Deletes the entries that are found, reduces and reloads. A refused deletion is posted, and
    // the others go on; 0 = not reloaded.
    i16 DeleteEntries(const std::set<u32>& entryNumbers);
    // Lets the host drop entries without notes and duration, then saves and reloads if asked.
    i16 ReduceEntries(bool save);

    // The same layer of the staff in the neighbouring measure, loaded. No frame at either end
    // of the document.
    FinPITGFPtr NextFrame() const;
    FinPITGFPtr PreviousFrame() const;

    // The record of a staff at this measure and this position in it. Without a frame, staff 1
    // outside any measure.
    FinPIStaff Staff(u16 staff, u32 position) const;

protected:
    // Shares a frame whose document and durations are known.
    FinPITGFPtr(EXFRAME* frame, u16 document, i32 nominalDuration, i32 staffDuration) noexcept;

    void AskMeasureDurations();

    u16 m_document = 0;
    EXFRAME* m_frame = nullptr;
    u16 m_owned = 0;
    i32 m_nominalDuration = 0;
    i32 m_staffDuration = 0;

private:
    FinPITGFPtr NeighbourFrame(i16 measure) const;
    void Release() noexcept;
};
