// Makes a document the host's current one until the scope ends.
#pragma once

#include <array>

#include "shell/host/host_types.h"

// Restores the document that was current before. If the document is already current, the only host
// call is the one that asks for it; inside another scope there is none, because nothing but scopes
// switches documents while the host does not have the thread. Whether the host switched is checked,
// not concluded from the result of the call.
//
// No scope may last over a call that lets the user act: progress, alerts, dialogs, menu commands.
class DocumentScope {
public:
    enum class Current { kKnown, kAsked };

    DocumentScope();  // keeps the current document
    // kAsked: asks the host for its current document even inside another scope.
    explicit DocumentScope(u16 document, Current current = Current::kKnown);
    ~DocumentScope();
    DocumentScope(const DocumentScope&) = delete;
    DocumentScope& operator=(const DocumentScope&) = delete;

    // False: the host refused, and the previous document is still current.
    explicit operator bool() const noexcept { return m_isCurrent; }

private:
    friend u16 CurrentDocument();
    friend i32 MeasureDuration(u16 staff, i16 measure);
    friend i16 SlotOfStaff(u16 staff, u16 staffList);

    // What the host answered last.
    struct Answer {
        u16 key = 0;
        u16 of = 0;
        i32 value = 0;  // 0 = none
    };
    struct Answers {
        std::array<Answer, 4> known{};
        std::size_t next = 0;
    };
    template <typename Ask>
    static i32 AskOnce(Answers DocumentScope::*answers, u16 key, u16 of, Ask ask);

    DocumentScope* m_outer;
    u16 m_previous;
    u16 m_current;
    bool m_switched = false;
    bool m_isCurrent = true;
    Answers m_durations;  // by staff and measure
    Answers m_slots;      // by staff and staff list
};

// The host's current document; not asked for inside a scope.
u16 CurrentDocument();

// FX_GetMeasureDuration and FX_InstToSlot in the current document. Inside a scope the host is not
// asked again for what it has just answered, unless the answer was 0.
i32 MeasureDuration(u16 staff, i16 measure);
i16 SlotOfStaff(u16 staff, u16 staffList);
