// Room for a record that the host fills without being told a size.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>

#include "shell/host/host_types.h"

// A host's own record may be longer than the part of it that is known here: behind that part it
// finds some thousand bytes more to write to. All of it is zero at first.
template <typename Record>
class OutputRoom {
public:
    static constexpr std::size_t kBytes = sizeof(Record) + 4096;

    // What to hand to the host.
    Record* Address() noexcept { return reinterpret_cast<Record*>(m_bytes.data()); }

    Record Known() const noexcept {
        Record record;
        std::memcpy(&record, m_bytes.data(), sizeof record);
        return record;
    }
    // Whether the host wrote anything into the known part, where its answer says nothing.
    bool IsWritten() const noexcept {
        return std::any_of(m_bytes.begin(), m_bytes.begin() + sizeof(Record),
                           [](u8 byte) { return byte != 0; });
    }

private:
    alignas(16) std::array<u8, kBytes> m_bytes{};
};
