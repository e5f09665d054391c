#include "host/report/measure_cutter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string_view>

#include "host/musicxml/xml/xml_node.h"
#include "host/report/pitch_name.h"

namespace standin {
namespace {

constexpr std::string_view kPerStaff[] = {"key", "time", "clef", "staff-details"};

template <typename Names>
bool IsOneOf(std::string_view name, const Names& names) {
    return std::ranges::find(names, name) != std::end(names);
}

int StaffOf(pugi::xml_node element) {
    return IntegerOf(Trimmed(element.child_value("staff"))).value_or(1);
}

// 0: for all staves.
int StaffOfAttribute(pugi::xml_node element) {
    const bool isClef = std::string_view{element.name()} == "clef";
    return element.attribute("number").as_int(isClef ? 1 : 0);
}

// Places and colors of the original page, and names that others may have as well.
void DropLooks(pugi::xml_node element) {
    static constexpr std::string_view kLooks[] = {
        "id", "color", "width", "default-x", "default-y", "relative-x", "relative-y"};
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute;) {
        const pugi::xml_attribute next = attribute.next_attribute();
        if (IsOneOf(attribute.name(), kLooks)) {
            element.remove_attribute(attribute);
        }
        attribute = next;
    }
    for (const pugi::xml_node child : element.children()) {
        DropLooks(child);
    }
}

std::string PitchOf(pugi::xml_node note) {
    const pugi::xml_node pitch = note.child("pitch");
    return PitchName(pitch ? pitch : note.child("unpitched"));
}

std::string NumberText(Rational number) {
    if (number.den == 1) {
        return std::to_string(number.num);
    }
    char text[32];
    std::snprintf(text, sizeof(text), "%.6f",
                  static_cast<double>(number.num) / static_cast<double>(number.den));
    return text;
}

class MeasureCutter {
public:
    MeasureCutter(pugi::xml_node measure, int staff, AttributesInForce inForce)
        : m_from{measure}, m_staff{staff}, m_inForce{std::move(inForce)} {}

    Excerpt Cut() {
        m_to = m_document.append_child("measure");
        m_to.append_attribute("number").set_value(m_from.attribute("number").value());
        for (pugi::xml_node child = m_from.first_child(); child; child = child.next_sibling()) {
            child = Take(child);
        }
        WriteAttributes();
        std::ostringstream text;
        m_to.print(text, "", pugi::format_raw);
        m_excerpt.measure = std::move(text).str();
        return std::move(m_excerpt);
    }

private:
    // Returns the last node that was taken.
    pugi::xml_node Take(pugi::xml_node child) {
        static constexpr std::string_view kOfAStaff[] = {"direction", "harmony", "figured-bass"};
        const std::string_view name = child.name();
        if (name == "note") {
            return TakeNotes(child);
        }
        if (name == "backup" || name == "forward") {
            WriteAttributes();
            const Rational length = LengthOf(child);
            m_time = m_time + (name == "backup" ? -length : length);
        } else if (name == "attributes") {
            TakeAttributes(child);
        } else if (name == "barline" || (IsOneOf(name, kOfAStaff) && StaffOf(child) == m_staff)) {
            CatchUp();
            Copy(child);
        }
        return child;
    }

    void TakeAttributes(pugi::xml_node attributes) {
        if (m_attributesWritten) {
            CatchUp();
            pugi::xml_node copy = m_to.append_child("attributes");
            for (const pugi::xml_node child : attributes.children()) {
                const int number = StaffOfAttribute(child);
                const bool isOurs = number == 0 || number == m_staff;
                const std::string_view name = child.name();
                if (name == "divisions" || (IsOneOf(name, kPerStaff) && isOurs)) {
                    CopyTo(copy, child).remove_attribute("number");
                }
            }
        }
        m_inForce.Take(attributes);
    }

    // A note and those that make a chord with it.
    pugi::xml_node TakeNotes(pugi::xml_node first) {
        pugi::xml_node last = first;
        while (std::string_view{last.next_sibling().name()} == "note" &&
               last.next_sibling().child("chord")) {
            last = last.next_sibling();
        }
        WriteAttributes();
        const Rational length = first.child("grace") ? Rational{} : LengthOf(first);
        bool isFirst = true;
        for (pugi::xml_node note = first;; note = note.next_sibling()) {
            if (StaffOf(note) == m_staff) {
                CatchUp();
                TakeNote(note, isFirst);
                isFirst = false;
            }
            if (note == last) {
                break;
            }
        }
        m_written = isFirst ? m_written : m_written + length;
        m_time = m_time + length;
        return last;
    }

