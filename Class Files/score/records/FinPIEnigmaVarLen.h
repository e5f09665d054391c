// Records whose size changes: key { first item, second item, inci } for tags beginning with
// "dt", else { item, inci }.
#pragma once

#include "Class Files/foundation/FinPIVarLenStruct.h"
#include "Class Files/score/records/FinPIEnigmaData.h"

// The data is a buffer on the heap, never smaller than the kind's least body.
class FinPIEnigmaVarLen : public FinPIEnigmaData, public FinPIVarLenStruct<void> {
public:
    // The buffer takes the stored size.
    i16 Load() override;
    i16 LoadNext() override { return LoadFound(FinPIEnigmaData::LoadNext()); }
    i16 LoadLast() override { return LoadFound(FinPIEnigmaData::LoadLast()); }
    i16 LoadLastInci() override { return LoadFound(FinPIEnigmaData::LoadLastInci()); }
    i16 LoadLastCmper1(u16 cmper1) { return LoadFound(FinPIEnigmaData::LoadLastCmper1(cmper1)); }
    void NextCmper1() override;                          // the item after this one, or pair
    void SetData(const void* bytes, u32 size) override;  // the buffer takes this size
    void Reset(u16 inci) override;                       // the buffer takes the least size
    const void* GetData() const override { return Elements(); }
    u32 GetDataSize() const override { return static_cast<u32>(Size()); }
    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;
    // Bytes.
    virtual u32 MinimumBodySize(u16 inci) const = 0;

protected:
    FinPIEnigmaVarLen(u32 tag, u16 cmper1, u16 cmper2) noexcept
        : FinPIEnigmaData{tag, cmper1, cmper2, 0, kInterfaceVersion, true} {}
    ~FinPIEnigmaVarLen() override = default;

private:
    // The whole body of what a step found, which filled the buffer as far as it goes.
    i16 LoadFound(i16 found);
    bool HasTwoCmpers() const noexcept;
    void TakeSize(u32 size);
};

// Every buffer begins with the structure.
template <typename Structure, u32 kMinimumBodySize>
class FinPIEnigmaVarLenTemplate : public FinPIEnigmaVarLen {
    static_assert(kMinimumBodySize >= sizeof(Structure));

public:
    explicit FinPIEnigmaVarLenTemplate(u32 tag, u16 cmper1, u16 cmper2 = 0xFFFF)
        : FinPIEnigmaVarLen{tag, cmper1, cmper2} {
        FinPIEnigmaVarLen::Reset(0);
    }
    u32 MinimumBodySize(u16 /*inci*/) const override { return kMinimumBodySize; }

    Structure& Body() noexcept { return *static_cast<Structure*>(Elements()); }
    const Structure& Body() const noexcept { return *static_cast<const Structure*>(Elements()); }
};
