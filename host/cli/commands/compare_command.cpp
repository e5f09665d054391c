#include <algorithm>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "host/cli/commands/commands.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/output_file.h"
#include "host/musicxml/xml/file_bytes.h"
#include "host/readback/compare/compare.h"
#include "host/readback/read/read_content.h"
#include "host/report/report_text.h"

namespace standin::cli {

namespace {

using Differences = std::vector<readback::Difference>;

constexpr int kFormat = 1;  // changes when a program that reads the JSON would have to

readback::Reading Read(const std::string& name, readback::Texts& texts) {
    if (name == kStandardStream) {
        return readback::ReadContent({std::istreambuf_iterator<char>{std::cin}, {}}, texts);
    }
    FileBytes file = ReadFileBytes(PathOf(name));
    return file.problem.empty() ? readback::ReadContent(std::move(file.bytes), texts)
                                : readback::Reading{nullptr, std::move(file.problem), 0};
}

// If the score cannot be read, prints the reason to standard error.
std::unique_ptr<readback::Score> Open(const std::string& name, readback::Texts& texts) {
    readback::Reading reading = Read(name, texts);
    if (reading.score == nullptr) {
        Complain(PlaceIn(name, reading.line) + ": " + reading.problem);
    }
    return std::move(reading.score);
}

const char* NameOf(readback::Difference::Kind kind) {
    switch (kind) {
        case readback::Difference::Kind::kLost:
            return "lost";
        case readback::Difference::Kind::kGained:
            return "gained";
        case readback::Difference::Kind::kOther:
            break;
    }
    return "other";
}

nlohmann::ordered_json AsJson(const readback::Difference& difference) {
    nlohmann::ordered_json json{{"kind", NameOf(difference.kind)}};
    if (difference.part != 0) {
        json["part"] = difference.part;
        json["measure"] = difference.measure;
        json["number"] = difference.number;
    }
    if (difference.staff != 0) {
        json["staff"] = difference.staff;
    }
    if (difference.beat) {
        json["beat"] = *difference.beat;
    }
    json["what"] = difference.what;
    json["text"] = WordsFor(difference);
    return json;
}

nlohmann::ordered_json AsJson(const CompareCommand& command, const Differences& differences) {
    using Json = nlohmann::ordered_json;
    Json totals{{"lost", 0}, {"gained", 0}, {"other", 0}};
    Json all = Json::array();
    for (const readback::Difference& difference : differences) {
        Json& total = totals[NameOf(difference.kind)];
        total = total.get<int>() + 1;
        all.push_back(AsJson(difference));
    }
    return {{"format", kFormat},           {"program", "Plyweld " PLYWELD_VERSION},
            {"first", command.first},      {"second", command.second},
            {"merged", command.merged},    {"same", differences.empty()},
            {"totals", std::move(totals)}, {"differences", std::move(all)}};
}

void PrintText(const CompareCommand& command, const Differences& differences) {
    std::vector<std::string> lines;
    lines.reserve(differences.size());
    std::ranges::transform(differences, std::back_inserter(lines), readback::WordsFor);
    if (lines.empty()) {
        lines.emplace_back(Say(command.merged ? Text::kNothingLost : Text::kSameMusic));
    }
    std::cout << ListOf(lines, "", command.details);
}

}  // namespace

ExitCode CompareScores(const CompareCommand& command) {
    readback::Texts texts;
    const auto first = Open(command.first, texts);
    if (first == nullptr) {
        return kUnreadable;
    }
    const auto second = Open(command.second, texts);
    if (second == nullptr) {
        return kUnreadable;
    }
    const Differences differences = command.merged ? readback::FaultsOfMerge(*first, *second, texts)
                                                   : readback::Differences(*first, *second, texts);
    if (command.json) {
        std::cout << AsJson(command, differences).dump(2) << '\n';
    } else {
        PrintText(command, differences);
    }
    return differences.empty() ? kDone : kFailed;
}

}  // namespace standin::cli
