// The mark that makes an entry an end of a smart shape, as a plain record.
#pragma once

#include "Class Files/score/details/FinPIEntryDetail.h"
#include "shell/host/detail_flags.h"
#include "shell/host/entry_detail_tags.h"
#include "shell/host/host_records.h"

class FinPISmartShapeMark : public FinPIEntryDetail {
public:
    static constexpr u32 kEntryFlags = DetailFlag::kSmartShape;

    // tag: EntryDetailTag::kSmartShapeAssign or kSmartShapeLyricAssign.
    FinPISmartShapeMark(const FinPIEntryPtr& entry, u32 tag);

    const void* GetData() const override { return &m_mark; }
    u32 GetDataSize() const override { return sizeof(m_mark); }

    u16 ShapeNumber() const noexcept { return m_mark.shapeNumber; }

protected:
    EDTSmartShapeEntMark m_mark{};
};
