#include "host/score/journal.h"

namespace standin {

void Journal::NoteFrame(FrameKey key, const Frame* before) {
    const auto [at, isNew] = m_frames.try_emplace(key);
    if (isNew && before != nullptr) {
        at->second = *before;
    }
}

void Journal::NoteRecord(u32 tag, RecordKey key, const Bytes* before) {
    const auto [at, isNew] = m_records.try_emplace({tag, key});
    if (isNew && before != nullptr) {
        at->second = *before;
    }
}

void Journal::NoteRecords(u32 tag, RecordTable::const_iterator first,
                          RecordTable::const_iterator last) {
    const u16 from = first->first.Inci();
    const auto [noted, isNew] = m_notedFrom.try_emplace({tag, first->first.WithInci(0)}, from);
    if (!isNew && noted->second <= from) {
        return;
    }
    noted->second = from;
    for (; first != last; ++first) {
        NoteRecord(tag, first->first, &first->second);
    }
}

}  // namespace standin
