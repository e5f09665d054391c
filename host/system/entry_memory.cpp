#include "host/system/entry_memory.h"

#include <cstdlib>

namespace standin {
namespace {

class Heap final : public EntryMemory {
public:
    void* Allocate(std::size_t bytes) override { return std::calloc(1, bytes); }
    void Free(void* memory, std::size_t) noexcept override { std::free(memory); }
};

}  // namespace

EntryMemory& HeapEntryMemory() {
    static Heap heap;
    return heap;
}

}  // namespace standin
