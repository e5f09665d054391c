// Reads the attachments of a note or entry from its <note> into the host's detail records.
#pragma once

#include <string>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/note_children.h"
#include "host/musicxml/note_details.h"
#include "host/musicxml/read/note_reader.h"
#include "host/musicxml/read/spanners.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {

// The entry of a note element.
struct EntryPlace {
    EXENTRY* entry = nullptr;
    WrittenForm* form = nullptr;
    int noteIndex = 0;  // 0 for a rest
    u16 staff = 0;
    u16 measure = 0;
    Rational start{};
};

class NoteAttachments {
public:
    NoteAttachments(ImportedScore& score, Spanners& spanners)
        : m_text{score.text},
          m_fragments{score.fragments},
          m_records{score.document->Records()},
          m_spanners{spanners} {}

    // False if the entry's records cannot hold all attachments.
    [[nodiscard]] bool Read(const NoteElement& note, const EntryPlace& place);

    // The <tuplet> elements of the note read last.
    const std::string& Brackets() const { return m_brackets; }

private:
    struct TieElements {
        FragmentId tie = 0;
        FragmentId tied = 0;
        bool plain = true;  // nothing but the type
    };

    bool IsFirst() const noexcept { return m_place.noteIndex == 0; }
    bool IsRest() const noexcept { return m_place.entry->noteCount == 0; }
    FragmentId Slice(pugi::xml_node node) { return m_fragments.Intern(TextOf(m_text, node)); }
    void ReadChild(pugi::xml_node child);
    void ReadRecord(NoteSlot slot, pugi::xml_node child);
    void ReadStem(pugi::xml_node stem);
    void ReadLyric(pugi::xml_node lyric);
    void ReadNotations(pugi::xml_node notations);
    // attributes: of the <notations> around it.
    void ReadNotation(pugi::xml_node notation, std::string_view attributes);
    void ReadArticulations(pugi::xml_node articulations);
    void ReadOrnaments(pugi::xml_node ornaments);
    void ReadTie(pugi::xml_node node, std::string_view element);
    // kind: of the text that a point on a line's way is kept as.
    bool ReadSpanner(pugi::xml_node spanner, std::string_view element, EntryTextKind kind);
    void StoreExtras(const NoteElement& note);
    void StoreRestExtras();
    void StoreTies();
    void AddExtra(std::string_view element);
    void CreateEntryText(u32 tag, EntryTextKind kind, FragmentId fragment);
    void CreateNoteText(u32 tag, FragmentId fragment);
    template <typename Record>
    void Create(u32 tag, const Record& record);

    std::string_view m_text;
    Fragments& m_fragments;
    RecordStore& m_records;
    Spanners& m_spanners;

    EntryPlace m_place;  // of the note being read
    std::string_view m_voice;
    std::string m_extras;
    std::string m_separateNotations;
    std::string m_comments;  // and instructions
    std::string m_notehead;
    std::string m_dots;
    std::string m_beams;
    bool m_dotsArePlain = true;
    TieElements m_tieStart;
    TieElements m_tieEnd;
    bool m_fits = true;
    std::string m_brackets;
};

}  // namespace standin
