#include "Class Files/foundation/DocumentScope.h"

#include <algorithm>

#include "shell/host/callbacks.h"

namespace {

constinit DocumentScope* g_innermost = nullptr;

}  // namespace

DocumentScope::DocumentScope()
    : m_outer{g_innermost}, m_previous{CurrentDocument()}, m_current{m_previous} {
    g_innermost = this;
}

DocumentScope::DocumentScope(u16 document, Current current)
    : m_outer{g_innermost},
      m_previous{current == Current::kKnown ? CurrentDocument() : Host::GetCurrentEnigmaDocument()},
      m_current{m_previous} {
    if (m_current != document) {
        Host::SetCurrentEnigmaDocument(document);
        m_current = Host::GetCurrentEnigmaDocument();
        m_switched = m_current != m_previous;
    }
    m_isCurrent = m_current == document;
    g_innermost = this;
}

DocumentScope::~DocumentScope() {
    g_innermost = m_outer;
    if (m_switched) {
        Host::SetCurrentEnigmaDocument(m_previous);
        if (m_outer != nullptr) {
            m_outer->m_current = Host::GetCurrentEnigmaDocument();
        }
    }
}

// A scope on the same document knows what the scope around it knows.
template <typename Ask>
i32 DocumentScope::AskOnce(Answers DocumentScope::*answers, u16 key, u16 of, Ask ask) {
    DocumentScope* scope = g_innermost;
    while (scope != nullptr && scope->m_outer != nullptr &&
           scope->m_outer->m_current == scope->m_current) {
        scope = scope->m_outer;
    }
    if (scope == nullptr) {
        return ask();
    }
    Answers& all = scope->*answers;
    const auto known = std::ranges::find_if(all.known, [&](const Answer& answer) {
        return answer.value != 0 && answer.key == key && answer.of == of;
    });
    if (known != all.known.end()) {
        return known->value;
    }
    const i32 value = ask();
    all.known[all.next] = {key, of, value};
    all.next = (all.next + 1) % all.known.size();
    return value;
}

u16 CurrentDocument() {
    return g_innermost != nullptr ? g_innermost->m_current : Host::GetCurrentEnigmaDocument();
}

i32 MeasureDuration(u16 staff, i16 measure) {
    return DocumentScope::AskOnce(&DocumentScope::m_durations, staff, static_cast<u16>(measure),
                                  [=] { return Host::GetMeasureDuration(staff, measure); });
}

i16 SlotOfStaff(u16 staff, u16 staffList) {
    return static_cast<i16>(DocumentScope::AskOnce(&DocumentScope::m_slots, staff, staffList, [=] {
        return i32{Host::InstToSlot(staff, staffList)};
    }));
}
