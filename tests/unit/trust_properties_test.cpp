// Further properties of merges of made-up music.
#include <algorithm>

#include "host/verify/merge_faults.h"
#include "host/verify/score_facts.h"
#include "tests/unit/support/merge_count.h"
#include "tests/unit/support/score_generator.h"

namespace standin {
namespace {

enum FactsToTell { kAll, kNotesByLayer, kNotes };

// The score's music and attachments, one line per entry.
std::vector<std::string> FactLines(const Document& document, FactsToTell what) {
    const DocumentContent content = document.Content();
    std::vector<std::string> lines;
    for (const EntryFacts& fact : FactsOf(content)) {
        if (what != kAll && !fact.IsNote()) {
            continue;
        }
        std::string line = fact.Place() + ", layer ";
        line += what == kNotes ? "any:" : std::to_string(fact.key.layer) + ':';
        for (const auto* texts : {&fact.notes, &fact.attachments}) {
            for (const std::string& text : *texts) {
                line += ' ' + text;
            }
        }
        lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
}

// One run over the selection, or one for each staff and measure of it, the last first. Nothing
// after an alert, which undoes all of the one and a part of the other.
std::vector<std::string> Merged(const Plugin& plugin, const WrittenScore& written, bool inPieces) {
    const std::unique_ptr<StandIn> host = Build(written);
    const EREGION whole = written.selection;
    if (!inPieces) {
        plugin.Merge(*host, written.options);
    }
    for (i16 slot = whole.endSlot; inPieces && slot >= whole.startSlot; --slot) {
        for (i16 measure = whole.endMeasure; measure >= whole.startMeasure; --measure) {
            const i32 start = measure == whole.startMeasure ? i32{whole.startPosition} : 0;
            const i32 end = measure == whole.endMeasure ? i32{whole.endPosition} : kEndOfMeasure;
            host->Select(slot, measure, start, slot, measure, end);
            plugin.Merge(*host, written.options);
        }
    }
    return App().alerts.empty() ? FactLines(host->Score(), kAll) : std::vector<std::string>{};
}

TEST(Properties, OrderDoesNotMatter) {
    const Plugin plugin;
    for (u32 seed = 1; seed <= MergeCount() / 5 && !HasFailure(); ++seed) {
        const WrittenScore written = MakeUpScore(seed);
        if (written.staves + written.measures == 2) {
            continue;  // one piece
        }
        const std::vector<std::string> atOnce = Merged(plugin, written, false);
        const std::vector<std::string> inPieces = Merged(plugin, written, true);
        EXPECT_TRUE(atOnce == inPieces || atOnce.empty() || inPieces.empty())
            << "PLYWELD_SEED=" << seed << '\n'
            << Print(written);
    }
}

// Music alone in its layer, all of it selected. Attachments of other entries are skipped.
WrittenScore OneLayerOf(WrittenScore score) {
    std::erase_if(score.frames, [](const auto& frame) { return frame.layer != 0; });
    score.layers = 4;
    score.selection = EREGION{0, 1, 1, 0, 0, 1, 1, kEndOfMeasure};
    score.selection.endSlot = static_cast<i16>(score.staves);
    score.selection.endMeasure = static_cast<i16>(score.measures);
    return score;
}

// A rest that launches a second voice is not replaced, so its music stays where it went.
bool HasSecondVoices(const WrittenScore& score) {
    return std::ranges::any_of(score.frames, [](const auto& frame) {
        return std::ranges::count(frame.words, "v2{") != 0;
    });
}

TEST(Properties, MovingAwayAndBackRestoresMusic) {
    const Plugin plugin;
    for (u32 seed = 1; seed <= MergeCount() / 10 && !HasFailure(); ++seed) {
        const WrittenScore written = OneLayerOf(MakeUpScore(seed));
        const std::unique_ptr<StandIn> host = Build(written);
        const FactsToTell stays = HasSecondVoices(written) ? kNotes : kNotesByLayer;
        const std::vector<std::string> before = FactLines(host->Score(), stays);
        plugin.Merge(*host, {.source = 0, .destination = 1, .rebeam = 0});
        plugin.Merge(*host, {.source = 1, .destination = 0, .rebeam = 0});
        EXPECT_EQ(FactLines(host->Score(), stays), before) << "PLYWELD_SEED=" << seed << '\n'
                                                           << Print(written);
    }
}

// Stops at each report of a run, until a run is not stopped any more.
TEST(Properties, StoppingChangesNothing) {
    const Plugin plugin;
    for (u64 report = 1, reports = 1; report <= reports; ++report) {
        StandIn host{4, 40};
        host.LayerEverywhere(0, "q:c4 q:r h:r");
        host.LayerEverywhere(1, "q:e4 q:f4 (3:2 e:g4 e:a4 e:b4) q:r");
        host.SelectAll();
        const DocumentContent before = host.Score().Content();
        App().ResetCounts();
        App().faults.stopAtProgress = report;
        plugin.Merge(host);
        const bool stopped = App().calls.progressReports == report && App().lastProgressStopped;
        reports = stopped ? report + 1 : report;
        EXPECT_EQ(host.Score().Content() == before, stopped) << report;
        EXPECT_EQ(host.Score().UndoTexts().empty(), stopped);
        EXPECT_EQ(App().redrawn.empty(), stopped);
        EXPECT_TRUE(App().alerts.empty());
        EXPECT_TRUE(stopped || report > 40) << report << " reports";
    }
}

}  // namespace
}  // namespace standin
