// Commits and deletes of data that the score and its linked parts keep separately.
#include <set>
#include <vector>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/PartScope.h"
#include "Class Files/score/records/FinPIEnigmaData.h"
#include "shell/host/callbacks.h"

i16 FinPIEnigmaData::CommitInScoreFirst() {
    if (IsPartSpecific() != 0 && Host::GetCurrentPartID() > PartScope::kScore) {
        const PartScope score(PartScope::kScore);
        if (!score || Commit() == 0) {
            return 0;
        }
        OnCommittedInScore();
    }
    return Commit();
}

i16 FinPIEnigmaData::CommitInScoreAndParts() {
    if (Commit() == 0) {
        return 0;
    }
    if (Host::GetCurrentPartID() == PartScope::kScore) {
        std::set<i16> committed;  // a host may return the same part forever
        for (i16 part = Host::GetNextPartID(PartScope::kScore);
             part > PartScope::kScore && committed.insert(part).second;
             part = Host::GetNextPartID(part)) {
            const PartScope scope(part);
            if (!scope || Commit() == 0) {
                return 0;
            }
            OnCommittedInPart();
        }
    }
    return 1;
}

i16 FinPIEnigmaData::ChooseLinkedPartHook() {
    return Host::GetCurrentPartID() > PartScope::kScore ? CanDeleteInPart() : CanDeleteInScore();
}

i16 FinPIEnigmaData::DeleteAndRecreateInScore() {
    const DocumentScope scope{m_docID};
    std::vector<u8> data(GetDataSize());
    GetDataCopy(data.data(), GetDataSize());
    EnigmaKey key{};
    GetKey(key);
    const PartScope score(PartScope::kScore);
    if (!score || Delete() == 0) {
        return 0;
    }
    SetKey(key);
    SetData(data.data(), static_cast<u32>(data.size()));
    return Create();
}
