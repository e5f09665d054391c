// Puts consecutive entries into a frame: gaps become hidden rests, groups become tuplets.
#pragma once

#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/problem.h"
#include "host/musicxml/read/tuplet_groups.h"

namespace standin {

class LineFrame {
public:
    // flags: of every entry. from: where the line starts.
    LineFrame(ImportedScore& score, u32 flags, Rational from)
        : m_score{score}, m_flags{flags}, m_time{from} {}

    // Entries in order, none overlapping another or another's group. main: for a grace note, the
    // next note; else the entry itself.
    Problem Append(EntryDraft& draft, const EntryDraft& main);

    // The frame's entries, up to the end of the last group.
    std::vector<EXENTRY> Take();

private:
    void CloseUntil(const EntryDraft& next);
    void Close();
    void OpenGroupsOf(const EntryDraft& main, const EntryDraft& draft);
    void FillUntil(Rational time);
    void PushGap(Rational from, Rational to, i64 duration);
    Problem TakeLength(EntryDraft& draft);
    void BeginTuplets(const EXENTRY& entry);
    void CreateTuplet(u32 entry, const Bytes& record);

    ImportedScore& m_score;
    u32 m_flags;
    Rational m_time;
    std::vector<const TupletGroup*> m_open;     // the innermost last
    std::vector<const TupletGroup*> m_pending;  // of these, the ones whose first entry is to come
    std::vector<EXENTRY> m_frame;
    bool m_fits = true;
};

}  // namespace standin
