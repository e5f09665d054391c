// The contents of frames and records before their first change. An open edit keeps one for undo; an
// imported score keeps one to find what differs from the import. Its size follows what was touched,
// not the score.
#pragma once

#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "host/score/frame.h"
#include "host/score/frame_key.h"
#include "host/score/records/record_store.h"

namespace standin {

class Journal {
public:
    using RecordName = std::pair<u32, RecordKey>;  // tag and key

    // The first call for an object counts, later ones are ignored. Null = it did not exist.
    void NoteFrame(FrameKey key, const Frame* before);
    void NoteRecord(u32 tag, RecordKey key, const Bytes* before);
    // Records of one item, from the first on through its last.
    void NoteRecords(u32 tag, RecordTable::const_iterator first, RecordTable::const_iterator last);

    bool IsEmpty() const noexcept { return m_frames.empty() && m_records.empty(); }
    const std::unordered_map<FrameKey, Frame>& Frames() const noexcept { return m_frames; }
    const std::map<RecordName, std::optional<Bytes>>& Records() const noexcept { return m_records; }
    std::unordered_map<FrameKey, Frame>& Frames() noexcept { return m_frames; }
    std::map<RecordName, std::optional<Bytes>>& Records() noexcept { return m_records; }

private:
    std::unordered_map<FrameKey, Frame> m_frames;  // an empty frame = there was none
    std::map<RecordName, std::optional<Bytes>> m_records;
    std::map<RecordName, u16> m_notedFrom;  // by an item's first key: from this number on, all are
};

}  // namespace standin