    void TakeNote(pugi::xml_node note, bool isFirst) {
        pugi::xml_node copy = Copy(note);
        if (isFirst) {
            copy.remove_child("chord");
        }
        if (note.child("rest")) {
            return;
        }
        copy.append_attribute("id").set_value(
            ("n" + std::to_string(m_excerpt.notes.size())).c_str());
        m_excerpt.notes.push_back(
            {RoundToUnits(m_time), PitchOf(note), std::string{Trimmed(note.child_value("voice"))}});
    }

    Rational LengthOf(pugi::xml_node element) const {
        const Rational length =
            DecimalOf(Trimmed(element.child_value("duration"))).value_or(Rational{});
        return length / m_inForce.Divisions();
    }

    // Those in force are written once everything at the measure's start is known.
    void WriteAttributes() {
        if (!m_attributesWritten) {
            m_inForce.AppendTo(m_to.prepend_child("attributes"), m_staff);
            m_attributesWritten = true;
        }
    }

    // What was left out is stepped over.
    void CatchUp() {
        const Rational gap = m_time - m_written;
        if (gap.IsZero() || !gap.IsValid()) {
            return;
        }
        const bool isBack = gap < Rational{};
        const std::string duration = NumberText((isBack ? -gap : gap) * m_inForce.Divisions());
        m_to.append_child(isBack ? "backup" : "forward")
            .append_child("duration")
            .text()
            .set(duration.c_str());
        m_written = m_time;
    }

    pugi::xml_node Copy(pugi::xml_node element) {
        pugi::xml_node copy = CopyTo(m_to, element);
        for (const char* name : {"staff", "sound", "listen", "play"}) {
            copy.remove_child(name);
        }
        return copy;
    }

    static pugi::xml_node CopyTo(pugi::xml_node parent, pugi::xml_node element) {
        pugi::xml_node copy = parent.append_copy(element);
        DropLooks(copy);
        return copy;
    }

    const pugi::xml_node m_from;
    const int m_staff;
    AttributesInForce m_inForce;
    bool m_attributesWritten = false;
    pugi::xml_document m_document;
    pugi::xml_node m_to;
    Rational m_time{};     // in quarter notes, where the measure has been read to
    Rational m_written{};  // likewise, where the excerpt has come to
    Excerpt m_excerpt;
};

}  // namespace

void AttributesInForce::Take(pugi::xml_node attributes) {
    for (const pugi::xml_node child : attributes.children()) {
        const std::string name = child.name();
        if (name == "divisions") {
            const Rational divisions = DecimalOf(Trimmed(child.child_value())).value_or(Rational{});
            m_divisions = Rational{} < divisions ? divisions : m_divisions;
        } else if (IsOneOf(name, kPerStaff)) {
            const int staff = StaffOfAttribute(child);
            if (staff == 0) {
                std::erase_if(m_elements, [&](const auto& row) { return row.first.first == name; });
            }
            m_elements[{name, staff}] = child;
        }
    }
}

void AttributesInForce::AppendTo(pugi::xml_node attributes, int staff) const {
    attributes.append_child("divisions").text().set(NumberText(m_divisions).c_str());
    for (const std::string_view name : kPerStaff) {
        if (const pugi::xml_node element = Find(std::string{name}, staff)) {
            pugi::xml_node copy = attributes.append_copy(element);
            DropLooks(copy);
            copy.remove_attribute("number");
        }
    }
}

pugi::xml_node AttributesInForce::Find(const std::string& name, int staff) const {
    for (const int number : {staff, 0}) {
        const auto found = m_elements.find({name, number});
        if (found != m_elements.end()) {
            return found->second;
        }
    }
    return {};
}

Excerpt CutMeasure(pugi::xml_node measure, int staff, const AttributesInForce& inForce) {
    return MeasureCutter{measure, staff, inForce}.Cut();
}

}  // namespace standin
