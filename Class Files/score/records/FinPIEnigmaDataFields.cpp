// The fields of a record's serialized form: its data; from serial version 2 on its data version;
// then its dependent structures.
#include <cstring>

#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/records/FinPIEnigmaData.h"

namespace {

constexpr u16 kDataField = 1;
constexpr u16 kVersionField = 2;

bool IsVersionField(u16 field, u16 serialVersion) {
    return field == kVersionField && serialVersion >= 2;
}

u16 DependentIndex(u16 field, u16 serialVersion) {
    return static_cast<u16>(serialVersion >= 2 ? field - 1 : field);
}

}  // namespace

i32 FinPIEnigmaData::GetFieldSize(u16 field, u16 serialVersion) const {
    if (field == kDataField) {
        return GetDataLength();
    }
    if (IsVersionField(field, serialVersion)) {
        return sizeof m_version;
    }
    return static_cast<i32>(GetSerializedDependentStruct(DependentIndex(field, serialVersion),
                                                         serialVersion, nullptr, 0));
}

i16 FinPIEnigmaData::GetField(u16 field, u16 serialVersion, void* out, u32 size) const {
    if (field == kDataField) {
        GetDataCopy(out, size);
        return size >= GetDataSize();
    }
    if (IsVersionField(field, serialVersion)) {
        if (size < sizeof m_version) {
            return 0;
        }
        std::memcpy(out, &m_version, sizeof m_version);
        return 1;
    }
    return GetSerializedDependentStruct(DependentIndex(field, serialVersion), serialVersion, out,
                                        size) != 0;
}

i16 FinPIEnigmaData::PutField(u16 field, u16 serialVersion, const void* bytes, u32 size) {
    if (field == kDataField) {
        SetDataOrClear(bytes, size);
        m_filledFromCopy = 1;
        return 1;
    }
    if (IsVersionField(field, serialVersion)) {
        u32 version = 0;
        std::memcpy(&version, bytes, size < sizeof version ? size : sizeof version);
        if (AcceptsVersion(version) == 0) {
            PostError(FinPISerialVersionFinaleError("FinPIEnigmaData::PutField"));
            return 0;
        }
        SetVersion(version);
        return 1;
    }
    return PutSerializedDependentStruct(DependentIndex(field, serialVersion), serialVersion, bytes,
                                        size);
}

u32 FinPIEnigmaData::GetSerializedDependentStruct(u16 /*index*/, u16 /*serialVersion*/,
                                                  void* /*out*/, u32 /*size*/) const {
    return 0;
}

i16 FinPIEnigmaData::PutSerializedDependentStruct(u16 /*index*/, u16 /*serialVersion*/,
                                                  const void* /*bytes*/, u32 /*size*/) {
    return 0;
}
