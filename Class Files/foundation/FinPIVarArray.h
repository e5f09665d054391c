// A growable array of plain values.
#pragma once

#include <span>

#include "Class Files/foundation/FinPIVarLenStruct.h"

template <typename Element>
class FinPIVarArray : public FinPIVarLenStruct<Element> {
public:
    std::size_t Count() const noexcept { return this->Size() / sizeof(Element); }
    // Keeps the first values; new ones are zero.
    void SetCount(std::size_t count) { this->SetSize(count * sizeof(Element)); }

    std::span<Element> Values() noexcept { return {this->Elements(), Count()}; }
    std::span<const Element> Values() const noexcept { return {this->Elements(), Count()}; }
};
