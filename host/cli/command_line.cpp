#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iostream>

namespace standin::cli {

namespace {

// "5-12", "5-" or "5": a first number and maybe a last one.
struct Range {
    int first = 1;
    std::optional<int> last;
};

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 1 || number > 32767) {
        return std::nullopt;
    }
    return number;
}

std::optional<Range> ParseRange(const std::string& text) {
    const std::size_t dash = text.find('-');
    const auto first = WholeNumber(std::string_view{text}.substr(0, dash));
    if (!first) {
        return std::nullopt;
    }
    if (dash == std::string::npos) {
        return Range{*first, *first};
    }
    if (dash + 1 == text.size()) {
        return Range{*first, std::nullopt};
    }
    const auto last = WholeNumber(std::string_view{text}.substr(dash + 1));
    if (!last || *last < *first) {
        return std::nullopt;
    }
    return Range{*first, *last};
}

CLI::Validator RangeCheck() {
    return {[](const std::string& text) {
                return ParseRange(text) ? std::string{}
                                        : "\"" + text + "\" is no range such as 5-12";
            },
            "FIRST-LAST"};
}

// From 1 on; a range would let what is no number pass.
CLI::Validator BeatCheck() {
    return {[](const std::string& text) {
                double beat = 0;
                const char* last = text.data() + text.size();
                const auto [end, error] = std::from_chars(text.data(), last, beat);
                const bool isBeat =
                    error == std::errc{} && end == last && beat >= 1 && beat <= 1000;
                return isBeat ? std::string{} : "\"" + text + "\" is no beat such as 2.5";
            },
            ""};
}

void AddMerge(CLI::App& app, MergeCommand& merge, std::string& from, std::string& measures,
              std::string& staves) {
    CLI::App* command = app.add_subcommand("merge", "Merge layers into one");
    command
        ->add_option("IN", merge.input,
                     "MusicXML score (.musicxml, .xml, .mxl), - for standard input")
        ->required();
    command->add_option("-o", merge.output, "File to write (.mxl is zipped), - for standard output")
        ->type_name("OUT")
        ->required();
    command->add_option("--from", from, "Source layer, or all")
        ->type_name("all|1..4")
        ->check(CLI::IsMember({"all", "1", "2", "3", "4"}));
    command
        ->add_option_function<int>(
            "--to",
            [&merge](int layer) { merge.options.destination = static_cast<u16>(layer - 1); },
            "Destination layer")
        ->type_name("1..4")
        ->check(CLI::Range(1, 4));
    const auto addOptionFlag = [command](const char* name, u16& option, u16 value,
                                         const char* help) {
        command->add_flag_callback(
            name, [&option, value] { option = value; }, help);
    };
    addOptionFlag("--replace", merge.options.mode, 1,
                  "Clear the destination layer in the selection first");
    addOptionFlag("--hide-rests", merge.options.hideRests, 1,
                  "Hide the rests left behind in a source layer");
    addOptionFlag("--no-rebeam", merge.options.rebeam, 0, "Leave the beams as they are");
    command->add_option("--measures", measures, "Measures, counted from the first one")
        ->check(RangeCheck());
    command
        ->add_option("--from-beat", merge.selection.firstBeat,
                     "Start at this beat of the first measure")
        ->type_name("BEAT")
        ->check(BeatCheck());
    command
        ->add_option("--to-beat", merge.selection.lastBeat,
                     "End with this beat of the last measure")
        ->type_name("BEAT")
        ->check(BeatCheck());
    command->add_option("--staves", staves, "Staves, counted from the top")->check(RangeCheck());
    command->add_flag("--verify", merge.verify, "Write only when no music was lost");
    command->add_flag("--json", merge.json, "Report as JSON");
    command->add_flag("--quiet", merge.quiet, "Report nothing");
}

void Fill(MergeCommand& merge, const std::string& from, const std::string& measures,
          const std::string& staves) {
    if (from != "all") {
        merge.options.source = static_cast<u16>(from[0] - '1');
    }
    const Range measureRange = ParseRange(measures).value_or(Range{});
    merge.selection.firstMeasure = measureRange.first;
    merge.selection.lastMeasure = measureRange.last;
    const Range staffRange = ParseRange(staves).value_or(Range{});
    merge.selection.firstStaff = staffRange.first;
    merge.selection.lastStaff = staffRange.last;
}

ExitCode Report(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        app.exit(error);
        return kDone;
    }
    std::cerr << "plyweld: " << error.what() << " (plyweld --help tells more)\n";
    return kUsage;
}

}  // namespace

std::variant<Command, ExitCode> ParseCommandLine(std::vector<std::string> arguments) {
    CLI::App app{
        "Plyweld merges the layers of a score: notes that start together become chords,\n"
        "and rests are filled with the music of the other layers.",
        "plyweld"};
    app.set_version_flag("--version", PLYWELD_VERSION);
    app.require_subcommand(1);
    MergeCommand merge;
    std::string from = "all";
    std::string measures;
    std::string staves;
    AddMerge(app, merge, from, measures, staves);

    ShowCommand show;
    CLI::App* showApp =
        app.add_subcommand("show", "What a score holds and what a merge would find");
    showApp->add_option("IN", show.input, "MusicXML score, - for standard input")->required();
    showApp->add_flag("--json", show.json, "Report as JSON");

    CompareCommand compare;
    CLI::App* compareApp = app.add_subcommand("compare", "Compare two scores as music");
    compareApp->add_option("A", compare.first, "MusicXML score, - for standard input")->required();
    compareApp->add_option("B", compare.second, "MusicXML score")->required();

    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return Report(app, error);
    }
    if (app.got_subcommand("merge")) {
        Fill(merge, from, measures, staves);
        return Command{merge};
    }
    if (app.got_subcommand("show")) {
        return Command{show};
    }
    return Command{compare};
}

}  // namespace standin::cli
