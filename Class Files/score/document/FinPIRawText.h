// A text as the host stores it, by its number.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

// One byte a character of the host's encoding. Key: the text's number alone; a create with
// 0xFFFF takes the next free one.
class FinPIRawText : public RawTextRecord {
public:
    FinPIRawText(u32 tag, u16 number) : RawTextRecord{tag, number} {}

    u16 GetKey(EnigmaKey& out) const override;
    void SetKey(const EnigmaKey& key) override;
    i16 IsSameKey(const FinPIEnigmaData& other) const override;
};
