#include "Class Files/score/records/FinPIOther.h"

u16 FinPIOther::GetKey(EnigmaKey& out) const {
    out = {m_cmper1, m_inci};
    return 2 * sizeof(u16);
}

void FinPIOther::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
    m_inci = key[1];
}

i16 FinPIOther::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1() && m_inci == other.Inci();
}
