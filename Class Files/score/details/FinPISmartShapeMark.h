// The mark that makes an entry an end of a smart shape, as a plain record.
#pragma once

#include "Class Files/score/details/FinPIEntryDetail.h"
#include "shell/host/detail_flags.h"
#include "shell/host/host_records.h"

namespace SmartShapeMarkTag {
inline constexpr u32 kEntry = HostTag("edEx");
inline constexpr u32 kLyric = HostTag("edLx");
}  // namespace SmartShapeMarkTag

class FinPISmartShapeMark : public FinPIEntryDetail {
public:
    static constexpr u32 kEntryFlags = DetailFlag::kSmartShape;

    // tag: one of SmartShapeMarkTag.
    FinPISmartShapeMark(const FinPIEntryPtr& entry, u32 tag);

    const void* GetData() const override { return &m_mark; }
    u32 GetDataSize() const override { return sizeof(m_mark); }

    u16 ShapeNumber() const noexcept { return m_mark.shapeNumber; }

protected:
    EDTSmartShapeEntMark m_mark{};
};
