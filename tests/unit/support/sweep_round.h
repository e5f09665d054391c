// One run of a scenario in which something is refused, and the checks after it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/unit/support/scenarios.h"

namespace standin {

// The refusals from the start of the run.
struct Refusal {
    u64 call = 0;  // a host call by its number, from 1
    u64 from = 0;  // and every host call from one on
    int firstRegistryCall = 0;
    int lastRegistryCall = 0;
    std::vector<HostCall> missing = {};  // exports that the host lacks
};

class Sweep {
public:
    // The scores that a result is compared with: the original, and the same with the destination
    // cleared.
    struct Origin {
        DocumentContent before;
        DocumentContent cleared;
    };

    explicit Sweep(const Scenario& scenario);
    ~Sweep();
    Sweep(const Sweep&) = delete;
    Sweep& operator=(const Sweep&) = delete;

    // Whether the run reached the refusal. Fails the test if the run left an invalid state: a score
    // that is neither merged nor unchanged, a frame on loan, a second alert.
    bool Round(const Plugin& plugin, const Refusal& refusal);

    // Host calls of the run in which nothing is refused.
    const CallCounts& Calls() const { return m_calls; }

private:
    std::string ProblemsOf(StandIn& host, const Refusal& refusal, const Origin& from,
                           const CallCounts& calls);
    std::string ProblemsOfNextRun(StandIn& host, const Plugin& plugin, const Origin& first);
    static std::string FaultsSince(StandIn& host, const Origin& from,
                                   const std::vector<MergeOptions>& usable);

    const Scenario& m_scenario;
    CallCounts m_calls;
    std::vector<std::string> m_layersBefore;
    std::size_t m_alerts = 0;            // that it shows
    std::vector<std::string> m_layers;   // after it
    std::map<std::string, u64> m_tally;  // over all rounds, printed at the end
};

}  // namespace standin
