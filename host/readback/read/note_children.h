// The contents of a <note>, each child classified once.
#pragma once

#include <pugixml.hpp>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/readback/read/element_texts.h"

namespace standin::readback {

enum class Child : u8 {
    kForm,  // of the note: type, dots, pitch
    kGrace,
    kTimeModification,
    kChord,
    kDuration,
    kVoice,
    kStaff,
    kTie,
    kNotations,
    kLyric,
    kLook,  // stem or beam
    kRest,
    kInstrument,
    kExtra,
};

class NoteChildren {
public:
    struct Element {
        pugi::xml_node node;
        Child kind = Child::kExtra;
        // The number of its text: of a voice its name, of all others the canonical text. Of a
        // staff the staff's number.
        u32 value = 0;
    };

    explicit NoteChildren(ElementTexts& elements) : m_elements{elements} {}

    void Read(pugi::xml_node note);

    pugi::xml_node Note() const { return m_note; }
    const std::vector<Element>& All() const { return m_all; }
    // The first of its kind; null when there is none.
    const Element* Find(Child kind) const;
    bool Has(Child kind) const { return Find(kind) != nullptr; }

private:
    Element Classify(pugi::xml_node child);

    ElementTexts& m_elements;
    pugi::xml_node m_note;
    std::vector<Element> m_all;
    std::unordered_map<std::string_view, Element> m_known;  // by source
};

}  // namespace standin::readback
