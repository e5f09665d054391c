// The basic values of one <note> element: time, pitch, voice and appearance. note_attachments.h
// reads its attachments.
#pragma once

#include <pugixml.hpp>
#include <string_view>

#include "host/musicxml/fragments.h"
#include "host/musicxml/note_values.h"
#include "host/musicxml/problem.h"
#include "host/musicxml/read/entry_draft.h"
#include "host/score/time/rational.h"

namespace standin {

struct NoteElement {
    pugi::xml_node node;
    bool chord = false;
    bool grace = false;
    bool rest = false;
    bool hidden = false;     // print-object="no"
    bool isTimed = true;     // its length is what its <duration> says
    Rational length{};       // 0 for a grace note
    std::string_view voice;  // as long as the node
    int staff = 1;           // within the part, from 1
    NoteType type = 0;
    int dots = 0;
    u16 pitchField = 0;     // in the measure's key
    u16 pitchFragment = 0;  // the whole element, where the field cannot say it
    FragmentId restElement = 0;
    FragmentId timeModification = 0;
    NoteRatio ratio;  // given by it
};

class NoteReader {
public:
    NoteReader(std::string_view text, Fragments& fragments, Fragments& pitches)
        : m_text{text}, m_fragments{fragments}, m_pitches{pitches} {}

    // divisions: of a quarter note, 0 = not given. fifths: the measure's key.
    Problem Read(pugi::xml_node node, Rational divisions, int fifths, NoteElement& note);

    // A <duration> in quarters.
    Problem ReadDuration(pugi::xml_node duration, Rational divisions, Rational& length) const;

private:
    Problem ReadPitch(pugi::xml_node pitch, int fifths, NoteElement& note);
    void ReadUnpitched(pugi::xml_node unpitched, int fifths, NoteElement& note);
    Problem KeepPitchElement(pugi::xml_node element, NoteElement& note);

    std::string_view m_text;
    Fragments& m_fragments;
    Fragments& m_pitches;
};

}  // namespace standin
