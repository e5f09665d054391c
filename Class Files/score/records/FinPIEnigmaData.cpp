#include "Class Files/score/records/FinPIEnigmaData.h"

#include <algorithm>
#include <cstring>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/records/HostRecordCalls.h"
#include "shell/host/callbacks.h"

namespace {

constexpr char kSave[] = "FinPIEnigmaData::Save";
constexpr char kCreate[] = "FinPIEnigmaData::Create";

i16 Refuse(const char* function, const char* detail) {
    PostError(FinPIAppError(function, detail));
    return 0;
}

i16 RefuseNoData(const char* function) {
    return Refuse(function, "No data buffer exists.");
}

}  // namespace

FinPIEnigmaData::FinPIEnigmaData(u32 tag, u16 cmper1, u16 cmper2, u16 inci, u32 version,
                                 bool clearOnReset) noexcept
    : FinPIDoc{0},
      m_tag{tag},
      m_cmper1{cmper1},
      m_cmper2{cmper2},
      m_inci{inci},
      m_version{version},
      m_clearOnReset{static_cast<u16>(clearOnReset ? 1 : 0)} {}

void FinPIEnigmaData::SetCmpers(u16 cmper1, u16 cmper2) {
    m_cmper1 = cmper1;
    m_cmper2 = cmper2;
}

void FinPIEnigmaData::SetNull(u16 inci) {
    SetCmpers(0xFFFF, 0xFFFF);
    Reset(inci);
}

void FinPIEnigmaData::Rewind() {
    SetCmpers(0, 0);
    Reset(0);
}

void FinPIEnigmaData::Reset(u16 inci) {
    if (m_clearOnReset != 0) {
        ClearData();
    }
    m_inci = inci;
    m_loaded = 0;
    m_created = 0;
    SetToCurrentDocument();
}

i16 FinPIEnigmaData::Load() {
    if (m_loaded == 0 && GetData() != nullptr) {
        EnigmaKey key{};
        GetKey(key);
        u32 size = GetDataSize();
        m_loaded = LoadHostRecord(m_tag, key.data(), MutableData(), &size, m_version) != 0 ? 1 : 0;
        if (m_loaded != 0) {
            SetToCurrentDocument();
        }
    }
    return IsLoaded();
}

// The record found by a walk step becomes this record; if none was found, this one addresses
// nothing.
i16 FinPIEnigmaData::TakeFound(i16 found, const EnigmaKey& key) {
    if (found == 0) {
        Reset(kNoInci);
        return 0;
    }
    SetKey(key);
    m_loaded = 1;
    SetToCurrentDocument();
    return 1;
}

i16 FinPIEnigmaData::LoadNext() {
    if (GetData() == nullptr) {
        return 0;
    }
    if (m_clearOnReset != 0) {
        ClearData();  // the host does not fill the bytes after a shorter record
    }
    EnigmaKey key{};
    GetKey(key);
    u32 size = GetDataSize();
    return TakeFound(Host::NextEData(m_tag, key.data(), MutableData(), &size, m_version), key);
}

i16 FinPIEnigmaData::LoadBefore(const char* function) {
    if (GetData() == nullptr) {
        return RefuseNoData(function);
    }
    Reset(0);
    EnigmaKey key{};
    GetKey(key);
    u32 size = GetDataSize();
    return TakeFound(Host::PreviousEData(m_tag, key.data(), MutableData(), &size, m_version), key);
}

i16 FinPIEnigmaData::LoadLastInci() {
    if (GetData() != nullptr) {
        NextCmper1();
    }
    return LoadBefore("FinPIEnigmaData::LoadLastInci");
}

i16 FinPIEnigmaData::LoadLastCmper1(u16 cmper1) {
    if (GetData() != nullptr) {
        m_cmper1 = cmper1;
    }
    return LoadBefore("FinPIEnigmaData::LoadLastCmper1");
}

i16 FinPIEnigmaData::Save() {
    if (GetData() == nullptr) {
        return RefuseNoData(kSave);
    }
    if (m_loaded == 0) {
        return Refuse(kSave, "Attempted to Save but never Loaded.");
    }
    if (Host::GetCurrentEnigmaDocument() != m_docID) {
        return Refuse(kSave, "Attempted to update a non-current document");
    }
    EnigmaKey key{};
    GetKey(key);
    const i16 saved = SaveHostRecord(m_tag, key.data(), GetData(), GetDataSize(), m_version);
    if (saved == 0) {
        PostRecordError<FinPISaveEDataFailed>(kSave, m_tag);
    } else if (m_inci == kNoInci) {
        SetKey(key);
    }
    return saved;
}

i16 FinPIEnigmaData::Create() {
    if (GetData() == nullptr) {
        return RefuseNoData(kCreate);
    }
    if (m_loaded != 0) {
        return Refuse(kCreate, "Attempted to Create but already Loaded.");
    }
    EnigmaKey key{};
    GetKey(key);
    if (Host::CreateEData(m_tag, key.data(), GetData(), GetDataSize(), m_version) != 0) {
        SetKey(key);
        Reload();
    }
    if (m_loaded == 0) {
        PostRecordError<FinPICreateEDataFailed>(kCreate, m_tag);
    }
    return IsLoaded();
}

i16 FinPIEnigmaData::Delete() {
    const DocumentScope scope{m_docID};
    EnigmaKey key{};
    GetKey(key);
    const i16 deleted = scope ? Host::DeleteEData(m_tag, key.data(), m_version) : i16{0};
    if (deleted != 0) {
        Reset(kNoInci);
    }
    return deleted;
}

i16 FinPIEnigmaData::Commit() {
    if (m_keepWhenEmpty == 0 && IsEmpty() != 0) {
        return m_loaded == 0 ? i16{1} : Delete();
    }
    if (m_loaded != 0) {
        return Save();
    }
    const i16 created = Create();
    if (created != 0) {
        m_created = 1;
    }
    return created;
}

void FinPIEnigmaData::ClearData() {
    if (GetData() != nullptr) {
        std::memset(MutableData(), 0, GetDataSize());
    }
}

void FinPIEnigmaData::SetData(const void* bytes, u32 size) {
    if (GetData() != nullptr) {
        std::memcpy(MutableData(), bytes, std::min(size, GetDataSize()));
    }
}

void FinPIEnigmaData::SetDataOrClear(const void* bytes, u32 size) {
    if (bytes != nullptr) {
        SetData(bytes, size);
    } else {
        ClearData();
    }
}

void FinPIEnigmaData::GetDataCopy(void* out, u32 size) const {
    std::memset(out, 0, size);
    if (GetData() != nullptr) {
        std::memcpy(out, GetData(), std::min(size, GetDataSize()));
    }
}

i16 FinPIEnigmaData::CopyAttributes(const FinPIEnigmaData& other) {
    SetDataOrClear(other.GetData(), other.GetDataSize());
    return 1;
}

i16 FinPIEnigmaData::IsEmpty() const {
    const auto* bytes = static_cast<const u8*>(GetData());
    return std::all_of(bytes, bytes + GetDataSize(), [](u8 byte) { return byte == 0; });
}

i16 FinPIEnigmaData::IsSame(const FinPIEnigmaData& other) const {
    const u32 size = GetDataSize();
    return size == other.GetDataSize() &&
           (size == 0 || std::memcmp(GetData(), other.GetData(), size) == 0);
}

i16 FinPIEnigmaData::IsSameExact(const FinPIEnigmaData& other) const {
    return IsSame(other);
}
