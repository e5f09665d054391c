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

}  // namespace standin
