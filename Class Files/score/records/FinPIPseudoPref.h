// Preferences in an order of their own: words of a host preference record, copied at each load.
#pragma once

#include <cstring>

#include "Class Files/score/records/FinPIEnigmaData.h"
#include "Class Files/score/records/FinPIRecord.h"

// Has no key and no record of its own, and is only read: every operation that would write one
// fails and makes no host call.
class FinPIPseudoPref : public FinPIEnigmaData {
public:
    i16 Load() override;
    i16 LoadNext() override { return 0; }
    i16 Delete() override { return 0; }
    i16 Save() override { return 0; }
    i16 Create() override { return 0; }
    u16 GetKey(EnigmaKey& /*out*/) const override { return 0; }
    void SetKey(const EnigmaKey& /*key*/) override {}
    i16 IsSameKey(const FinPIEnigmaData& /*other*/) const override { return 1; }

protected:
    using FinPIEnigmaData::FinPIEnigmaData;
    ~FinPIPseudoPref() = default;

    // Loads the host's record and copies its words; 0 when it does not load.
    virtual i16 CopyFromHost() = 0;
};

// Byte offsets of one word: in the pseudo record, and in the host's.
struct PseudoPrefWord {
    u8 offset;
    u8 hostOffset;
};

// Structure::kWords says which words of HostPref the structure holds, and where.
template <typename Structure, typename HostPref>
class FinPIPseudoPrefTemplate : public FinPIRecord<FinPIPseudoPref, Structure> {
    using Record = FinPIRecord<FinPIPseudoPref, Structure>;

public:
    FinPIPseudoPrefTemplate()
        : Record{HostPref().Tag(), u16{0}, u16{0xFFFF}, u16{0}, kInterfaceVersion, true} {
        FinPIEnigmaData::Reset(0);
    }

private:
    i16 CopyFromHost() final {
        HostPref pref;
        if (pref.Load() == 0) {
            return 0;
        }
        const auto* const from = static_cast<const u8*>(pref.GetData());
        auto* const to = static_cast<u8*>(this->MutableData());
        for (const PseudoPrefWord& word : Structure::kWords) {
            std::memcpy(to + word.offset, from + word.hostOffset, sizeof(u16));
        }
        return 1;
    }
};
