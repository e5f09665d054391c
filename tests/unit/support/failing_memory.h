// Memory that runs out on request. Include it in one file of a program; it replaces operator new.
#pragma once

#include <cstdlib>
#include <new>

namespace FailingMemory {

// Requests of this many bytes are refused; 0 = none.
inline std::size_t refused = 0;
// This many further requests succeed, then one is refused; -1 = none.
inline int granted = -1;

inline bool Refuses(std::size_t bytes) {
    return (refused != 0 && bytes == refused) || (granted >= 0 && granted-- == 0);
}

}  // namespace FailingMemory

void* operator new(std::size_t bytes) {
    void* const memory = FailingMemory::Refuses(bytes) ? nullptr : std::malloc(bytes);
    if (memory == nullptr) {
        throw std::bad_alloc{};
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
