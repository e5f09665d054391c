// Guarded memory by VirtualAlloc: the next page is reserved and never committed.
#include <windows.h>

#include "host/system/entry_memory.h"

namespace standin {
namespace {

std::size_t PageSize() {
    SYSTEM_INFO info{};
    GetSystemInfo(&info);
    return info.dwPageSize;
}

class Guarded final : public EntryMemory {
public:
    void* Allocate(std::size_t bytes) override {
        const std::size_t usable = RoundedUp(bytes);
        void* base = VirtualAlloc(nullptr, usable + m_page, MEM_RESERVE, PAGE_NOACCESS);
        if (base == nullptr) {
            return nullptr;
        }
        if (VirtualAlloc(base, usable, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
            VirtualFree(base, 0, MEM_RELEASE);
            return nullptr;
        }
        return static_cast<char*>(base) + usable - bytes;
    }

    void Free(void* memory, std::size_t bytes) noexcept override {
        VirtualFree(static_cast<char*>(memory) + bytes - RoundedUp(bytes), 0, MEM_RELEASE);
    }

private:
    std::size_t RoundedUp(std::size_t bytes) const {
        return (bytes + m_page - 1) / m_page * m_page;
    }

    const std::size_t m_page = PageSize();
};

}  // namespace

EntryMemory& GuardedEntryMemory() {
    static Guarded guarded;
    return guarded;
}

}  // namespace standin
