// Records attached to a measure: key { measure, inci }.
#pragma once

#include "Class Files/score/FinPIOther.h"

class FinPIMeasOther : public FinPIOther {
public:
    u16 MeasureFlags() const noexcept { return m_flags; }

protected:
    FinPIMeasOther(u32 tag, u16 flags, u16 measure, u16 inci, u32 version) noexcept
        : FinPIOther{tag, measure, inci, version, true}, m_flags{flags} {}
    ~FinPIMeasOther() = default;

private:
    u16 m_flags;  // the host's word for this kind of record
};

template <typename Structure, u32 kTag, u16 kFlags = 0, u32 kVersion = kInterfaceVersion>
class FinPIMeasOtherTemplate : public FinPIRecord<FinPIMeasOther, Structure> {
    using Record = FinPIRecord<FinPIMeasOther, Structure>;

public:
    explicit FinPIMeasOtherTemplate(u16 measure, u16 inci = 0)
        : Record{kTag, kFlags, measure, inci, kVersion} {
        FinPIEnigmaData::Reset(inci);
    }
};
