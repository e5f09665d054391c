// Runs of the command, small enough to be repeated for each call they make, that use whatever a
// run can use.
#pragma once

#include <string>
#include <vector>

#include "tests/unit/support/plugin_driver.h"
#include "tests/unit/support/written_score.h"

namespace standin {

struct Scenario {
    // How the user starts the run.
    enum class Way {
        kShift,         // with Shift: once, without the dialog
        kDialog,        // by the dialog's Go
        kSavedSetting,  // by the menu item of a saved setting
        kSaving,        // by Go, after saving the options as a saved setting
    };

    std::string name;
    WrittenScore score;
    void (*more)(StandIn& host) = nullptr;  // what a written score cannot say
    Way way = Way::kShift;
};

const std::vector<Scenario>& Scenarios();

// The scenario's score in a fresh host.
std::unique_ptr<StandIn> Build(const Scenario& scenario);

// Puts what the scenario's way needs into the registry, then lets the plug-in count its items.
void Prepare(const Plugin& plugin, const Scenario& scenario);

// Does what the user does. Whatever dialog the host leaves open is left open.
void Run(const Plugin& plugin, StandIn& host, const Scenario& scenario);

}  // namespace standin
