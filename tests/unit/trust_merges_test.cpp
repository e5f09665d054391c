// Merges of made-up music. PLYWELD_MERGES sets their number, PLYWELD_SEED repeats one.
#include <map>

#include "host/verify/merge_faults.h"
#include "tests/unit/support/mannered.h"
#include "tests/unit/support/merge_count.h"
#include "tests/unit/support/score_generator.h"

namespace standin {
namespace {

std::string UndoAndRedo(Document& document, const DocumentContent& before,
                        const DocumentContent& after) {
    if (before == after) {
        return {};
    }
    std::string text;
    text += document.Undo() && document.Content() == before ? "" : "undo does not restore\n";
    text += document.Redo() && document.Content() == after ? "" : "redo does not restore\n";
    return text;
}

struct Outcome {
    std::string problem;  // empty when all is well
    bool moved = false;   // music changed its layer
};

std::map<FrameKey, int> NotesByLayer(const DocumentContent& content) {
    std::map<FrameKey, int> notes;
    for (const auto& [key, frame] : content.frames) {
        for (const EXENTRY& entry : frame.entries) {
            notes[key] += entry.noteCount;
        }
    }
    return notes;
}

// Merges twice.
Outcome MergeAndCheck(const Plugin& plugin, const WrittenScore& written) {
    const std::unique_ptr<StandIn> host = Build(written);
    Document& document = host->Score();
    const DocumentContent before = document.Content();
    const DocumentContent start = StartOfMerge(document, written.options);
    App().ResetCounts();
    App().alerts.clear();
    App().faults.guardFrames = true;
    plugin.Merge(*host, written.options);
    Outcome outcome;
    std::string& problem = outcome.problem;
    problem += App().calls.flagsOutOfStep == 0 ? "" : "frames saved with flags out of step\n";
    const DocumentContent after = document.Content();
    if (!App().alerts.empty()) {
        // Music that the host cannot measure may stop a run; music that would be lost may not.
        const std::string text = AlertTexts();
        if (text.find("Cannot process notes that are invisible") == std::string::npos) {
            problem += text;
        }
        problem += after == before ? "" : "an alert, but the score changed\n";
        return outcome;
    }
    outcome.moved = NotesByLayer(start) != NotesByLayer(after);
    problem += Lines(FaultsOfMerge(document, start, after, written.options));
    problem += UndoAndRedo(document, before, after);
    if (written.options.mode == 0) {
        App().faults.guardFrames = false;  // once is enough
        plugin.Merge(*host, written.options);
        const std::string again =
            Lines(FaultsOfMerge(document, after, document.Content(), written.options));
        problem += again.empty() ? "" : "again: " + again;
    }
    return outcome;
}

WrittenScore Shrunk(const Plugin& plugin, WrittenScore written) {
    std::vector<WrittenScore> smaller = SmallerThan(written);
    for (int tries = 3000; tries > 0 && !smaller.empty(); --tries) {
        if (!MergeAndCheck(plugin, smaller.back()).problem.empty()) {
            written = smaller.back();
            smaller = SmallerThan(written);
        } else {
            smaller.pop_back();
        }
    }
    return written;
}

// Returns how many were merged.
u32 MergeMany(u32 count) {
    const Plugin plugin;
    const u32 first = NumberFromEnvironment("PLYWELD_SEED", 1);
    const u32 last = std::getenv("PLYWELD_SEED") != nullptr ? first : count;
    u32 tried = 0;
    u32 moved = 0;
    for (u32 seed = first; seed <= last && !testing::Test::HasFailure(); ++seed, ++tried) {
        const WrittenScore written = MakeUpScore(seed);
        const Outcome outcome = MergeAndCheck(plugin, written);
        moved += outcome.moved ? 1 : 0;
        if (!outcome.problem.empty()) {
            const WrittenScore smallest = Shrunk(plugin, written);
            ADD_FAILURE() << "PLYWELD_SEED=" << seed << '\n'
                          << Print(smallest) << MergeAndCheck(plugin, smallest).problem;
        }
    }
    EXPECT_TRUE(tried == 1 || moved * 2 > tried) << moved << " of " << tried << " moved music";
    return tried;
}

TEST(MadeUpScores, LoseNothing) {
    RecordProperty("merges", std::to_string(MergeMany(MergeCount())));
}

class MadeUpScoresOn : public testing::TestWithParam<Manner> {};

TEST_P(MadeUpScoresOn, LoseNothing) {
    const Mannered mannered{GetParam()};
    RecordRuns(GetParam(), MergeMany(MergeCount() / 5));
}

INSTANTIATE_TEST_SUITE_P(HostsThatAre, MadeUpScoresOn, testing::ValuesIn(kManners), NameOfManner);

}  // namespace
}  // namespace standin
