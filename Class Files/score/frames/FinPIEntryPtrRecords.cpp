#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "shell/host/callbacks.h"
#include "shell/host/host_details.h"

bool FinPIEntryPtr::CheckDocumentIsCurrent(const char* operation) const {
    if (CurrentDocument() != m_document) {
        PostError(FinPIAppError{operation, "Attempted to update a non-current document"});
        return false;
    }
    return true;
}

i16 FinPIEntryPtr::CreateEntryDetail(u32 tag, const void* data, u32 size, u16 recordNumber,
                                     u32 version) const {
    if (!*this ||
        !CheckDocumentIsCurrent(
            "short __cdecl FinPIEntryPtr::CreateEntryDetail(const unsigned long,void *,const "
            "long,const short,const unsigned long) const")) {
        return 0;
    }
    EntryDetailKey key{Number(), recordNumber};
    const i16 result = Host::CreateEData(tag, static_cast<void*>(&key), data, size, version);
    if (result != 0) {
        m_createdRecord = key.recordNumber;
    }
    return result;
}

i16 FinPIEntryPtr::SaveEntryDetail(u32 tag, u16 recordNumber, const void* data, u32 size,
                                   u32 version) const {
    if (!*this || !CheckDocumentIsCurrent("FinPIEntryPtr::SaveEntryDetail")) {
        return 0;
    }
    EntryDetailKey key{Number(), recordNumber};
    return Host::SaveEData(tag, static_cast<void*>(&key), data, size, version);
}

i16 FinPIEntryPtr::DeleteEntryDetail(u32 tag, u16 recordNumber, u32 version) const {
    if (!*this || !CheckDocumentIsCurrent("FinPIEntryPtr::DeleteEntryDetail")) {
        return 0;
    }
    const EntryDetailKey key{Number(), recordNumber};
    return Host::DeleteEData(tag, static_cast<const void*>(&key), version);
}
