// Runs of the command that together use everything a run can use, each small enough to be repeated
// for every call it makes.
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
    void (*more)(StandIn& host) = nullptr;  // additions that the notation cannot express
    Way way = Way::kShift;
};

const std::vector<Scenario>& Scenarios();

// The scenario's score in a fresh host.
std::unique_ptr<StandIn> Build(const Scenario& scenario);

// Prepares the registry for the scenario, then lets the plug-in count its items.
void Prepare(const Plugin& plugin, const Scenario& scenario);

// Does what the user does. Dialogs that the host leaves open stay open.
void Run(const Plugin& plugin, StandIn& host, const Scenario& scenario);

}  // namespace standin
