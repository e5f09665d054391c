// Records that are an array of one kind of element.
#pragma once

#include <span>

#include "Class Files/score/records/FinPIEnigmaVarLen.h"

// Holds one element at least; sizes in bytes, counts in elements.
class FinPIEnigmaVarArray : public FinPIEnigmaVarLen {
public:
    u32 MinimumBodySize(u16 /*inci*/) const override { return m_elementSize; }

    u32 Count() const noexcept { return GetDataSize() / m_elementSize; }
    // Keeps the first elements; new ones are zero.
    void SetCount(u32 count);

protected:
    FinPIEnigmaVarArray(u32 tag, u16 cmper1, u16 cmper2, u32 elementSize) noexcept
        : FinPIEnigmaVarLen{tag, cmper1, cmper2}, m_elementSize{elementSize} {
        FinPIEnigmaVarLen::Reset(0);
    }
    ~FinPIEnigmaVarArray() override = default;

private:
    u32 m_elementSize;
};

// A tag of 0: each record is given its tag.
template <typename Element, u32 kTag = 0>
class FinPIEnigmaVarArrayTemplate : public FinPIEnigmaVarArray {
public:
    explicit FinPIEnigmaVarArrayTemplate(u16 cmper1) requires(kTag != 0)
        : FinPIEnigmaVarArrayTemplate{kTag, cmper1, 0xFFFF} {}
    FinPIEnigmaVarArrayTemplate(u32 tag, u16 cmper1, u16 cmper2)
        : FinPIEnigmaVarArray{tag, cmper1, cmper2, sizeof(Element)} {}

    std::span<Element> Values() noexcept {
        return {static_cast<Element*>(this->Elements()), this->Count()};
    }
    std::span<const Element> Values() const noexcept {
        return {static_cast<const Element*>(this->Elements()), this->Count()};
    }
};
