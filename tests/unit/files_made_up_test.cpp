// Made-up MusicXML, merged with the command as a user would. PLYWELD_FILES sets how many scores,
// PLYWELD_SEED repeats one.
#include <array>
#include <cstdlib>

#include "host/cli/run_command.h"
#include "host/cli/usage/command_line.h"
#include "host/score/application.h"
#include "tests/unit/musicxml_support.h"
#include "tests/unit/support/files.h"
#include "tests/unit/support/made_up_xml.h"
#include "tests/unit/support/merge_count.h"

namespace standin {
namespace {

using Words = std::vector<std::string>;

const std::array<Words, 6> kWays = {{
    {"--from", "all", "--to", "1"},
    {"--from", "2", "--to", "1"},
    {"--from", "1", "--to", "2", "--hide-rests"},
    {"--from", "1", "--to", "3"},
    {"--from", "all", "--to", "2", "--from-beat", "1.5"},
    {"--from", "all", "--to", "1", "--staves", "1", "--to-beat", "2"},
}};

#ifdef __SANITIZE_ADDRESS__
constexpr u32 kScores = 100;  // slower there
#else
constexpr u32 kScores = 1000;
#endif

class MadeUpFiles : public testing::Test {
protected:
    // The error; empty if the merge lost nothing.
    std::string Merge(const std::string& text, const Words& way) const {
        App().Reset();
        const std::string input = (folder / "in.musicxml").string();
        std::ofstream{input, std::ios::binary} << text;
        Words arguments = {"merge",    input,    "-o", (folder / "out.musicxml").string(),
                           "--verify", "--quiet"};
        arguments.insert(arguments.end(), way.begin(), way.end());
        testing::internal::CaptureStderr();
        const int exitCode = cli::RunCommandLine(arguments);
        const std::string errors = testing::internal::GetCapturedStderr();
        return exitCode == cli::kDone ? "" : std::to_string(exitCode) + ": " + errors;
    }

    // A smaller score that also fails.
    std::string Shrunk(u32 seed, const Words& way) const {
        MadeUpWishes smaller;
        const MadeUpXml whole = MakeUpXml(seed);
        for (int feature = 0; feature < whole.features; ++feature) {
            smaller.without.insert(feature);
            if (Merge(MakeUpXml(seed, smaller).text, way).empty()) {
                smaller.without.erase(feature);
            }
        }
        return MakeUpXml(seed, smaller).text;
    }

    TemporaryFolder folder;
};

TEST_F(MadeUpFiles, LoseNothing) {
    const u32 first = NumberFromEnvironment("PLYWELD_SEED", 1);
    const u32 last = std::getenv("PLYWELD_SEED") != nullptr
                         ? first
                         : NumberFromEnvironment("PLYWELD_FILES", kScores);
    for (u32 seed = first; seed <= last && !HasFailure(); ++seed) {
        const std::string text = MakeUpXml(seed).text;
        for (const u32 more : {0U, 1U}) {
            const Words& way = kWays[(2 * seed + more) % kWays.size()];
            const std::string problem = Merge(text, way);
            if (!problem.empty()) {
                const std::string smallest = Shrunk(seed, way);
                ADD_FAILURE() << "PLYWELD_SEED=" << seed << ' ' << testing::PrintToString(way)
                              << '\n'
                              << problem << smallest << Merge(smallest, way);
            }
        }
    }
    RecordProperty("merges", static_cast<int>(2 * (last - first + 1)));
}

}  // namespace
}  // namespace standin
