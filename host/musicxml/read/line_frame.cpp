#include "host/musicxml/read/line_frame.h"

#include <algorithm>
#include <cstring>

#include "host/musicxml/read/entry_length.h"
#include "host/score/records/tags.h"

namespace standin {
namespace {

// A tuplet without effect on times, to keep a bracket's end at its entry.
Bytes HolderOf(const TupletText& text, i16 duration) {
    const EDTTuplet2005 tuplet{1, duration, 1, duration, {}};
    Bytes bytes = BytesOf(tuplet);
    std::memcpy(bytes.data() + kTupletTextOffset, &text, sizeof(text));
    return bytes;
}

}  // namespace

void LineFrame::CreateTuplet(u32 entry, const Bytes& record) {
    const RecordKey key = RecordKey::OfEntry(entry, kAppend);
    m_fits = m_score.document->Records().Create(Tag::kTuplet, key, record).has_value() && m_fits;
}

// Tuplets begin with an entry that takes time.
void LineFrame::BeginTuplets(const EXENTRY& entry) {
    if ((entry.flags & EntryFlag::kGrace) != 0) {
        return;
    }
    for (const TupletGroup* group : m_pending) {
        CreateTuplet(entry.entryNumber, TupletGroups::RecordOf(*group));
    }
    m_pending.clear();
}

void LineFrame::PushGap(Rational from, Rational to, i64 duration) {
    EXENTRY gap{};
    WrittenForm form;
    form.gap = true;
    form.length = to - from;
    form.notated = static_cast<i16>(duration);
    if (!m_open.empty() && m_open.back()->SharesRatio()) {
        const NoteValue value = ValueOfLength(form.notated);
        form.type = value.type;
        form.dots = static_cast<u8>(value.dots);
        form.timeModification = m_open.back()->timeModification;
    }
    gap.entryNumber = m_score.document->NewEntryNumber();
    gap.duration = form.notated;
    gap.flags = m_flags | EntryFlag::kNoNotes | EntryFlag::kIgnore;
    gap.fieldAt12 = m_score.forms.Intern(form);
    BeginTuplets(gap);
    m_frame.push_back(gap);
}

// More than one rest if the gap is longer than one entry can be.
void LineFrame::FillUntil(Rational time) {
    if (!(m_time < time)) {
        return;
    }
    if (!m_open.empty() && m_open.back()->SharesRatio()) {
        PushGap(m_time, time, RoundToUnits((time - m_time) * m_open.back()->ratio));
        m_time = time;
        return;
    }
    constexpr i64 kStep = 8 * 4 * kQuarterNote - 4 * kQuarterNote;
    i64 start = RoundToUnits(m_time);
    const i64 end = RoundToUnits(time);
    const bool isOne = end - start <= kStep;
    while (start < end) {
        const i64 length = std::min(end - start, kStep);
        PushGap(isOne ? m_time : Rational{}, isOne ? time : Rational::OfUnits(length), length);
        start += length;
    }
    m_time = time;
}

void LineFrame::Close() {
    FillUntil(m_open.back()->end);
    m_open.pop_back();
}

void LineFrame::CloseUntil(const EntryDraft& next) {
    while (!m_open.empty() && !(next.start < m_open.back()->end)) {
        Close();
    }
}

// Before a grace note, those of its main note that began earlier: on another staff.
void LineFrame::OpenGroupsOf(const EntryDraft& main, const EntryDraft& draft) {
    std::vector<const TupletGroup*> groups;
    for (const TupletGroup* group = main.tuplet; group != nullptr; group = group->outer) {
        const bool hasBegun = !draft.Grace() || group->start < draft.start;
        if (hasBegun && std::ranges::find(m_open, group) == m_open.end()) {
            groups.push_back(group);
        }
    }
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        FillUntil((*group)->start);
        m_open.push_back(*group);
        m_pending.push_back(*group);
    }
}

Problem LineFrame::TakeLength(EntryDraft& draft) {
    EXENTRY& entry = draft.entry;
    const i32 notated = NotatedLength(draft.form.type, draft.form.dots);
    if (draft.tuplet != nullptr && draft.tuplet->SharesRatio()) {
        entry.duration = static_cast<i16>(notated);
        return {};
    }
    const i64 actual = RoundToUnits(draft.End()) - RoundToUnits(draft.start);
    if (actual == 0 && !draft.Grace() && entry.noteCount > 0) {
        return {Text::kNoteTooShort, draft.text.begin};
    }
    const auto length = LengthOfEntry(notated, actual, draft.Grace());
    if (!length) {
        return {Text::kEntryDuration, draft.text.begin};
    }
    entry.duration = length->duration;
    if (length->needsTuplet) {
        CreateTuplet(entry.entryNumber, BytesOf(length->tuplet));
    }
    return {};
}

Problem LineFrame::Append(EntryDraft& draft, const EntryDraft& main) {
    CloseUntil(draft);
    OpenGroupsOf(main, draft);
    FillUntil(draft.start);
    EXENTRY& entry = draft.entry;
    entry.flags |= m_flags;
    BeginTuplets(entry);
    if (Problem problem = TakeLength(draft)) {
        return problem;
    }
    draft.form.notated = entry.duration;
    entry.fieldAt12 = m_score.forms.Intern(draft.form);
    for (const TupletText& end : draft.bracketEnds) {
        CreateTuplet(entry.entryNumber, HolderOf(end, entry.duration));
    }
    m_frame.push_back(entry);
    m_time = draft.End();
    return m_fits ? Problem{} : Problem{Text::kTooManyMarks, draft.text.begin};
}

std::vector<EXENTRY> LineFrame::Take() {
    while (!m_open.empty()) {
        Close();
    }
    return std::move(m_frame);
}

}  // namespace standin
