// The frames currently lent to the plug-in.
#pragma once

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "host/score/frame_key.h"
#include "host/system/entry_memory.h"
#include "shell/host/host_frames.h"

namespace standin {

// One loan: the frame as the plug-in sees it, and the host's data about it.
class LentFrame {
public:
    // A copy of the entries, with no entry array when there are none.
    LentFrame(u16 document, FrameKey key, u16 firstKey, u16 slot,
              const std::vector<EXENTRY>* entries, EntryMemory& memory);
    ~LentFrame();
    LentFrame(const LentFrame&) = delete;
    LentFrame& operator=(const LentFrame&) = delete;

    EXFRAME& View() noexcept { return m_view; }
    u16 DocumentNumber() const noexcept { return m_document; }
    FrameKey Key() const noexcept { return m_key; }

    // Whether the fields that only the host sets are unchanged.
    bool IsIntact() const noexcept;

    // Both move the entry array. The range must lie within the frame.
    void Insert(i16 index, std::span<const EXENTRY> entries);
    void Delete(i16 index, i16 count);

private:
    void Replace(const std::vector<EXENTRY>& entries);
    void Resize(i16 count);  // fresh memory; throws std::bad_alloc
    void Release() noexcept;

    u16 m_document;
    FrameKey m_key;
    EntryMemory& m_memory;
    EXFRAME m_view{};
    EXFRAME m_asLent{};
};

class LentFrames {
public:
    EXFRAME* Lend(std::unique_ptr<LentFrame> frame);
    // Null if the pointer is not a frame on loan.
    LentFrame* Find(const EXFRAME* frame) const;
    bool Return(const EXFRAME* frame);  // false when it is not on loan
    std::size_t Count() const noexcept { return m_frames.size(); }
    void Clear() { m_frames.clear(); }

private:
    std::unordered_map<const EXFRAME*, std::unique_ptr<LentFrame>> m_frames;
};

}  // namespace standin
