// An owned buffer of bytes that is read as elements of one type.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include "shell/host/host_types.h"

// The buffer is always exactly as large as was asked for. Sizes are in bytes, not elements.
template <typename Element>
class FinPIVarLenStruct {
public:
    FinPIVarLenStruct() noexcept = default;
    virtual ~FinPIVarLenStruct() = default;
    FinPIVarLenStruct(FinPIVarLenStruct&& other) noexcept
        : m_data{std::move(other.m_data)}, m_size{std::exchange(other.m_size, 0)} {}
    FinPIVarLenStruct& operator=(FinPIVarLenStruct&& other) noexcept {
        m_data = std::move(other.m_data);
        m_size = std::exchange(other.m_size, 0);
        return *this;
    }
    FinPIVarLenStruct(const FinPIVarLenStruct&) = delete;
    FinPIVarLenStruct& operator=(const FinPIVarLenStruct&) = delete;

    // Keeps the leading bytes and zero-fills what is new; 0 frees the buffer. Always 1:
    // a failed allocation throws.
    virtual i16 SetSize(std::size_t bytes) {
        if (bytes == 0) {
            m_data.reset();
        } else {
            auto data = std::make_unique<u8[]>(bytes);
            std::copy_n(m_data.get(), std::min(m_size, bytes), data.get());
            m_data = std::move(data);
        }
        m_size = bytes;
        return 1;
    }

    // Zero-fills the buffer; its size stays.
    virtual void Clear() { std::fill_n(m_data.get(), m_size, u8{0}); }

    // Null when the size is 0.
    Element* Elements() noexcept { return static_cast<Element*>(Bytes()); }
    const Element* Elements() const noexcept { return static_cast<const Element*>(Bytes()); }
    std::size_t Size() const noexcept { return m_size; }

private:
    void* Bytes() const noexcept { return m_data.get(); }

    std::unique_ptr<u8[]> m_data;
    std::size_t m_size = 0;
};
