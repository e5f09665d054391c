// Guarded memory by mmap.
#include <sys/mman.h>
#include <unistd.h>

#include "host/system/entry_memory.h"

namespace standin {
namespace {

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

}  // namespace

EntryMemory& GuardedEntryMemory() {
    static Guarded guarded;
    return guarded;
}

}  // namespace standin
