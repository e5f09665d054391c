#include "Class Files/score/records/FinPIDetail.h"

void FinPIDetail::NextCmper1() {
    if (++m_cmper2 == 0) {
        ++m_cmper1;
    }
}

u16 FinPIDetail::GetKey(EnigmaKey& out) const {
    out = {m_cmper1, m_cmper2, m_inci};
    return 3 * sizeof(u16);
}

void FinPIDetail::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
    m_cmper2 = key[1];
    m_inci = key[2];
}

i16 FinPIDetail::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1() && m_cmper2 == other.Cmper2() && m_inci == other.Inci();
}
