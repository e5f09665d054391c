// Details that are nothing but flags of the entry.
#pragma once

#include "Class Files/score/details/FinPIEntryDetail.h"

// Behaves like a kind with one empty record, which exists while the flags are set.
class FinPINullEntryDetailBase : public FinPIEntryDetail {
public:
    i16 Load() override;
    i16 Delete() override;
    i16 HasDetails() const override;
    i16 Save() override;
    i16 Create() override;
    const void* GetData() const override { return nullptr; }
    u32 GetDataSize() const override { return 0; }

protected:
    // If the flags depend on the stem's direction, the flags of either direction mean that the
    // detail exists, and the whole mask is copied.
    FinPINullEntryDetailBase(const FinPIEntryPtr& entry, u32 upFlags, u32 downFlags, u32 mask)
        : FinPIEntryDetail{entry, 0, 0, mask}, m_upFlags{upFlags}, m_downFlags{downFlags} {}
    ~FinPINullEntryDetailBase() = default;

private:
    u32 m_upFlags;
    u32 m_downFlags;
};

template <u32 upFlags, u32 downFlags = upFlags, u32 mask = upFlags | downFlags>
class FinPINullEntryDetail final : public FinPINullEntryDetailBase {
public:
    explicit FinPINullEntryDetail(const FinPIEntryPtr& entry)
        : FinPINullEntryDetailBase{entry, upFlags, downFlags, mask} {}
};
