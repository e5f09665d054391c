#include "Class Files/score/records/FinPIMeasOther.h"

#include "Class Files/foundation/FinPIException.h"

u16 FinPIMeasOther::GetKey(EnigmaKey& out) const {
    out = {m_cmper1, m_inci};
    return 2 * sizeof(u16);
}

void FinPIMeasOther::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
    m_inci = key[1];
}

i16 FinPIMeasOther::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1() && m_inci == other.Inci();
}

i16 FinPIMeasOther::IsSameMeasOther(const FinPIMeasOther& other) const {
    return m_tag == other.m_tag && IsSame(other) != 0;
}

i16 FinPIMeasOther::CopyMeasOtherAttributes(const FinPIMeasOther& other) {
    if (m_tag != other.m_tag) {
        PostError(FinPIAppError("FinPIMeasOther::CopyMeasOtherAttributes", "dynamic_cast failed."));
        return 0;
    }
    return CopyAttributes(other);
}
