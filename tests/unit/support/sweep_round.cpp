#include "tests/unit/support/sweep_round.h"

#include <algorithm>
#include <cstring>

#include "host/verify/merge_faults.h"
#include "platform/headless/session.h"
#include "tests/unit/support/dialog_desk.h"

namespace standin {
namespace {

// The options that the run may have used: a dialog that cannot be read gives other options than the
// stored ones, and defaults replace options that cannot be loaded.
std::vector<MergeOptions> UsableOptions(const Scenario& scenario, const Refusal& refusal) {
    std::vector<MergeOptions> usable{scenario.score.options};
    if (refusal.firstRegistryCall != 0) {
        usable.emplace_back();
    }
    const std::vector<u8> stored = Plugin::Stored("Plyweld", "ZKCF22000");
    if (scenario.way == Scenario::Way::kDialog && stored.size() == sizeof(MergeOptions)) {
        std::memcpy(&usable.emplace_back(), stored.data(), sizeof(MergeOptions));
    }
    return usable;
}

// Each failed attempt to store settings is also reported.
std::ptrdiff_t AlertsOfMusic() {
    const std::vector<Alert>& alerts = App().alerts;
    return std::ranges::count_if(alerts, [](const Alert& alert) {
        return alert.text.find(u"configuration data") == std::u16string::npos &&
               alert.text.find(u"saved setting") == std::u16string::npos;
    });
}

// A run may end without a message if the user seems to have stopped it, if music merged instead of
// replaced fits nowhere, if the host keeps rests, if the dialog did not open or could not be read,
// and if the message itself was refused.
bool MayBeSilent(const Scenario& scenario, const CallCounts& calls) {
    const HostCall refused = calls.firstRefused.value_or(HostCall::kCount);
    const bool isOfDialogs = refused >= HostCall::kDialog && refused <= HostCall::kAlertMessage;
    return refused == HostCall::kMassEditProgress || refused == HostCall::kAlertMessage ||
           refused == HostCall::kExecuteMenuItem || refused == HostCall::kInsertEXENTRY ||
           refused == HostCall::kDeleteEXENTRY ||
           (scenario.way != Scenario::Way::kShift &&
            (isOfDialogs || refused == HostCall::kGetCurERegions));
}

void Obey(const Refusal& refusal) {
    App().faults.refuseCall = refusal.call;
    App().faults.refuseFrom = refusal.from;
    platform::headless::RefuseRegistryCalls(refusal.firstRegistryCall, refusal.lastRegistryCall);
}

// What the host refused to close.
std::string CloseWhatIsOpen(StandIn& host, const Refusal& refusal, const CallCounts& calls) {
    const auto lacks = [&refusal](HostCall call) {
        return std::ranges::count(refusal.missing, call) != 0;
    };
    std::string text;
    if (host.Score().IsEditOpen()) {
        // An edit that was ended is kept, whatever the host did.
        const HostCall cancel = HostCall::kCancelFinaleEdit;
        const HostCall end = HostCall::kEndFinaleEdit;
        const bool isKept = calls.Of(cancel) == 0 && (calls.Of(end) > 0 || lacks(end));
        text += calls.Of(cancel) > 0 || lacks(cancel) || isKept ? "" : "an edit is open\n";
        isKept ? host.Score().EndEdit() : host.Score().CancelEdit();
    }
    if (!App().progressDisplays.empty()) {
        const bool asked = calls.Of(HostCall::kEndMassEdit) >= App().progressDisplaysOpened;
        text += asked || lacks(HostCall::kEndMassEdit) ? "" : "a progress display is open\n";
        App().progressDisplays.clear();
    }
    if (lacks(HostCall::kFreeTGF)) {
        App().lent.Clear();
    }
    return text;
}

// Asks first. A dialog that cannot end itself is destroyed with its window, as when the host ends.
void CloseDialogs(DialogDesk& desk) {
    for (int asked = 0; desk.Newest() != nullptr && asked < 4; ++asked) {
        desk.Newest()->Send(kCloseMessage);
    }
    while (desk.Newest() != nullptr) {
        desk.EndDialog(&desk.Newest()->window);
    }
}

Sweep::Origin OriginOf(StandIn& host, const Scenario& scenario) {
    return {host.Score().Content(), StartOfMerge(host.Score(), scenario.score.options)};
}

}  // namespace

Sweep::Sweep(const Scenario& scenario) : m_scenario{scenario} {
    const Plugin plugin;
    const auto host = Build(m_scenario);
    DialogDesk desk;
    Prepare(plugin, m_scenario);
    m_layersBefore = LayersOf(*host, m_scenario.score);
    App().ResetCounts();
    App().faults.guardFrames = true;
    Run(plugin, *host, m_scenario);
    m_calls = App().calls;
    m_alerts = App().alerts.size();
    m_layers = LayersOf(*host, m_scenario.score);
    EXPECT_EQ(desk.Newest(), nullptr);
}

Sweep::~Sweep() {
    for (const auto& [what, count] : m_tally) {
        testing::Test::RecordProperty(what, std::to_string(count));
    }
}

bool Sweep::Round(const Plugin& plugin, const Refusal& refusal) {
    platform::headless::Reset();
    platform::headless::SetLanguage(platform::headless::Language::kEnglish);
    for (const HostCall call : refusal.missing) {
        platform::headless::HideHostFunction(NameOf(call));
    }
    const auto host = Build(m_scenario);
    DialogDesk desk;
    Prepare(plugin, m_scenario);
    const Origin from = OriginOf(*host, m_scenario);
    App().ResetCounts();
    Obey(refusal);
    Run(plugin, *host, m_scenario);
    const CallCounts calls = App().calls;
    const bool registryMet = refusal.firstRegistryCall != 0 &&
                             platform::headless::RegistryCalls() >= refusal.firstRegistryCall;
    Obey({});
    std::string problems = CloseWhatIsOpen(*host, refusal, calls);
    problems += ProblemsOf(*host, refusal, from, calls);
    if (refusal.missing.empty()) {
        problems += ProblemsOfNextRun(*host, plugin, from);
    }
    CloseDialogs(desk);
    ++m_tally["rounds"];
    m_tally["refusals"] += calls.refusedByPlan;
    if (!problems.empty()) {
        ADD_FAILURE() << m_scenario.name << ", call " << refusal.call << ", from " << refusal.from
                      << ", registry " << refusal.firstRegistryCall << ", without "
                      << (refusal.missing.empty() ? "nothing" : NameOf(refusal.missing.front()))
                      << ", first refused "
                      << (calls.firstRefused ? NameOf(*calls.firstRefused) : "nothing") << '\n'
                      << problems << Print(m_scenario.score);
    }
    // Calls that only give back are counted and never refused.
    return calls.Total() >= std::max(refusal.call, refusal.from) &&
           (refusal.firstRegistryCall == 0 || registryMet);
}

std::string Sweep::ProblemsOf(StandIn& host, const Refusal& refusal, const Origin& from,
                              const CallCounts& calls) {
    const DocumentContent after = host.Score().Content();
    const bool changed = after != from.before;
    ++m_tally[changed ? "kept" : "untouched"];
    std::string text;
    text += App().lent.Count() == 0 ? "" : "frames on loan\n";
    text += calls.strangeFrames == 0 ? "" : "frames handed over that were not on loan\n";
    text += App().CurrentDocument() == &host.Score() ? "" : "another document is current\n";
    text += platform::headless::OpenRegistryKeys() == 0 ? "" : "registry keys are open\n";
    const auto alerts = AlertsOfMusic();
    text += alerts <= 1 ? "" : "several alerts\n";
    text += changed && alerts > 0 ? "an alert, but the score changed\n" : "";
    const bool nothingDone = LayersOf(host, m_scenario.score) == m_layersBefore;
    const bool silent =
        nothingDone && m_layers != m_layersBefore && App().alerts.empty() && refusal.call != 0;
    text += silent && !MayBeSilent(m_scenario, calls) ? "nothing done, nothing said\n" : "";
    if (changed) {
        text += FaultsSince(host, from, UsableOptions(m_scenario, refusal));
    }
    return text.empty() ? text : text + AlertTexts();
}

// None when the score is what one of the options may give.
std::string Sweep::FaultsSince(StandIn& host, const Origin& from,
                               const std::vector<MergeOptions>& usable) {
    const DocumentContent after = host.Score().Content();
    std::string faults;
    for (const MergeOptions& options : usable) {
        // The host may have refused to clear what is to be replaced.
        for (const DocumentContent* start : {&from.before, &from.cleared}) {
            faults = Lines(FaultsOfMerge(host.Score(), *start, after, options));
            if (faults.empty()) {
                return {};
            }
        }
    }
    return faults;
}

// The next run merges as if nothing had happened.
std::string Sweep::ProblemsOfNextRun(StandIn& host, const Plugin& plugin, const Origin& first) {
    const Origin from = OriginOf(host, m_scenario);
    App().ResetCounts();
    Run(plugin, host, m_scenario);
    const bool alertsFit =
        m_scenario.way != Scenario::Way::kShift || App().alerts.size() == m_alerts;
    std::string text = alertsFit ? "" : AlertTexts();
    text += FaultsSince(host, from, UsableOptions(m_scenario, {.firstRegistryCall = 1}));
    const bool isFirst = from.before == first.before && m_scenario.way == Scenario::Way::kShift;
    const std::vector<std::string> layers = LayersOf(host, m_scenario.score);
    text += isFirst && layers != m_layers ? "another result\n" + Lines(layers) : "";
    return text.empty() ? text : "next run: " + text;
}

}  // namespace standin
