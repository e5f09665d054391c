#include "Class Files/score/document/FinPIRawText.h"

u16 FinPIRawText::GetKey(EnigmaKey& out) const {
    out = {m_cmper1};
    return sizeof(u16);
}

void FinPIRawText::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
}

i16 FinPIRawText::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1();
}
