// Preferences of a document: key { item }. The host has each of them always.
#pragma once

#include "Class Files/score/records/FinPIEnigmaData.h"
#include "Class Files/score/records/FinPIRecord.h"

class FinPIEnigmaPref : public FinPIEnigmaData {
public:
    i16 Commit() override;  // always saves
    i16 Delete() override;  // always fails and posts an error, like Create
    i16 Create() override;
    i16 IsEmpty() const override { return 0; }
    i16 IsSame(const FinPIEnigmaData& /*other*/) const override { return 1; }
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;
    virtual ~FinPIEnigmaPref() = default;  // last in the order of the operations

protected:
    using FinPIEnigmaData::FinPIEnigmaData;
};

template <typename Structure, u32 kTag, u32 kVersion = kInterfaceVersion>
class FinPIPrefTemplate : public FinPIRecord<FinPIEnigmaPref, Structure> {
    using Record = FinPIRecord<FinPIEnigmaPref, Structure>;

public:
    explicit FinPIPrefTemplate(u16 cmper1 = 0)
        : Record{kTag, cmper1, u16{0xFFFF}, u16{0}, kVersion, true} {
        FinPIEnigmaData::Reset(0);
    }
};
