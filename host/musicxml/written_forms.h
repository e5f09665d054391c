// An entry's values in the format beyond the host's own fields. They are kept in a table by a
// number in the entry's field at offset 12, which moves with the entry.
#pragma once

#include <unordered_map>
#include <vector>

#include "host/musicxml/fragments.h"
#include "host/musicxml/note_values.h"
#include "host/score/time/rational.h"

namespace standin {

struct WrittenForm {
    Rational length{};  // its exact time; 0 = the host's time
    i16 notated = 0;    // the entry's duration that type and dots belong to
    NoteType type = 0;  // 0 = the note had no type
    u8 dots = 0;
    bool gap = false;             // a rest that only fills a gap: nothing is written
    bool stemOnEachNote = false;  // every note of the chord names its stem
    FragmentId timeModification = 0;
    FragmentId rest = 0;  // the <rest> element; 0 = a plain one

    bool operator==(const WrittenForm&) const = default;
};

class WrittenForms {
public:
    // The form's number; 0, the empty form, if there are too many.
    u16 Intern(const WrittenForm& form);
    const WrittenForm& operator[](u16 id) const noexcept {
        return id < m_forms.size() ? m_forms[id] : m_forms[0];
    }

private:
    struct Hash {
        std::size_t operator()(const WrittenForm& form) const noexcept;
    };
    std::vector<WrittenForm> m_forms{{}};
    std::unordered_map<WrittenForm, u16, Hash> m_ids;
};

}  // namespace standin
