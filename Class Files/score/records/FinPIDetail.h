// Records of two item numbers: key { first item, second item, inci }.
#pragma once

#include "Class Files/score/records/FinPIEnigmaData.h"
#include "Class Files/score/records/FinPIRecord.h"

class FinPIDetail : public FinPIEnigmaData {
public:
    // The item after this pair.
    void NextCmper1() override;
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;

protected:
    using FinPIEnigmaData::FinPIEnigmaData;
    ~FinPIDetail() = default;
};

// A tag of 0: each record is given its tag.
template <typename Structure, u32 kTag, u32 kVersion = kInterfaceVersion, bool kClearOnReset = true>
class FinPIDetailTemplate : public FinPIRecord<FinPIDetail, Structure> {
    using Record = FinPIRecord<FinPIDetail, Structure>;

public:
    FinPIDetailTemplate(u16 cmper1, u16 cmper2) requires(kTag != 0)
        : FinPIDetailTemplate{kTag, cmper1, cmper2, 0} {}
    FinPIDetailTemplate(u32 tag, u16 cmper1, u16 cmper2, u16 inci)
        : Record{tag, cmper1, cmper2, inci, kVersion, kClearOnReset} {
        FinPIEnigmaData::Reset(inci);
    }
};

// Details of which each kind has a tag of its own.
template <typename Structure, u32 kVersion>
using FinPIDetFloatExTagTemplate = FinPIDetailTemplate<Structure, 0, kVersion>;
