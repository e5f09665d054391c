// Writes one measure of one part anew, from the host's frames and the items kept in the text.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/musicxml/entry_texts.h"
#include "host/musicxml/write/crossing_ends.h"
#include "host/musicxml/write/note_writer.h"
#include "host/musicxml/write/timed_entries.h"
#include "host/musicxml/write/tuplet_brackets.h"

namespace standin {

class MeasureWriter {
public:
    // part and measure count from 0.
    MeasureWriter(const ImportedScore& score, std::size_t part, std::size_t measure,
                  const SpannerNumbers& numbers);

    // What stands between the measure's tags.
    std::string Write();

private:
    // An entry to write, with its beams.
    struct Event {
        TimedEntry time;
        std::size_t staff = 0;  // within the part, from 0
        u16 layer = 0;
        EntryTexts texts;
        std::string beams;
        BracketPlace place;
        bool beamedByHost = false;
        bool isFiller = false;  // nobody needs to see it written when its voice holds nothing else
        bool cameIn = false;    // since the import
    };
    // Entries that follow one another in one voice.
    struct Stream {
        std::vector<Event> events;
        std::string voice;
        std::vector<BracketTuplet> tuplets;  // in places among the events
    };
    using Line = std::vector<Event*>;

    void CollectStreams();
    void CollectStreams(const Frame& frame, FrameKey key, std::size_t staff, bool voice2);
    void CollectStream(const Frame& frame, FrameKey key, std::size_t staff,
                       const std::vector<TimedEntry>& entries);
    // entry: of the layer, or 0.
    std::string VoiceName(u16 measure, std::size_t staff, u16 layer, u32 entry = 0) const;
    void DropFillers();
    void PlaceBracketsOfVoices();
    void PlaceBracketsOf(const std::string& voice);
    static void WriteGapsThatCameIn(const std::vector<Event*>& events,
                                    const std::vector<BracketTuplet>& tuplets);
    bool HasOtherEnd(const std::string& voice, const TupletText& text) const;
    void MendLines();
    void MendLine(Line line);
    void MendBeams(const Line& line) const;
    void CollectItems();
    void WriteStream(const Stream& stream);
    bool WriteCarried(const Event& event);
    void WriteItemsUntil(Rational time);
    void WriteItem(const MeasureItem& item);
    std::string WithVoiceOf(std::size_t item, std::string_view element) const;
    void MoveTo(Rational time);
    void MakeRoomFor(Rational length);
    void SetDivisions(Rational divisions);
    void WriteMove(std::string_view name, Rational length);

    const ImportedScore& m_score;
    const ScorePart& m_part;
    const PartMeasure& m_original;
    u16 m_measure;  // from 1
    int m_fifths;
    std::string m_indent;   // before a child of the measure, with its line break
    std::string m_unit;     // one step of indentation
    std::string m_closing;  // before the measure's end tag
    const SpannerNumbers& m_numbers;
    NoteWriter m_notes;
    std::vector<CrossingEnds> m_crossing;
    std::vector<Stream> m_streams;
    std::set<std::string> m_changedVoices;    // those whose frames differ from the import
    std::vector<const MeasureItem*> m_items;  // by time
    std::size_t m_nextItem = 0;
    Rational m_time{};
    Rational m_reached{};
    Rational m_divisions;
    std::string m_out;
};

}  // namespace standin
