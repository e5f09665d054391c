// Writes one entry as its <note> elements, with children in the order of the schema.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/note_children.h"
#include "host/musicxml/note_values.h"
#include "host/musicxml/write/entries/timed_entries.h"
#include "host/musicxml/write/lines/line_numbers.h"

namespace standin {

struct NoteContext {
    TimedEntry time;
    Rational divisions{};
    int fifths = 0;
    std::string_view voice;     // empty = not written
    int staff = 0;              // from 1; 0 = not written
    std::string_view beams;     // the elements
    std::string_view brackets;  // those of tuplets
};

class NoteWriter {
public:
    // indent: the text before each <note>, with its line break; unit: one more step.
    NoteWriter(const ImportedScore& score, const LineNumbers& numbers, std::string indent,
               std::string_view unit)
        : m_score{score},
          m_numbers{numbers},
          m_indent{std::move(indent)},
          m_childIndent{m_indent.empty() ? m_indent : m_indent + std::string{unit}},
          m_notationIndent{m_indent.empty() ? m_indent : m_childIndent + std::string{unit}} {}

    void Write(const NoteContext& context, const EntryTexts& texts, std::string& out);

private:
    // A child that was kept as text.
    struct Extra {
        NoteSlot slot;
        std::string_view element;
    };

    void WriteNote(int index);
    void WriteChild(NoteSlot slot, int index);
    void CollectExtras(int index);
    void AddExtras(FragmentId bundle);
    bool IsRest() const noexcept { return m_entry->noteCount == 0; }
    bool IsGrace() const noexcept { return (m_entry->flags & EntryFlag::kGrace) != 0; }
    const WrittenForm& Form() const { return m_score.forms[m_entry->fieldAt12]; }
    std::string_view DetailOfNote(u32 tag, u16 noteID, bool& has) const;
    void Attributes();
    void Element(std::string_view element);
    void Element(std::string_view name, std::string_view text);
    bool Extras(NoteSlot slot);
    void PitchOrRest(const EXNOTE& note);
    void Ties(const EXNOTE& note);
    NoteValue Value() const;
    void Type();
    void Dots(const EXNOTE& note);
    void DetailsAndExtras(NoteSlot slot, u32 tag, const EXNOTE& note);
    void TimeModification();
    void Stem(bool isFirst);
    void Beams(bool isFirst);
    void Lyrics();
    void Notations(int index);
    void CollectTied(const EXNOTE& note, u32 flag, u32 tag);
    void CollectSpanners(int index);
    std::string_view Numbered(FragmentId element, std::optional<int> number);
    void AddNotation(std::string_view element);
    void Container(std::string_view name, const std::vector<std::string_view>& elements);

    const ImportedScore& m_score;
    const LineNumbers& m_numbers;
    std::string m_indent;
    std::string m_childIndent;
    std::string m_notationIndent;

    // Of the entry being written:
    const NoteContext* m_context = nullptr;
    const EntryTexts* m_texts = nullptr;
    const EXENTRY* m_entry = nullptr;
    std::string* m_out = nullptr;
    std::vector<std::string_view> m_attributes;
    std::vector<Extra> m_extras;
    std::vector<std::string_view> m_notations;
    std::vector<std::string_view> m_separateNotations;  // <notations> with attributes
    std::vector<std::string_view> m_articulations;
    std::vector<std::string_view> m_ornaments;
    std::deque<std::string> m_made;  // texts that the score does not hold
};

// A number of divisions in the format's notation; empty if it has more than 12 digits.
std::string DurationText(Rational length, Rational divisions);

}  // namespace standin
