// Undo, the imported state, and deep comparison of a document.
#include <algorithm>
#include <utility>

#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {
namespace {

// 64-bit FNV-1a.
class Hash {
public:
    void Add(const void* data, std::size_t size) noexcept {
        for (const auto* byte = static_cast<const u8*>(data); size > 0; ++byte, --size) {
            m_value = (m_value ^ *byte) * 0x100000001B3ULL;
        }
    }
    template <typename Number>
    void Add(Number number) noexcept {
        Add(&number, sizeof(number));
    }
    u64 Value() const noexcept { return m_value; }

private:
    u64 m_value = 0xCBF29CE484222325ULL;
};

}  // namespace

void Document::BeforeRecordChange(u32 tag, RecordKey key, const Bytes* before) {
    if (m_edit) {
        m_edit->journal.NoteRecord(tag, key, before);
    } else if (tag != Tag::kStaffSystem) {  // layout is not an edit of the score
        m_undo.clear();
        m_redo.clear();
    }
    if (m_baseline) {
        m_baseline->NoteRecord(tag, key, before);
    }
}

void Document::BeforeRecordsChange(u32 tag, RecordTable::const_iterator first,
                                   RecordTable::const_iterator last) {
    BeforeRecordChange(tag, first->first, &first->second);
    if (m_edit) {
        m_edit->journal.NoteRecords(tag, first, last);
    }
    if (m_baseline) {
        m_baseline->NoteRecords(tag, first, last);
    }
}

void Document::BeforeFrameChange(FrameKey key) {
    const Frame* before = FindFrame(key);
    if (m_edit) {
        m_edit->journal.NoteFrame(key, before);
    } else {
        m_undo.clear();
        m_redo.clear();
    }
    if (m_baseline) {
        m_baseline->NoteFrame(key, before);
    }
}

bool Document::BeginEdit(std::u16string undoText) {
    if (m_edit) {
        return false;
    }
    m_records.CloseUp();
    m_edit.emplace(Edit{std::move(undoText), {}});
    return true;
}

bool Document::EndEdit() {
    if (!m_edit) {
        return false;
    }
    if (!m_edit->journal.IsEmpty()) {
        m_undo.push_back(std::move(*m_edit));
        m_redo.clear();
    }
    m_edit.reset();
    return true;
}

bool Document::CancelEdit() {
    if (!m_edit) {
        return false;
    }
    Edit edit = std::move(*m_edit);
    m_edit.reset();
    Swap(edit.journal);
    return true;
}

bool Document::Undo() {
    if (m_edit || m_undo.empty()) {
        return false;
    }
    Swap(m_undo.back().journal);
    m_redo.push_back(std::move(m_undo.back()));
    m_undo.pop_back();
    return true;
}

bool Document::Redo() {
    if (m_edit || m_redo.empty()) {
        return false;
    }
    Swap(m_redo.back().journal);
    m_undo.push_back(std::move(m_redo.back()));
    m_redo.pop_back();
    return true;
}

std::vector<std::u16string> Document::UndoTexts() const {
    std::vector<std::u16string> texts;
    for (const Edit& edit : m_undo) {
        texts.push_back(edit.text);
    }
    return texts;
}

std::vector<std::u16string> Document::RedoTexts() const {
    std::vector<std::u16string> texts;
    for (const Edit& edit : m_redo) {
        texts.push_back(edit.text);
    }
    return texts;
}

void Document::Swap(Journal& journal) {
    for (auto& [key, other] : journal.Frames()) {
        if (m_baseline) {
            m_baseline->NoteFrame(key, FindFrame(key));
        }
        Frame& frame = FrameAt(key);
        for (const EXENTRY& entry : frame.entries) {
            m_homes[entry.entryNumber] = {};
        }
        std::swap(frame, other);
        if (frame.needsRebeam) {
            m_needRebeam.push_back(key);
        }
    }
    for (const auto& [key, other] : journal.Frames()) {
        for (const EXENTRY& entry : FrameAt(key).entries) {
            m_homes[entry.entryNumber] = key;
        }
    }
    for (auto& [name, other] : journal.Records()) {
        const auto [tag, key] = name;
        if (m_baseline) {
            m_baseline->NoteRecord(tag, key, m_records.Find(tag, key));
        }
        other = m_records.Exchange(tag, key, std::move(other));
    }
}

DocumentContent Document::Content() const {
    DocumentContent content;
    for (const auto& [key, frame] : m_frames) {
        if (!frame.entries.empty()) {
            content.frames.emplace(key, frame);
        }
    }
    for (const auto& [tag, table] : m_records.All()) {
        if (!table.empty()) {
            content.records.emplace(tag, table);
        }
    }
    return content;
}

u64 Document::Digest() const {
    Hash hash;
    std::vector<FrameKey> keys;
    for (const auto& [key, frame] : m_frames) {
        if (!frame.entries.empty()) {
            keys.push_back(key);
        }
    }
    std::ranges::sort(keys, std::less{});
    for (const FrameKey key : keys) {
        const Frame& frame = m_frames.at(key);
        hash.Add(key);
        hash.Add(frame.entries.data(), frame.entries.size() * sizeof(EXENTRY));
        hash.Add(frame.beams.data(), frame.beams.size() * sizeof(BeamLevels));
    }
    for (const auto& [tag, table] : m_records.All()) {
        for (const auto& [key, bytes] : table) {
            hash.Add(tag);
            hash.Add(key);
            hash.Add(bytes.data(), bytes.size());
        }
    }
    return hash.Value();
}

void Document::MarkImported() {
    for (auto& [key, frame] : m_frames) {
        frame.needsRebeam = false;
        frame.entries.shrink_to_fit();
    }
    m_needRebeam.clear();
    m_undo.clear();
    m_redo.clear();
    m_records.CloseUp();
    m_baseline.emplace();
}

const Frame* Document::ImportedFrame(FrameKey key) const {
    if (m_baseline) {
        const auto found = m_baseline->Frames().find(key);
        if (found != m_baseline->Frames().end()) {
            return found->second.entries.empty() ? nullptr : &found->second;
        }
    }
    return FindFrame(key);
}

const Bytes* Document::ImportedRecord(u32 tag, RecordKey key) const {
    if (m_baseline) {
        const auto found = m_baseline->Records().find({tag, key});
        if (found != m_baseline->Records().end()) {
            return found->second ? &*found->second : nullptr;
        }
    }
    return m_records.Find(tag, key);
}

}  // namespace standin
