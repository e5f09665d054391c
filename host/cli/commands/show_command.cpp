#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "host/cli/commands/commands.h"
#include "host/cli/commands/merge_run.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/open_score.h"
#include "host/cli/io/terminal.h"
#include "host/report/layer_contents.h"
#include "host/report/places.h"
#include "host/report/report_json.h"
#include "host/report/report_text.h"

namespace standin::cli {

namespace {

// How many measures of a staff have entries in each layer and in several layers.
struct LayersInUse {
    std::array<int, kLayers> measures{};
    int shared = 0;
};

// By staff, counted from 1 through the score.
std::map<u16, LayersInUse> LayersOf(const ImportedScore& score) {
    std::map<u16, LayersInUse> all;
    for (const StaffMeasureContent& content : ContentOf(score)) {
        LayersInUse& use = all[content.staff];
        int used = 0;
        for (std::size_t layer = 0; layer < content.layers.size(); ++layer) {
            const LayerContent& in = content.layers[layer];
            const bool hasEntries = in.entries + in.visibleRests + in.hiddenRests > 0;
            use.measures[layer] += hasEntries ? 1 : 0;
            used += hasEntries ? 1 : 0;
        }
        use.shared += used > 1 ? 1 : 0;
    }
    return all;
}

nlohmann::ordered_json Describe(const ImportedScore& score) {
    const Document& document = *score.document;
    nlohmann::ordered_json json;
    json["measures"] = document.MeasureCount();
    json["firstNumber"] = PrintedNumber(document, 1);
    json["lastNumber"] = PrintedNumber(document, document.MeasureCount());
    json["parts"] = nlohmann::ordered_json::array();
    auto inUse = LayersOf(score);
    u16 number = 0;
    for (const ScorePart& part : score.parts) {
        nlohmann::ordered_json entry{{"id", part.id}, {"name", part.name}};
        for (const StaffVoices& staff : part.staves) {
            const LayersInUse& use = inUse[++number];
            nlohmann::ordered_json layers = nlohmann::ordered_json::array();
            for (u16 layer = 0; layer < kLayers; ++layer) {
                if (use.measures[layer] > 0) {
                    layers.push_back({{"layer", layer + 1},
                                      {"voice", staff.names[layer]},
                                      {"measures", use.measures[layer]}});
                }
            }
            entry["staves"].push_back(
                {{"staff", number}, {"layers", layers}, {"measuresWithSeveralLayers", use.shared}});
        }
        json["parts"].push_back(entry);
    }
    return json;
}

std::string ContentAsText(const nlohmann::ordered_json& json) {
    const auto count = [](const nlohmann::ordered_json& number) {
        return std::to_string(number.get<int>());
    };
    std::string text =
        Say(Text::kScoreExtent, {count(json["measures"]), json["firstNumber"].get<std::string>(),
                                 json["lastNumber"].get<std::string>()}) +
        '\n';
    for (const auto& part : json["parts"]) {
        text += part["name"].get<std::string>() + " (" + part["id"].get<std::string>() + ")\n";
        for (const auto& staff : part["staves"]) {
            text += "  " + Say(Text::kStaffHolds, {count(staff["staff"])});
            for (const auto& layer : staff["layers"]) {
                text += ' ' +
                        Say(Text::kLayerIn, {count(layer["layer"]), count(layer["measures"])}) +
                        ',';
            }
            text += ' ' + Say(Text::kSeveralIn, {count(staff["measuresWithSeveralLayers"])}) + '\n';
        }
    }
    return text;
}

}  // namespace

// A merge that is not written shows the effect of one.
ExitCode Show(const ShowCommand& command) {
    const OpenScore open{command.input, OwnLayers{true}};
    if (!open) {
        return kUnreadable;
    }
    nlohmann::ordered_json json = Describe(open.Score());
    const EREGION whole = open.GetDocument().WholeRegion();
    const MergeRun run = RunMerge(open.GetDocument(), whole, {});
    if (!run.problem.empty()) {
        Complain(command.input + ": " + run.problem);
        return run.stopped ? kInterrupted : kFailed;
    }
    MergeReport report = ReportMerge(open.Score(), {command.input, {}, {whole}, {}});
    AddRemarks(open.Score(), report);
    if (command.json) {
        json["merge"] = ReportAsJson(report);
        std::cout << json.dump(2) << '\n';
    } else {
        std::cout << ContentAsText(json) << Say(Text::kMergeOfAll) << '\n'
                  << ReportAsText(report, false, OutputPaint());
    }
    return kDone;
}

}  // namespace standin::cli
