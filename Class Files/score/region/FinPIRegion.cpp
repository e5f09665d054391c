#include "Class Files/score/region/FinPIRegion.h"

#include <algorithm>
#include <cstring>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIMeas.h"
#include "shell/host/callbacks.h"
#include "shell/host/output_room.h"

namespace {

// The host's region is packed: there is nothing between its fields.
bool IsSameSpan(const EREGION& a, const EREGION& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

}  // namespace

FinPIRegion::FinPIRegion() : EREGION{} {
    RefreshView();
}

FinPIRegion::FinPIRegion(const EREGION& region, u16 document)
    : EREGION{region}, FinPIDoc{document} {}

FinPIRegion::FinPIRegion(const FinPIRegion& other)
    : EREGION{other},
      FinPIDoc{other},
      m_part{other.m_part},
      m_view{other.m_view},
      m_isOneLayer{other.m_isOneLayer},
      m_layer{other.m_layer} {}

FinPIRegion& FinPIRegion::operator=(const FinPIRegion& other) {
    if (this != &other) {
        EREGION::operator=(other);
        FinPIDoc::operator=(other);
        m_part = other.m_part;
        m_view = other.m_view;
        Release();
        m_isOneLayer = other.m_isOneLayer;
        m_layer = other.m_layer;
    }
    return *this;
}

void FinPIRegion::Release() noexcept {
    m_text.SetSize(0);
    m_frames.clear();
    m_staffList.clear();
    m_measureDurations.clear();
}

void FinPIRegion::SetRegion(const EREGION* region) {
    RefreshView();
    if (m_isOneLayer != 0) {
        m_frames.clear();
    }
    m_isOneLayer = 0;
    m_layer = 0;
    static_cast<EREGION&>(*this) = region != nullptr ? *region : EREGION{};
}

void FinPIRegion::RefreshView() {
    m_part = 0;
    m_view = 0;
    if (Host::GetCurrentEnigmaDocument() == m_docID) {
        m_part = static_cast<u16>(Host::GetCurrentPartID());
        OutputRoom<WINDOWINFO> window;
        if (Host::GetCurrentWindowInfo(window.Address()) != 0) {
            m_view = window.Known().view;
        }
    }
}

bool FinPIRegion::operator==(const FinPIRegion& other) const noexcept {
    return m_docID == other.m_docID && m_part == other.m_part && m_view == other.m_view &&
           m_isOneLayer == other.m_isOneLayer && m_layer == other.m_layer &&
           IsSameSpan(*this, other);
}

void FinPIRegion::SetOneLayer(u16 layer) noexcept {
    m_frames.clear();
    m_isOneLayer = 1;
    m_layer = layer;
}

FinPITGFPtr& FinPIRegion::OneLayerFrame(u16 staff, u16 measure) {
    const auto kept = std::ranges::find_if(m_frames, [=](const KeptFrame& frame) {
        return frame.staff == staff && frame.measure == measure;
    });
    if (kept != m_frames.end()) {
        return *kept->frame;
    }
    m_frames.push_back(
        {staff, measure, std::make_unique<FinPITGFPtr>(staff, measure, m_layer, m_docID)});
    return *m_frames.back().frame;
}

u16 FinPIRegion::StaffOfSlot(i16 slot) const {
    if (!m_staffList.empty()) {
        const auto index = static_cast<std::size_t>(slot - 1);
        return index < m_staffList.size() ? m_staffList[index] : u16{0};
    }
    const DocumentScope scope{m_docID};
    return scope ? Host::SlotToInst(slot, startStaffList) : u16{0};
}

u16 FinPIRegion::SlotOfStaff(u16 staff) const {
    if (!m_staffList.empty()) {
        const auto found = std::ranges::find(m_staffList, staff);
        return found == m_staffList.end() ? u16{0}
                                          : static_cast<u16>(found - m_staffList.begin() + 1);
    }
    const DocumentScope scope{m_docID};
    const i16 slot = scope ? ::SlotOfStaff(staff, startStaffList) : i16{0};
    return static_cast<u16>(std::max<i16>(slot, 0));
}

bool FinPIRegion::IsTopStaff(u16 staff) const {
    return staff == StaffOfSlot(1);
}

bool FinPIRegion::IsBottomStaff(u16 staff) const {
    return staff == StaffOfSlot(LastSlot());
}

// 0 = the list has no slots.
i16 FinPIRegion::LastSlot() const {
    i16 last = 0;
    while (last < INT16_MAX && StaffOfSlot(static_cast<i16>(last + 1)) != 0) {
        ++last;
    }
    return last;
}

bool FinPIRegion::ContainsStaff(u16 staff) const {
    return ContainsSlot(SlotOfStaff(staff));
}

bool FinPIRegion::ContainsSlot(i32 slot) const noexcept {
    return slot > 0 && slot >= std::min(startSlot, endSlot) && slot <= std::max(startSlot, endSlot);
}

bool FinPIRegion::ContainsTime(i16 measure, i32 position) const noexcept {
    const bool fromStart =
        measure > startMeasure || (measure == startMeasure && position >= startPosition);
    const bool upToEnd = measure < endMeasure || (measure == endMeasure && position <= endPosition);
    return fromStart && upToEnd;
}

i32 FinPIRegion::MeasureDuration(i16 measure) const {
    const auto index = static_cast<std::ptrdiff_t>(measure) - startMeasure;
    if (index >= 0 && index < std::ssize(m_measureDurations)) {
        return m_measureDurations[static_cast<std::size_t>(index)];
    }
    return FinPIMeas::MeasureDuration(*this, 0, measure);
}

i32 FinPIRegion::DurationInRegion(i16 measure) const {
    const bool endsInside = measure == endMeasure && endPosition != kEndOfMeasure;
    const i32 to = endsInside ? endPosition + 1 : MeasureDuration(measure);
    return measure == startMeasure ? std::max(to - startPosition, 0) : to;
}

i32 FinPIRegion::TotalDuration() const {
    i32 total = 0;
    for (i32 measure = startMeasure; measure <= endMeasure; ++measure) {
        total += DurationInRegion(static_cast<i16>(measure));
    }
    return total;
}

i16 FinPIRegion::NormalizeEndpoint(i16& measure, i32& position, bool equalAllowed,
                                   bool clamp) const {
    const DocumentScope scope{m_docID};
    const bool backwards = position < 0;
    const auto step = static_cast<i16>(backwards ? -1 : 1);
    for (;;) {
        const i32 duration = MeasureDuration(measure);
        if (duration <= 0) {
            if (!clamp) {
                return 0;
            }
            measure = static_cast<i16>(measure - step);
            const i32 limit = backwards ? 1 : MeasureDuration(measure);
            if (measure < 1 || limit < 1) {
                return 0;
            }
            position = limit - 1;
            return 1;
        }
        if (position >= 0 && (position < duration || (equalAllowed && position == duration))) {
            return 1;
        }
        if ((position < 0) != backwards) {
            PostError(FinPIAppError{"FinPIRegion::NormalizeEndpoint", "Sign Error"});
            return 0;
        }
        measure = static_cast<i16>(measure + step);
        if (measure < 1) {
            measure = 0;
            position = 0;
        } else {
            // Going back, the position counts from the end of the measure that is entered.
            position += backwards ? MeasureDuration(measure) : -duration;
        }
    }
}

i16 FinPIRegion::NormalizeEndpoints(bool startEqualAllowed, bool endEqualAllowed, bool clamp) {
    EREGION normal = *this;
    i16 measure = normal.startMeasure;
    i32 position = normal.startPosition;
    if (NormalizeEndpoint(measure, position, startEqualAllowed, clamp) == 0) {
        return 0;
    }
    normal.startMeasure = measure;
    normal.startPosition = position;
    if (normal.endPosition != kEndOfMeasure) {
        measure = normal.endMeasure;
        position = normal.endPosition;
        if (NormalizeEndpoint(measure, position, endEqualAllowed, clamp) == 0) {
            return 0;
        }
        normal.endMeasure = measure;
        normal.endPosition = position;
    }
    static_cast<EREGION&>(*this) = normal;
    return 1;
}

void FinPIRegion::ChangeToIUList(u16 staffList) {
    constexpr char kOrigin[] = "void __cdecl FinPIRegion::ChangeToIUList(const int)";
    const DocumentScope scope{m_docID};
    m_staffList.clear();
    if (!scope) {
        PostError(FinPIAppError{kOrigin, "New first slot is zero."});
        startSlot = endSlot = 0;
        return;
    }
    const u16 firstStaff = Host::SlotToInst(startSlot, startStaffList);
    const u16 lastStaff = Host::SlotToInst(endSlot, endStaffList);
    startStaffList = staffList;
    endStaffList = staffList;
    startSlot = Host::InstToSlot(firstStaff, staffList);
    if (startSlot == 0) {
        PostError(FinPIAppError{kOrigin, "New first slot is zero."});
        startSlot = 1;
    }
    endSlot = Host::InstToSlot(lastStaff, staffList);
    if (endSlot == 0) {
        PostError(FinPIAppError{kOrigin, "New last slot is zero."});
        endSlot = LastSlot();
    }
}
