#include "Class Files/score/records/FinPIEnigmaVarLen.h"

#include <algorithm>

#include "Class Files/score/records/HostRecordCalls.h"

namespace {

constexpr u32 kDetailTags = 0x64740000;  // "dt"

}  // namespace

bool FinPIEnigmaVarLen::HasTwoCmpers() const noexcept {
    return (m_tag & 0xFFFF0000U) == kDetailTags;
}

i16 FinPIEnigmaVarLen::Load() {
    if (m_loaded != 0 || GetData() == nullptr) {
        return IsLoaded();
    }
    EnigmaKey key{};
    GetKey(key);
    u32 size = GetDataSize();
    m_loaded = LoadHostRecord(m_tag, key.data(), MutableData(), &size, m_version) != 0 ? 1 : 0;
    if (m_loaded != 0 && size > GetDataSize()) {
        SetSize(size);
        m_loaded = LoadHostRecord(m_tag, key.data(), MutableData(), &size, m_version) != 0 ? 1 : 0;
    }
    if (m_loaded != 0) {
        TakeSize(size);
        SetToCurrentDocument();
    }
    return IsLoaded();
}

// The buffer may hold more from a record before.
void FinPIEnigmaVarLen::TakeSize(u32 size) {
    if (size < GetDataSize()) {
        SetSize(size);
        SetSize(std::max(size, MinimumBodySize(m_inci)));
    }
}

i16 FinPIEnigmaVarLen::LoadFound(i16 found) {
    if (found == 0) {
        return 0;
    }
    m_loaded = 0;
    if (Load() == 0) {
        Reset(kNoInci);
    }
    return IsLoaded();
}

void FinPIEnigmaVarLen::NextCmper1() {
    if (!HasTwoCmpers() || ++m_cmper2 == 0) {
        ++m_cmper1;
    }
}

void FinPIEnigmaVarLen::SetData(const void* bytes, u32 size) {
    SetSize(std::max(size, MinimumBodySize(m_inci)));
    ClearData();
    FinPIEnigmaData::SetData(bytes, size);
}

void FinPIEnigmaVarLen::Reset(u16 inci) {
    SetSize(MinimumBodySize(inci));
    FinPIEnigmaData::Reset(inci);
}

u16 FinPIEnigmaVarLen::GetKey(EnigmaKey& out) const {
    if (HasTwoCmpers()) {
        out = {m_cmper1, m_cmper2, m_inci};
        return 3 * sizeof(u16);
    }
    out = {m_cmper1, m_inci};
    return 2 * sizeof(u16);
}

void FinPIEnigmaVarLen::SetKey(const EnigmaKey& key) {
    m_cmper1 = key[0];
    if (HasTwoCmpers()) {
        m_cmper2 = key[1];
        m_inci = key[2];
    } else {
        m_inci = key[1];
    }
}

i16 FinPIEnigmaVarLen::IsSameKey(const FinPIEnigmaData& other) const {
    return m_cmper1 == other.GetCmper1() && m_inci == other.Inci() &&
           (!HasTwoCmpers() || m_cmper2 == other.Cmper2());
}
