// One entry of a frame: a note, a chord or a rest.
#pragma once

#include <map>

#include "Class Files/score/frames/FinPITGFPtr.h"

class FinPIRegion;
class FinPIScoreExpr;

// Stem directions by entry number: 1 up, -1 down.
using StemDirections = std::map<u32, i16>;

// Refers to an entry by its frame and index. Pointers made by EntryAt and by steps within the frame
// share the frame and make no host call. They become invalid with the frame and after any insert,
// delete or reload; find the entry again by its number. Positions: duration units from the barline.
class FinPIEntryPtr : public FinPITGFPtr {
public:
    FinPIEntryPtr() noexcept = default;  // invalid
    // Shares a frame of the current document. Rests on FX_GetMeasureDuration.
    FinPIEntryPtr(EXFRAME* frame, i16 index);
    // With the owner's document and durations. An owner's frame is loaded again.
    FinPIEntryPtr(const FinPITGFPtr& owner, i16 index);
    // Takes the frame over.
    FinPIEntryPtr(FinPITGFPtr&& owner, i16 index);

    explicit operator bool() const noexcept { return Entry() != nullptr; }
    // The host's record in place; null when invalid.
    EXENTRY* Entry() const noexcept;
    EXENTRY* operator->() const noexcept { return Entry(); }
    EXENTRY& operator*() const noexcept { return *Entry(); }
    i16 Index() const noexcept { return m_index; }  // -1 = invalid

    // The same entry of the same frame, not owning it.
    FinPIEntryPtr Shared() const;

    // All of them false, or 0, for an invalid pointer.
    u32 Number() const noexcept { return Entry() == nullptr ? 0 : Entry()->entryNumber; }
    bool HasFlag(u32 flag) const noexcept {
        return Entry() != nullptr && (Entry()->flags & flag) != 0;
    }
    bool IsNote() const noexcept { return HasFlag(EntryFlag::kNote); }
    bool IsVoice2() const noexcept { return HasFlag(EntryFlag::kVoice2); }
    bool IsGrace() const noexcept { return HasFlag(EntryFlag::kGrace); }
    std::span<EXNOTE> Notes() const noexcept;

    // Start and time taken in the measure's nominal duration, rounded; the entry record itself
    // counts in the staff's duration. A staff measure without duration leaves them unscaled.
    i32 ScaledPosition() const noexcept { return m_scaledPosition; }
    i32 ScaledActualDuration() const noexcept { return m_scaledActualDuration; }

    // The next entry. After the last one, the first of the next measure, which owns its frame,
    // unless the step must stay in the frame. Invalid if there is none.
    FinPIEntryPtr Next(bool stayInFrame) const;
    // The same within the entry's voice; voice 2 ends with its frame at the latest.
    FinPIEntryPtr NextInVoice(bool stayInFrame) const;
    // Within the frame and the entry's voice.
    FinPIEntryPtr PreviousInVoice() const;

    // The durations from a grace entry up to its main note, negative; 0 for other entries.
    i32 GraceOffset() const noexcept;
    // 1 for the first of a run of grace entries; 0 for other entries.
    i16 GraceIndex() const noexcept;

    // Whether the expression belongs to this entry: if several match, to the first. launchTest:
    // never to an entry that launches voice 2. layerTest: only in its own layer.
    i16 IsExpressionAttached(const FinPIScoreExpr& expression, bool launchTest,
                             bool layerTest) const;

    // Up 1, down -1, from the beam group and the host's metrics of it; asked once when a cache is
    // attached. Posts, and returns up, if the entry is hidden or not on a page. Rests on
    // FX_GetEntryMetrics.
    i16 StemDirection() const;
    // The cache must outlive the pointer and its copies.
    void AttachStemDirections(StemDirections* cache) noexcept { m_stemDirections = cache; }

    // The region that smart shapes copied from or to this entry stay in; null = none. It must
    // outlive the pointer and its copies.
    const FinPIRegion* Region() const noexcept { return m_region; }
    void AttachRegion(const FinPIRegion* region) noexcept { m_region = region; }

    // Records of the entry's details, sizes in bytes. They act on the entry's own document,
    // which must be the current one. 0 = the host refused, which is not posted, or the entry
    // is invalid. Record number 0xFFFF appends.
    i16 CreateEntryDetail(u32 tag, const void* data, u32 size, u16 recordNumber, u32 version) const;
    i16 SaveEntryDetail(u32 tag, u16 recordNumber, const void* data, u32 size, u32 version) const;
    i16 DeleteEntryDetail(u32 tag, u16 recordNumber, u32 version) const;
    // False, and posted, when the entry's document is not the current one.
    bool CheckDocumentIsCurrent(const char* operation) const;
    // The number the host gave to the record created last.
    u16 CreatedRecordNumber() const noexcept { return m_createdRecord; }

    // Whole kinds of details; the set's bits are those of DetailKind. The flags of the entry
    // records follow what is stored. A kind that fails does not stop the others.
    // Copies onto this entry: 1 = every selected kind was copied.
    i16 CopyDetailsFrom(u32 detailKinds, const FinPIEntryPtr& source) const;
    // 1 = every selected kind was deleted. anyDeleted becomes 1 when something was.
    i16 DeleteDetails(u32 detailKinds, i16& anyDeleted) const;
    // Moves the marks of this tag here and redirects the ends of their shapes from the source
    // entry to this one: 1 = the source has no such mark left.
    i16 MoveSmartShapeAssigns(const FinPIEntryPtr& source, u32 tag) const;

private:
    // A sharing pointer to another entry of the same frame.
    FinPIEntryPtr Sibling(i16 index) const;
    // The same for a pointer that shares its frame; an owner's frame is loaded again.
    FinPIEntryPtr Step(i16 index) const;
    void Place(i16 index);
    bool IsAttachedHere(const FinPIScoreExpr& expression, bool launchTest, bool layerTest) const;
    i16 AskStemDirection() const;
    i16 BeamStemDirection() const;

    i16 m_index = -1;
    i32 m_scaledPosition = 0;
    i32 m_scaledActualDuration = 0;
    mutable u16 m_createdRecord{};
    StemDirections* m_stemDirections = nullptr;
    const FinPIRegion* m_region = nullptr;
};
