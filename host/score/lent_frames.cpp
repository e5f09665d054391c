#include "host/score/lent_frames.h"

#include <cstring>
#include <new>

namespace standin {

LentFrame::LentFrame(u16 document, FrameKey key, u16 firstKey, u16 slot,
                     const std::vector<EXENTRY>* entries, EntryMemory& memory)
    : m_document{document}, m_key{key}, m_memory{memory} {
    m_view.firstKey = firstKey;
    m_view.slot = slot;
    m_view.staff = key.staff;
    m_view.measure = key.measure;
    m_view.layer = key.layer;
    m_asLent = m_view;
    if (entries != nullptr) {
        Replace(*entries);
    }
}

LentFrame::~LentFrame() {
    Release();
}

bool LentFrame::IsIntact() const noexcept {
    return std::memcmp(&m_view, &m_asLent, sizeof(EXFRAME)) == 0;
}

void LentFrame::Insert(i16 index, std::span<const EXENTRY> entries) {
    const std::vector<EXENTRY> before(m_view.entries, m_view.entries + m_view.count);
    const auto at = before.begin() + index;
    std::vector<EXENTRY> now(before.begin(), at);
    now.insert(now.end(), entries.begin(), entries.end());
    now.insert(now.end(), at, before.end());
    Replace(now);
}

void LentFrame::Delete(i16 index, i16 count) {
    std::vector<EXENTRY> now(m_view.entries, m_view.entries + m_view.count);
    now.erase(now.begin() + index, now.begin() + index + count);
    Replace(now);
}

void LentFrame::Replace(const std::vector<EXENTRY>& entries) {
    Resize(static_cast<i16>(entries.size()));
    if (m_view.entries != nullptr) {
        std::memcpy(m_view.entries, entries.data(), entries.size() * sizeof(EXENTRY));
    }
}

void LentFrame::Resize(i16 count) {
    EXENTRY* entries = nullptr;
    if (count > 0) {
        entries = static_cast<EXENTRY*>(
            m_memory.Allocate(static_cast<std::size_t>(count) * sizeof(EXENTRY)));
        if (entries == nullptr) {
            throw std::bad_alloc{};
        }
    }
    Release();
    m_view.entries = entries;
    m_view.count = count;
    m_asLent = m_view;
}

void LentFrame::Release() noexcept {
    if (m_asLent.entries != nullptr) {
        m_memory.Free(m_asLent.entries, static_cast<std::size_t>(m_asLent.count) * sizeof(EXENTRY));
    }
}

EXFRAME* LentFrames::Lend(std::unique_ptr<LentFrame> frame) {
    EXFRAME* view = &frame->View();
    m_frames.emplace(view, std::move(frame));
    return view;
}

LentFrame* LentFrames::Find(const EXFRAME* frame) const {
    const auto found = m_frames.find(frame);
    return found == m_frames.end() ? nullptr : found->second.get();
}

bool LentFrames::Return(const EXFRAME* frame) {
    return m_frames.erase(frame) != 0;
}

}  // namespace standin
