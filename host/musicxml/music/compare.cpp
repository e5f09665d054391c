#include "host/musicxml/music/compare.h"

#include <algorithm>
#include <array>
#include <deque>
#include <span>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "host/musicxml/music/music_words.h"
#include "host/musicxml/xml/xml_text.h"

namespace standin {
namespace {

// What two scores have in common or not: equal texts have equal values.
class TextKeys {
public:
    // A number for the text as it counts; the same text gives the same number.
    u32 Of(std::string_view text) {
        const auto [known, isNew] = m_byText.try_emplace(text, 0U);
        if (isNew) {
            const auto [canonical, isFirst] = m_byCanonical.try_emplace(
                CanonicalText(text), static_cast<u32>(m_byCanonical.size() + 1));
            known->second = canonical->second;
        }
        return known->second;
    }

    // Likewise, whatever the lyric's number.
    u32 OfLyric(std::string_view lyric) {
        const auto [known, isNew] = m_lyrics.try_emplace(lyric, 0U);
        if (isNew) {
            known->second = Of(m_withoutNumber.emplace_back(WithAttribute(lyric, "number", {})));
        }
        return known->second;
    }

private:
    std::unordered_map<std::string_view, u32> m_lyrics;
    std::deque<std::string> m_withoutNumber;
    std::unordered_map<std::string_view, u32> m_byText;
    std::unordered_map<std::string, u32> m_byCanonical;
};

// One thing that can be missing or too much.
struct Fact {
    std::array<i64, 4> key{};
    const MusicEntry* entry = nullptr;
    const MusicNote* note = nullptr;
    const Attachment* attachment = nullptr;

    bool operator<(const Fact& other) const { return key < other.key; }
    bool operator==(const Fact& other) const { return key == other.key; }
};

using Group = std::span<const MusicEntry>;

bool IsSpannerEnd(const Attachment& attachment) {
    return attachment.kind == Attachment::Kind::kSpannerStart ||
           attachment.kind == Attachment::Kind::kSpannerEnd;
}

// A line may end on what sounds now where its rest was, or on what begins earlier.
bool MayBeAt(bool wasRest, i32 was, i32 is) {
    return wasRest ? is <= was : is == was;
}

class Comparison {
public:
    Comparison(const Music& before, const Music& after, const CompareOptions& options)
        : m_before{before}, m_after{after}, m_options{options} {}

    std::vector<std::string> Run() {
        CompareEntries();
        ReportSpannerEnds();
        CompareItems();
        return std::move(m_differences);
    }

private:
    // What stands at one time. A merge may part the grace notes that lead to one note, and so
    // change how far before it each of them stands.
    std::array<i32, 4> GroupOf(const MusicEntry& entry) const {
        const i32 grace = m_options.merged && entry.grace != 0 ? -1 : entry.grace;
        return {entry.staff, entry.measure, entry.onset, grace};
    }

    void CompareEntries() {
        auto a = m_before.entries.begin();
        auto b = m_after.entries.begin();
        const auto takeGroup = [this](auto& at, auto end, const MusicEntry& first) {
            const auto begin = at;
            while (at != end && GroupOf(*at) == GroupOf(first)) {
                ++at;
            }
            return Group{begin, at};
        };
        while ((a != m_before.entries.end() || b != m_after.entries.end()) && !IsFull()) {
            const bool fromA = b == m_after.entries.end() ||
                               (a != m_before.entries.end() && !(GroupOf(*b) < GroupOf(*a)));
            const MusicEntry first = fromA ? *a : *b;
            const Group before = takeGroup(a, m_before.entries.end(), first);
            const Group after = takeGroup(b, m_after.entries.end(), first);
            CompareGroup(before, after);
        }
    }

    bool IsFull() const { return m_differences.size() >= m_options.mostDifferences; }

    void CompareGroup(Group before, Group after) {
        CollectFacts(m_before, before, true, m_factsBefore);
        CollectFacts(m_after, after, false, m_factsAfter);
        std::sort(m_factsBefore.begin(), m_factsBefore.end());
        std::sort(m_factsAfter.begin(), m_factsAfter.end());
        if (m_options.merged) {
            JoinEqualAttachments();
        }
        Report(m_factsBefore, m_factsAfter, "lost");
        Report(m_factsAfter, m_factsBefore, "added");
        if (m_options.merged) {
            CheckCompany(before, after);
        }
    }

    // Equal attachments of notes that joined may be one, so once is often enough. Rests never join.
    void JoinEqualAttachments() {
        const auto join = [](std::vector<Fact>& facts) {
            const auto isJoined = [](const Fact& a, const Fact& b) {
                return a == b && a.attachment != nullptr &&
                       (!a.entry->rest || IsSpannerEnd(*a.attachment));
            };
            facts.erase(std::unique(facts.begin(), facts.end(), isJoined), facts.end());
        };
        join(m_factsBefore);
        join(m_factsAfter);
    }

