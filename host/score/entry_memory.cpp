#include "host/score/entry_memory.h"

#include <cstdlib>

#if !defined(_WIN32)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace standin {
namespace {

class Heap final : public EntryMemory {
public:
    void* Allocate(std::size_t bytes) override { return std::calloc(1, bytes); }
    void Free(void* memory, std::size_t) noexcept override { std::free(memory); }
};

#if !defined(_WIN32)

class Guarded final : public EntryMemory {
public:
    void* Allocate(std::size_t bytes) override {
        const std::size_t usable = RoundedUp(bytes);
        void* base = mmap(nullptr, usable + m_page, PROT_READ | PROT_WRITE,
                          MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (base == MAP_FAILED) {
            return nullptr;
        }
        char* end = static_cast<char*>(base) + usable;
        if (mprotect(end, m_page, PROT_NONE) != 0) {
            munmap(base, usable + m_page);
            return nullptr;
        }
        return end - bytes;
    }

    void Free(void* memory, std::size_t bytes) noexcept override {
        const std::size_t usable = RoundedUp(bytes);
        munmap(static_cast<char*>(memory) + bytes - usable, usable + m_page);
    }

private:
    std::size_t RoundedUp(std::size_t bytes) const {
        return (bytes + m_page - 1) / m_page * m_page;
    }

    const std::size_t m_page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
};

#else

using Guarded = Heap;

#endif

}  // namespace

EntryMemory& HeapEntryMemory() {
    static Heap heap;
    return heap;
}

EntryMemory& GuardedEntryMemory() {
    static Guarded guarded;
    return guarded;
}

}  // namespace standin
