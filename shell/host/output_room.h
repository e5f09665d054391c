// Room for a record that the host fills without knowing the size of the buffer.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>

#include "shell/host/host_types.h"

// A host's record may be longer than the part known here, so some thousand bytes follow that part.
// All bytes are zero at first.
template <typename Record>
class OutputRoom {
public:
    static constexpr std::size_t kBytes = sizeof(Record) + 4096;

    // The pointer to pass to the host.
    Record* Address() noexcept { return reinterpret_cast<Record*>(m_bytes.data()); }

    Record Known() const noexcept {
        Record record;
        std::memcpy(&record, m_bytes.data(), sizeof record);
        return record;
    }
    // Whether the host wrote anything into the known part, if its result has no meaning.
    bool IsWritten() const noexcept {
        return std::any_of(m_bytes.begin(), m_bytes.begin() + sizeof(Record),
                           [](u8 byte) { return byte != 0; });
    }

private:
    alignas(16) std::array<u8, kBytes> m_bytes{};
};