    bool IsCleared(u16 staff, u16 measure, i32 position, u16 layer) const {
        const auto at = std::pair{i32{measure}, position};
        return std::any_of(
            m_options.replaced.begin(), m_options.replaced.end(), [&](const ClearedMusic& cleared) {
                const EREGION& region = cleared.selection;
                return layer == cleared.layer && staff >= region.startSlot &&
                       staff <= region.endSlot &&
                       at >= std::pair{i32{region.startMeasure}, i32{region.startPosition}} &&
                       at <= std::pair{i32{region.endMeasure}, i32{region.endPosition}};
            });
    }

    bool IsExcepted(const MusicEntry& entry) const {
        return IsCleared(entry.staff, entry.measure, entry.onset, entry.layer);
    }

    // Look is no matter of a merge; a line to music that was cleared went with it.
    bool IsOfNoAccount(const Music& music, const Attachment& attachment) const {
        const bool isLook = attachment.kind == Attachment::Kind::kLook && m_options.merged;
        return isLook ||
               (&music == &m_before && IsCleared(attachment.otherStaff, attachment.otherMeasure,
                                                 attachment.otherPosition, attachment.otherLayer));
    }

    void CollectFacts(const Music& music, Group group, bool isBefore, std::vector<Fact>& facts) {
        facts.clear();
        for (const MusicEntry& entry : group) {
            if (entry.filler || (isBefore && IsExcepted(entry))) {
                continue;
            }
            if (entry.rest && !m_options.merged) {
                facts.push_back({{1, entry.length, entry.hidden ? 1 : 0, 0}, &entry});
            }
            for (u32 i = 0; i < entry.noteCount; ++i) {
                AddNoteFacts(music, entry, music.notes[entry.firstNote + i], facts);
            }
            AddAttachments(music, entry, nullptr, entry.firstAttachment, entry.attachmentCount,
                           facts);
        }
    }

    i64 PitchKey(const MusicNote& note) {
        const bool hasElement = !note.pitchElement.empty();
        const i64 pitch = (i64{note.pitch.octave} * 7 + note.pitch.step) * 64 + note.pitch.alter;
        return pitch * (i64{1} << 32U) + (hasElement ? m_texts.Of(note.pitchElement) : 0);
    }

    void AddNoteFacts(const Music& music, const MusicEntry& entry, const MusicNote& note,
                      std::vector<Fact>& facts) {
        const i64 ties = (note.tieStart ? 2 : 0) + (note.tieEnd ? 1 : 0);
        const i64 length = i64{entry.length} << 18 | i64{entry.duration} << 2 | ties;
        facts.push_back({{2, PitchKey(note), length, 0}, &entry, &note});
        AddAttachments(music, entry, &note, note.firstAttachment, note.attachmentCount, facts);
    }

    void AddAttachments(const Music& music, const MusicEntry& entry, const MusicNote* note,
                        u32 first, u32 count, std::vector<Fact>& facts) {
        for (u32 i = first; i < first + count; ++i) {
            const Attachment& attachment = music.attachments[i];
            if (IsOfNoAccount(music, attachment)) {
                continue;
            }
            facts.push_back({KeyOf(attachment, entry, note), &entry, note, &attachment});
        }
    }

    // A lyric that joins a note may need another number there.
    i64 TextKeyOf(const Attachment& attachment) {
        const bool anyNumber = m_options.merged && attachment.kind == Attachment::Kind::kLyric;
        return anyNumber ? m_texts.OfLyric(attachment.text) : m_texts.Of(attachment.text);
    }

    std::array<i64, 4> KeyOf(const Attachment& attachment, const MusicEntry& entry,
                             const MusicNote* note) {
        const i64 kind = 3 + static_cast<i64>(attachment.kind);
        const i64 other = i64{attachment.otherMeasure} << 32 | attachment.otherPosition;
        const bool staysOnRest = entry.rest && !IsSpannerEnd(attachment);
        const i64 owner = note != nullptr ? PitchKey(*note) : staysOnRest ? -1 : 0;
        const i64 text = TextKeyOf(attachment);
        return {kind, i64{entry.length} << 32 | text, other, owner};
    }

    // Tells every fact of the one side that the other lacks.
    void Report(const std::vector<Fact>& facts, const std::vector<Fact>& others,
                std::string_view verb) {
        auto other = others.begin();
        for (const Fact& fact : facts) {
            while (other != others.end() && *other < fact) {
                ++other;
            }
            if (other != others.end() && *other == fact) {
                ++other;
                continue;
            }
            if (m_options.merged && fact.attachment != nullptr && IsSpannerEnd(*fact.attachment)) {
                (verb == "lost" ? m_lostEnds : m_addedEnds).push_back(fact);
            } else {
                Tell(fact, verb);
            }
        }
    }

    void Tell(const Fact& fact, std::string_view verb) {
        if (!IsFull()) {
            m_differences.push_back(WordsForPlace(*fact.entry) + ": " + WordsFor(fact) + ' ' +
                                    std::string{verb});
        }
    }

    // Of lines that ended on a rest, each end that is not where it was may have been moved.
    void ReportSpannerEnds() {
        for (const Fact& lost : m_lostEnds) {
            const auto moved =
                std::find_if(m_addedEnds.begin(), m_addedEnds.end(),
                             [&](const Fact& added) { return IsMoved(lost, added); });
            if (moved != m_addedEnds.end()) {
                m_addedEnds.erase(moved);
            } else {
                Tell(lost, "lost");
            }
        }
        for (const Fact& added : m_addedEnds) {
            Tell(added, "added");
        }
    }

