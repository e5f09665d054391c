// Records of one item number: key { item, inci }.
#pragma once

#include "Class Files/score/records/FinPIEnigmaData.h"
#include "Class Files/score/records/FinPIRecord.h"

class FinPIOther : public FinPIEnigmaData {
public:
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;

protected:
    FinPIOther(u32 tag, u16 cmper1, u16 inci, u32 version, bool clearOnReset) noexcept
        : FinPIEnigmaData{tag, cmper1, 0xFFFF, inci, version, clearOnReset} {}
    ~FinPIOther() = default;
};

// A tag of 0: each record is given its tag.
template <typename Structure, u32 kTag, u32 kVersion = kInterfaceVersion, bool kClearOnReset = true>
class FinPIOtherTemplate : public FinPIRecord<FinPIOther, Structure> {
    using Record = FinPIRecord<FinPIOther, Structure>;

public:
    explicit FinPIOtherTemplate(u16 cmper1, u16 inci = 0) requires(kTag != 0)
        : FinPIOtherTemplate{kTag, cmper1, inci} {}
    FinPIOtherTemplate(u32 tag, u16 cmper1, u16 inci)
        : Record{tag, cmper1, inci, kVersion, kClearOnReset} {
        FinPIEnigmaData::Reset(inci);
    }
};
