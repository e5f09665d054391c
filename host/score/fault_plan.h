// The faults that a test makes the host commit, and the counters for them.
#pragma once

#include <array>
#include <optional>

#include "host/score/host_call.h"
#include "shell/host/host_types.h"

namespace standin {

// Calls are counted from 1, from the last ResetCounts on. FX_FreeTGF and the two functions
// that free metrics have no result and are never refused.
struct FaultPlan {
    u64 refuseCall = 0;  // this call of any kind; 0 = none
    u64 refuseFrom = 0;  // this call and all after it; 0 = none
    struct OfKind {
        HostCall call;
        u64 first = 1;  // this call of the kind ...
        u64 last = 1;   // ... to this one
    };
    std::optional<OfKind> refuseKind{};
    // Calls of this kind do nothing but report success.
    std::optional<HostCall> pretendKind{};

    struct Switch {
        u64 beforeCall;  // before this call of any kind ...
        u16 document;    // ... another document becomes current
    };
    std::optional<Switch> switchDocument{};

    u64 stopAtProgress = 0;         // this progress report returns "stop"; 0 = none
    bool guardFrames = false;       // lent entries end at a page that must not be touched
    bool wildEntries = false;       // lent entries have times and note counts that no music has
    bool respellsNotes = false;     // deleting entries respells the notes of the others
    bool untiesNewEntries = false;  // the first save of an entry clears its notes' tie ends
    bool failsWhenLoaded = false;   // records are loaded, but the call reports failure

    static OfKind AllOf(HostCall call) noexcept { return {call, 1, ~u64{0}}; }
};

class CallCounts {
public:
    void Count(HostCall call) noexcept {
        ++m_total;
        ++m_ofKind[static_cast<std::size_t>(call)];
    }
    u64 Total() const noexcept { return m_total; }
    u64 Of(HostCall call) const noexcept { return m_ofKind[static_cast<std::size_t>(call)]; }

    u64 refusedByPlan = 0;  // because of the fault plan
    u64 refusedByRule = 0;  // because the interface does not allow the call
    u64 framesLent = 0;
    u64 framesReturned = 0;
    u64 strangeFrames = 0;   // frame pointers that were not lent, or returned before
    u64 flagsOutOfStep = 0;  // entries saved with detail flags that do not match their details
    u64 framesBeamed = 0;    // by FX_RebeamRegion
    u64 progressReports = 0;
    std::optional<HostCall> firstRefused{};  // because of the fault plan

private:
    u64 m_total = 0;
    std::array<u64, kHostCallCount> m_ofKind{};
};

// Whether the plan refuses the call just counted.
bool Refuses(const FaultPlan& plan, const CallCounts& counts, HostCall call) noexcept;

}  // namespace standin
