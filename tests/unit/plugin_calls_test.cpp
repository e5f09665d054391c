// How often the plug-in calls the host: a later change must not add a call unseen.
#include <algorithm>
#include <iterator>

#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

constexpr int kCallStaves = 2;
constexpr int kCallMeasures = 16;

// The most calls of a kind in a run over all staves and measures.
struct Allowance {
    HostCall call;
    std::size_t once;            // whatever is merged
    std::size_t nothingToMerge;  // for each staff and measure
    std::size_t chords;          // likewise, of four notes
    std::size_t restsFilled;     // likewise
};

constexpr Allowance kAllowed[] = {
    // 2 calls for each measure's staff system; the rest are the checks before saving.
    {HostCall::kGetCurrentEnigmaDocument, 26, 1, 7, 9},
    {HostCall::kGetCurrentPartID, 18, 0, 0, 0},
    {HostCall::kGetCurERegions, 3, 0, 0, 0},
    {HostCall::kGetCurrentWindowInfo, 2, 0, 0, 0},
    {HostCall::kGetMaxLayers, 1, 1, 1, 1},
    {HostCall::kSlotToInst, 0, 1, 1, 1},
    {HostCall::kInstToSlot, 0, 1, 1, 1},
    {HostCall::kGetMeasureDuration, 0, 2, 2, 2},
    {HostCall::kLoadTGF, 0, 3, 8, 10},
    {HostCall::kFreeTGF, 0, 3, 8, 10},
    {HostCall::kSaveTGF, 0, 0, 5, 7},
    {HostCall::kReduceEntries, 0, 0, 2, 2},
    {HostCall::kInsertEXENTRY, 0, 0, 0, 1},
    {HostCall::kDeleteEXENTRY, 0, 0, 0, 1},
    {HostCall::kGetTGFDuration, 0, 0, 1, 3},
    {HostCall::kLoadEData, 37, 0, 9, 5},
    {HostCall::kPreviousEData, 0, 0, 1, 1},
    {HostCall::kRebeamRegion, 0, 1, 1, 1},
    {HostCall::kStartFinaleEdit, 1, 0, 0, 0},
    {HostCall::kEndFinaleEdit, 1, 0, 0, 0},
    {HostCall::kStartMassEdit, 1, 0, 0, 0},
    {HostCall::kMassEditProgress, 10, 0, 0, 0},
    {HostCall::kEndMassEdit, 1, 0, 0, 0},
    {HostCall::kRedrawMusic, 1, 0, 0, 0},
    {HostCall::kGetMeasureNumberString, 2, 0, 0, 0},
};

// Merges everything into the first layer; no call may be made more often than allowed, and none
// that the table does not name.
void ExpectFewCalls(const std::string& destination, const std::string& source,
                    std::size_t Allowance::*column) {
    StandIn host{kCallStaves, kCallMeasures};
    host.LayerEverywhere(0, destination);
    host.LayerEverywhere(1, source);
    host.SelectAll();
    const Plugin plugin;
    Plugin::Store({});
    App().ResetCounts();
    plugin.InvokeWithShift(host);
    EXPECT_TRUE(App().alerts.empty());
    for (std::size_t i = 0; i < kHostCallCount; ++i) {
        const auto call = static_cast<HostCall>(i);
        const auto* const row = std::ranges::find(kAllowed, call, &Allowance::call);
        const std::size_t most =
            row == std::end(kAllowed) ? 0 : row->once + row->*column * kCallStaves * kCallMeasures;
        EXPECT_LE(App().calls.Of(call), most) << NameOf(call);
    }
}

TEST(HostCalls, AreFewWhereNothingIsToMerge) {
    ExpectFewCalls("w:c4", "", &Allowance::nothingToMerge);
}

TEST(HostCalls, AreFewWhereNotesFormChords) {
    ExpectFewCalls("q:c4 q:d4 q:e4 q:f4", "q:e5 q:f5 q:g5 q:a5", &Allowance::chords);
}

TEST(HostCalls, AreFewWhereMusicFillsRests) {
    ExpectFewCalls("h:r h:c4", "h:c5 h:d5", &Allowance::restsFilled);
}

}  // namespace
}  // namespace standin
