// Memory for the entries that are lent with a frame.
#pragma once

#include <cstddef>
#include <memory>

namespace standin {

class EntryMemory {
public:
    virtual ~EntryMemory() = default;
    // Null when there is none.
    virtual void* Allocate(std::size_t bytes) = 0;
    virtual void Free(void* memory, std::size_t bytes) noexcept = 0;
};

// Zeroed memory of the heap.
EntryMemory& HeapEntryMemory();

// Zeroed memory that ends at a protected page, so that a stray access stops the program at once.
EntryMemory& GuardedEntryMemory();

}  // namespace standin
