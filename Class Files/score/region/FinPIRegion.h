// Which staves and which span of time a command works on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Class Files/foundation/FinPIDoc.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "Class Files/score/frames/FinPITGFPtr.h"
#include "shell/host/host_frames.h"

// The host's region with the document it belongs to. Slots are places in a staff list, from 1;
// positions and durations are duration units of the measures' nominal time, both ends of the
// region included. Host calls run with the region's document current.
class FinPIRegion : public EREGION, public FinPIDoc {
public:
    // The most units that Description gives.
    static constexpr std::size_t kDescriptionUnits = 1023;

    FinPIRegion();  // of the current document, empty
    // No host call; the view of the document is not looked at.
    FinPIRegion(const EREGION& region, u16 document);
    // A copy asks the host for slots and durations again: its lists start empty, and it has no
    // frames and no text yet.
    FinPIRegion(const FinPIRegion& other);
    FinPIRegion& operator=(const FinPIRegion& other);
    virtual ~FinPIRegion() = default;

    // Null empties the region. The document stays; the region then covers all layers, and frames
    // that it kept of a single layer are freed.
    void SetRegion(const EREGION* region);
    // Gives back the frames and empties the lists and the text.
    void Release() noexcept;
    // The same document, in the same view of it, and the same staves and span.
    bool operator==(const FinPIRegion& other) const noexcept;

    // If not empty, used instead of host calls: staff numbers by slot, and durations from the start
    // measure on.
    std::vector<u16>& StaffList() noexcept { return m_staffList; }
    std::vector<i32>& MeasureDurations() noexcept { return m_measureDurations; }

    // From 0; the description then names the layer.
    void SetOneLayer(u16 layer) noexcept;
    // The layer's frame, loaded at the first call and kept with the region; without a frame when
    // the host has none there. Rests on FX_LoadTGF.
    FinPITGFPtr& OneLayerFrame(u16 staff, u16 measure);

    // In the start staff list. 0 = no such slot; 0 = the staff is not in the list. Call
    // FX_SlotToInst and FX_InstToSlot.
    u16 StaffOfSlot(i16 slot) const;
    u16 SlotOfStaff(u16 staff) const;
    bool IsTopStaff(u16 staff) const;
    bool IsBottomStaff(u16 staff) const;

    // Whether the staff's slot lies between the region's; the slots may be in either order.
    bool ContainsStaff(u16 staff) const;
    bool ContainsSlot(i32 slot) const noexcept;  // false for 0, which is not a slot
    // No host call.
    bool ContainsTime(i16 measure, i32 position) const noexcept;

    // The duration of the whole measure, 0 = no such measure; of the part within the region; of the
    // whole region. Call FX_GetMeasureDuration.
    i32 MeasureDuration(i16 measure) const;
    i32 DurationInRegion(i16 measure) const;
    i32 TotalDuration() const;

    // Moves a position outside its measure, or before it when negative, to the measure it falls
    // into. equalAllowed: the very end of a measure may stay. clamp: a position past either end of
    // the document becomes the last or first position there. 0 = not found.
    i16 NormalizeEndpoint(i16& measure, i32& position, bool equalAllowed, bool clamp) const;
    // Both ends, or neither. An end at kEndOfMeasure is normal.
    i16 NormalizeEndpoints(bool startEqualAllowed, bool endEqualAllowed, bool clamp);

    // Re-expresses the slots in another staff list. A staff that is not in it is posted; the
    // region then starts at the list's first or ends at its last slot. When its document cannot
    // be made current, which is posted, the region is left with no slot.
    void ChangeToIUList(u16 staffList);

    // Describes the selection in the user's language. Empty when its document cannot be made
    // current.
    std::u16string Description() const;
    // The same, kept with the region until the next call.
    const char16* DescriptionText() { return m_text.Set(Description().c_str()); }

private:
    struct Endpoint {
        u16 staffList;
        i16 slot;
        i16 measure;
        i32 position;
    };

    void RefreshView();
    i16 LastSlot() const;
    void AppendEndpoint(std::u16string& text, const Endpoint& end, bool nameStaff) const;
    void AppendStaffList(std::u16string& text) const;

    u16 m_part = 0;
    u16 m_view = 0;
    std::vector<u16> m_staffList;
    std::vector<i32> m_measureDurations;
    struct KeptFrame {
        u16 staff;
        u16 measure;
        std::unique_ptr<FinPITGFPtr> frame;
    };

    std::vector<KeptFrame> m_frames;
    FinPIVarStringUtf16 m_text;
    u16 m_isOneLayer = 0;
    u16 m_layer = 0;
};
