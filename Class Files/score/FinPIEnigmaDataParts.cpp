// Commits and deletes of data that the score and its linked parts keep separately.
#include <vector>

#include "Class Files/score/FinPIEnigmaData.h"
#include "shell/host/callbacks.h"

namespace {

constexpr i16 kScore = 0;

// Makes a part, or the score, the host's current one until the scope ends.
class PartScope {
public:
    explicit PartScope(i16 part) : m_previous{Host::GetCurrentPartID()} {
        if (m_previous != part) {
            Host::SetCurrentPartID(part);
        }
    }
    ~PartScope() {
        if (Host::GetCurrentPartID() != m_previous) {
            Host::SetCurrentPartID(m_previous);
        }
    }
    PartScope(const PartScope&) = delete;
    PartScope& operator=(const PartScope&) = delete;

private:
    i16 m_previous;
};

}  // namespace

i16 FinPIEnigmaData::CommitInScoreFirst() {
    if (IsPartSpecific() != 0 && Host::GetCurrentPartID() > kScore) {
        const PartScope score(kScore);
        if (Commit() == 0) {
            return 0;
        }
    }
    return Commit();
}

i16 FinPIEnigmaData::CommitInScoreAndParts() {
    if (Commit() == 0) {
        return 0;
    }
    if (Host::GetCurrentPartID() == kScore) {
        for (i16 part = Host::GetNextPartID(kScore); part > kScore;
             part = Host::GetNextPartID(part)) {
            const PartScope scope(part);
            if (Commit() == 0) {
                return 0;
            }
        }
    }
    return 1;
}

i16 FinPIEnigmaData::DeleteAndRecreateInScore() {
    std::vector<u8> data(GetDataSize());
    GetDataCopy(data.data(), GetDataSize());
    EnigmaKey key{};
    GetKey(key);
    const PartScope score(kScore);
    if (Delete() == 0) {
        return 0;
    }
    SetKey(key);
    SetData(data.data(), static_cast<u32>(data.size()));
    return Create();
}
