// Reads one <part>: one function an element of its measures.
#pragma once

#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/problem.h"
#include "host/musicxml/read/measure_context.h"
#include "host/musicxml/read/measure_layers.h"
#include "host/musicxml/read/note_attachments.h"
#include "host/musicxml/read/note_reader.h"
#include "host/musicxml/read/spanners.h"

namespace standin {

class PartReader {
public:
    // The part's staves are known; its measures are not read yet.
    PartReader(ImportedScore& score, ScorePart& part, std::array<bool, kLayers> ownLayers);

    Problem Read(pugi::xml_node part);

private:
    struct VoicedDirection {
        pugi::xml_node node;
        Rational time{};
        u32 item = 0;
        bool beforeGrace = false;  // the next note is one
    };

    // The entry of a note as its stream goes on.
    struct StreamPlace {
        u32 entry = 0;
        u16 staff = 0;
        std::string voice;
    };

    void NameMeasure(std::string_view number);
    Problem ReadMeasure(pugi::xml_node measure);
    Problem ReadChild(pugi::xml_node child);
    Problem ReadNote(pugi::xml_node node);
    void GiveLength(NoteElement& note);
    // The length of a <backup> or <forward>.
    Problem ReadMove(pugi::xml_node move, Rational& length) const;
    Problem ReadBackup(pugi::xml_node backup);
    Problem ReadForward(pugi::xml_node forward);
    Problem ReadItem(pugi::xml_node item);
    Rational OffsetOfItem(pugi::xml_node item) const;
    void AddLineEnds(pugi::xml_node item);
    void EnterStream(const StreamPlace& note);
    void LeaveStream();
    EntryDraft& EntryFor(const NoteElement& note, bool& isNew);
    void AddText(EntryDraft& draft, const NoteElement& note, bool isNew);
    bool AddNote(EntryDraft& draft, const NoteElement& note, bool isNew);
    void EnsureMeasure();
    bool StoreDirection(const VoicedDirection& direction);
    void Reach(Rational time);

    ImportedScore& m_score;
    ScorePart& m_part;
    Document& m_document;
    Spanners m_spanners;
    NoteReader m_notes;
    NoteAttachments m_attachments;
    MeasureLayers m_layers;
    MeasureContext m_context;
    u16 m_measure = 0;
    int m_measureFifths = 0;  // by the measure's record
    bool m_measureExists = false;
    Rational m_time{};
    Rational
        m_uncounted{};  // how far that is ahead of the file's own count since the last <backup>
    struct ChordMember {
        EntryDraft* draft;
        int staff;
        std::string_view voice;
    };
    std::vector<ChordMember> m_chord;  // what further notes of the chord join
    std::vector<VoicedDirection> m_directions;
    std::size_t m_itemsWaiting = 0;  // the first item whose stream is not known yet
    StreamPlace m_previous;          // the note before, since the last <backup>
    u32 m_lastEntry = 0;
    std::size_t m_directionsBefore = 0;  // how many of them come before the note read last
};

}  // namespace standin
