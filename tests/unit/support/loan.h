// A frame borrowed from the host as by a plug-in, returned at the end of the scope.
#pragma once

#include "shell/host/host_functions.h"
#include "tests/unit/support/stand_in.h"

namespace standin {

class Loan {
public:
    explicit Loan(FrameKey key)
        : m_frame{FX_LoadTGF(0, FX_InstToSlot(key.staff, 0, kInterfaceVersion),
                             static_cast<i16>(key.measure), key.layer, 1, kInterfaceVersion)} {}
    ~Loan() { Return(); }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

    explicit operator bool() const { return m_frame != nullptr; }
    EXFRAME* operator->() const { return m_frame; }
    EXFRAME* Get() const { return m_frame; }
    EXENTRY& operator[](int index) const { return m_frame->entries[index]; }

    i16 Save() const { return FX_SaveTGF(m_frame, kInterfaceVersion); }
    i16 Insert(i16 index, i16 count) const {
        return FX_InsertEXENTRY(m_frame, index, count, kInterfaceVersion);
    }
    i16 Delete(i16 index, i16 count) const {
        return FX_DeleteEXENTRY(m_frame, index, count, kInterfaceVersion);
    }
    void Return() {
        if (m_frame != nullptr) {
            FX_FreeTGF(std::exchange(m_frame, nullptr), kInterfaceVersion);
        }
    }

private:
    EXFRAME* m_frame;
};

}  // namespace standin
