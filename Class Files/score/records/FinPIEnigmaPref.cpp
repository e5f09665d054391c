#include "Class Files/score/records/FinPIEnigmaPref.h"

#include "Class Files/foundation/FinPIException.h"

i16 FinPIEnigmaPref::Commit() {
    m_loaded = 1;
    return FinPIEnigmaData::Commit();
}

i16 FinPIEnigmaPref::Delete() {
    PostError(FinPIAppError("FinPIEnigmaPref::Delete", "An Enigma Pref cannot be deleted."));
    return 0;
}

i16 FinPIEnigmaPref::Create() {
    PostError(FinPIAppError("FinPIEnigmaPref::Create", "An Enigma Pref cannot be created."));
    return 0;
}

u16 FinPIEnigmaPref::GetKey(EnigmaKey& out) const {
    out = {m_cmper1};
    return sizeof(u16);
}

void FinPIEnigmaPref::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
}

i16 FinPIEnigmaPref::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1() && m_cmper2 == other.Cmper2() && m_inci == other.Inci();
}