    bool IsMoved(const Fact& was, const Fact& is) {
        const Attachment& before = *was.attachment;
        const Attachment& after = *is.attachment;
        return before.kind == after.kind && was.entry->staff == is.entry->staff &&
               was.entry->measure == is.entry->measure && before.otherStaff == after.otherStaff &&
               before.otherMeasure == after.otherMeasure &&
               MayBeAt(was.entry->rest, was.entry->onset, is.entry->onset) &&
               MayBeAt(before.otherIsRest, before.otherPosition, after.otherPosition) &&
               m_texts.Of(before.text) == m_texts.Of(after.text);
    }

    static std::string WordsFor(const Fact& fact) {
        if (fact.attachment != nullptr) {
            const std::string owner = fact.note != nullptr
                                          ? " of " + WordsForNote(*fact.entry, *fact.note)
                                          : std::string{};
            return WordsForText(fact.attachment->text) + owner;
        }
        if (fact.note == nullptr) {
            return (fact.entry->hidden ? "hidden " : "") + WordsForLength(*fact.entry) + " rest";
        }
        const bool tied = fact.note->tieStart || fact.note->tieEnd;
        return (tied ? "tied " : "") + WordsForNote(*fact.entry, *fact.note);
    }

    // Each entry's notes must be in one entry afterwards, with all that hung on it.
    void CheckCompany(Group before, Group after) {
        for (const MusicEntry& entry : before) {
            const bool checks = !entry.rest && !IsExcepted(entry) &&
                                (entry.noteCount > 1 || entry.attachmentCount > 0);
            if (!checks || IsFull()) {
                continue;
            }
            const bool found =
                std::any_of(after.begin(), after.end(),
                            [&](const MusicEntry& other) { return Contains(other, entry); });
            if (!found) {
                m_differences.push_back(WordsForPlace(entry) + ": " +
                                        WordsForNote(entry, m_before.notes[entry.firstNote]) +
                                        " parted from what belongs to it");
            }
        }
    }

    bool Contains(const MusicEntry& whole, const MusicEntry& part) {
        if (whole.rest || whole.length != part.length || whole.duration != part.duration) {
            return false;
        }
        const auto pitches = [this](const Music& music, const MusicEntry& entry) {
            std::vector<i64> keys;
            for (u32 i = 0; i < entry.noteCount; ++i) {
                keys.push_back(PitchKey(music.notes[entry.firstNote + i]));
            }
            std::sort(keys.begin(), keys.end());
            return keys;
        };
        const auto attachments = [this](const Music& music, const MusicEntry& entry) {
            std::vector<std::array<i64, 4>> keys;
            for (u32 i = 0; i < entry.attachmentCount; ++i) {
                const Attachment& attachment = music.attachments[entry.firstAttachment + i];
                if (!IsOfNoAccount(music, attachment) && !attachment.otherIsRest) {
                    keys.push_back(KeyOf(attachment, entry, nullptr));
                }
            }
            std::sort(keys.begin(), keys.end());
            keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
            return keys;
        };
        return std::ranges::includes(pitches(m_after, whole), pitches(m_before, part)) &&
               std::ranges::includes(attachments(m_after, whole), attachments(m_before, part));
    }

    void CompareItems() {
        const auto keys = [this](const Music& music) {
            std::vector<std::pair<std::array<i64, 4>, const MusicItem*>> result;
            result.reserve(music.items.size());
            for (const MusicItem& item : music.items) {
                result.push_back(
                    {{item.part, item.measure, item.position, m_texts.Of(item.text)}, &item});
            }
            std::sort(result.begin(), result.end());
            return result;
        };
        const auto before = keys(m_before);
        const auto after = keys(m_after);
        const auto report = [this](const auto& items, const auto& others, std::string_view verb) {
            auto other = others.begin();
            for (const auto& [key, item] : items) {
                while (other != others.end() && other->first < key) {
                    ++other;
                }
                if (other != others.end() && other->first == key) {
                    ++other;
                } else if (!IsFull()) {
                    m_differences.push_back("part " + std::to_string(item->part) + ", measure " +
                                            std::to_string(item->measure) + ": " +
                                            WordsForText(item->text) + ' ' + std::string{verb});
                }
            }
        };
        report(before, after, "lost");
        report(after, before, "added");
    }

    const Music& m_before;
    const Music& m_after;
    const CompareOptions& m_options;
    TextKeys m_texts;
    std::vector<Fact> m_factsBefore;
    std::vector<Fact> m_factsAfter;
    std::vector<Fact> m_lostEnds;  // of lines between two notes or rests
    std::vector<Fact> m_addedEnds;
    std::vector<std::string> m_differences;
};

}  // namespace

std::vector<std::string> Compare(const Music& before, const Music& after,
                                 const CompareOptions& options) {
    return Comparison{before, after, options}.Run();
}

}  // namespace standin
