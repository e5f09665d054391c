// Records attached to a measure: key { measure, inci }.
#pragma once

#include "Class Files/score/records/FinPIEnigmaData.h"
#include "Class Files/score/records/FinPIRecord.h"

class FinPIRegion;

class FinPIMeasOther : public FinPIEnigmaData {
public:
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;

    // The order of these, after those of every record, is the interface. Whether the other record,
    // in any measure, is of this kind and has the same content.
    virtual i16 IsSameMeasOther(const FinPIMeasOther& other) const;
    // Copies the content of the other; measure and record number stay. 0, and posted, when it is of
    // another kind.
    virtual i16 CopyMeasOtherAttributes(const FinPIMeasOther& other);
    // The region that copies of the record must stay in; null = anywhere.
    virtual const FinPIRegion* GetTargetRegion() const { return nullptr; }

    u16 MeasureFlags() const noexcept { return m_flags; }

protected:
    FinPIMeasOther(u32 tag, u16 flags, u16 measure, u16 inci, u32 version) noexcept
        : FinPIEnigmaData{tag, measure, 0xFFFF, inci, version, true}, m_flags{flags} {}
    ~FinPIMeasOther() = default;

private:
    u16 m_flags;  // the host's word for this kind of record
};

template <typename Structure, u32 kTag, u16 kFlags = 0, u32 kVersion = kInterfaceVersion>
class FinPIMeasOtherTemplate : public FinPIRecord<FinPIMeasOther, Structure> {
    using Record = FinPIRecord<FinPIMeasOther, Structure>;

public:
    explicit FinPIMeasOtherTemplate(u16 measure, u16 inci = 0)
        : Record{kTag, kFlags, measure, inci, kVersion} {
        FinPIEnigmaData::Reset(inci);
    }
};
