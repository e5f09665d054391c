// Every scenario on hosts of every manner: the same music, the same messages.
#include <algorithm>

#include "host/verify/merge_faults.h"
#include "platform/headless/session.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/mannered.h"
#include "tests/unit/support/scenarios.h"

namespace standin {
namespace {

struct Outcome {
    std::vector<std::string> layers;
    std::string alerts;
    std::string problems;
};

// Without the order of a chord's notes.
std::vector<std::string> Unordered(std::vector<std::string> layers) {
    for (std::string& layer : layers) {
        for (auto word = layer.begin(); word != layer.end();) {
            const auto end = std::find(word + 1, layer.end(), ' ');
            std::sort(word, end);
            word = end;
        }
    }
    return layers;
}

Outcome RunOnce(const Scenario& scenario) {
    const Plugin plugin;
    const auto host = Build(scenario);
    DialogDesk desk;
    Prepare(plugin, scenario);
    const DocumentContent before = host->Score().Content();
    const DocumentContent start = StartOfMerge(host->Score(), scenario.score.options);
    App().ResetCounts();
    App().faults.guardFrames = true;
    standin::Run(plugin, *host, scenario);
    Outcome outcome{LayersOf(*host, scenario.score), AlertTexts(), {}};
    const DocumentContent after = host->Score().Content();
    if (after != before) {
        outcome.problems =
            Lines(FaultsOfMerge(host->Score(), start, after, scenario.score.options));
        outcome.problems += App().alerts.empty() ? "" : "an alert, but the score changed\n";
    }
    outcome.problems += desk.Newest() == nullptr ? "" : "a dialog is open\n";
    outcome.problems += App().calls.flagsOutOfStep == 0 ? "" : "flags out of step\n";
    return outcome;
}

class OnHosts : public testing::TestWithParam<Manner> {};

TEST_P(OnHosts, ScenariosGiveSameResult) {
    for (const Scenario& scenario : Scenarios()) {
        SCOPED_TRACE(scenario.name);
        const Outcome usual = RunOnce(scenario);
        const Mannered mannered{GetParam()};
        const Outcome outcome = RunOnce(scenario);
        EXPECT_EQ(Unordered(outcome.layers), Unordered(usual.layers));
        EXPECT_EQ(outcome.alerts, usual.alerts);
        EXPECT_EQ(outcome.problems, "") << Print(scenario.score);
    }
    RecordRuns(GetParam(), Scenarios().size());
}

INSTANTIATE_TEST_SUITE_P(ThatAre, OnHosts, testing::ValuesIn(kManners), NameOfManner);

}  // namespace
}  // namespace standin
