#include "host/cli/usage/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/cli/usage/option_values.h"
#include "host/cli/usage/spelling.h"

namespace standin::cli {

namespace {

// The name that CLI11 uses: "-o,--output" for an option, the argument's name for an argument.
void AddOption(CLI::App& app, const OptionRow& row) {
    const std::string names{row.names};
    if (row.kind == ValueKind::kNone) {
        app.add_flag(names)->take_all();
        return;
    }
    if (row.kind == ValueKind::kScores) {
        app.add_option(names)->take_all()->allow_extra_args();
        return;
    }
    // A missing value gets this program's own message.
    app.add_option(names)
        ->expected(row.IsArgument() ? 1 : 0, 1)
        ->take_all()
        ->allow_extra_args(false);
}

void AddOptions(CLI::App& app, std::span<const OptionRow> rows) {
    for (const OptionRow& row : rows) {
        AddOption(app, row);
    }
}

std::string WithSuggestion(Text text, const std::string& word,
                           const std::vector<std::string>& known) {
    const std::string closest = ClosestWord(word, known);
    const std::string problem = Say(text, {word});
    return closest.empty() ? problem : Say(Text::kDidYouMean, {problem, closest});
}

std::vector<std::string> CommandNames() {
    std::vector<std::string> names;
    for (const CommandRow& row : Commands()) {
        names.emplace_back(row.name);
    }
    return names;
}

std::vector<std::string> OptionNames(std::span<const OptionRow> rows) {
    std::vector<std::string> names;
    for (const OptionRow& row : CommonOptions()) {
        names.push_back(row.LongName());
    }
    for (const OptionRow& row : rows) {
        if (!row.IsArgument()) {
            names.push_back(row.LongName());
        }
    }
    return names;
}

// The first unknown word; empty if all words are known.
std::string UnknownWord(const CLI::App& app, const CommandRow* command) {
    for (const std::string& word : app.remaining(false)) {
        if (word.size() > 1 && word.front() == '-') {
            return WithSuggestion(Text::kUnknownOption, word.substr(0, word.find('=')),
                                  OptionNames(ProgramOptions()));
        }
        return WithSuggestion(Text::kUnknownCommand, word, CommandNames());
    }
    if (command == nullptr) {
        return {};
    }
    for (const std::string& word : app.get_subcommand(std::string{command->name})->remaining()) {
        if (word.size() > 1 && word.front() == '-') {
            return WithSuggestion(Text::kUnknownOption, word.substr(0, word.find('=')),
                                  OptionNames(command->options));
        }
        return Say(Text::kUnexpectedArgument, {word});
    }
    return {};
}

// Collects the values of these options; returns the first error.
std::string TakeValues(const CLI::App& app, std::span<const OptionRow> rows, Arguments& arguments) {
    std::string problem;
    for (const OptionRow& row : rows) {
        const CLI::Option* option = app.get_option(row.LongName());
        if (option->count() == 0) {
            continue;
        }
        const std::vector<std::string> values = option->results();
        arguments.values[row.id] = values;
        if (problem.empty()) {
            problem = ProblemOf(row, values);
        }
    }
    return problem;
}

// After "--" every word names a file. A folder before the name keeps it from being read as an
// option.
void EndOptions(std::vector<std::string>& words) {
    const auto mark = std::ranges::find(words, "--");
    if (mark == words.end()) {
        return;
    }
    for (auto word = words.erase(mark); word != words.end(); ++word) {
        if (word->size() > 1 && word->front() == '-') {
            word->insert(0, "./");
        }
    }
}

std::string MissingArgument(const Arguments& arguments) {
    for (const OptionRow& row : arguments.command->options) {
        if (row.required && !arguments.Has(row.id)) {
            const std::string value = row.value.empty() ? "" : " " + std::string{row.value};
            const bool isShort = row.names.find(',') != row.names.npos;
            const std::string name =
                isShort ? std::string{row.names.substr(0, row.names.find(','))} : row.LongName();
            return Say(Text::kMissingArgument, {name + value});
        }
    }
    return {};
}

}  // namespace

std::string Arguments::Value(OptionId id, std::string_view initial) const {
    const auto found = values.find(id);
    return found == values.end() ? std::string{initial} : found->second.back();
}

Arguments TakeApart(std::vector<std::string> words) {
    CLI::App app;
    app.set_help_flag();
    app.allow_windows_style_options(false);  // paths may begin with a slash there, too
    app.allow_extras();
    app.require_subcommand(0, 1);  // a score may be named like a command
    AddOptions(app, ProgramOptions());
    for (const CommandRow& row : Commands()) {
        CLI::App* command = app.add_subcommand(std::string{row.name});
        command->set_help_flag();
        command->allow_extras();
        AddOptions(*command, row.options);
        AddOptions(*command, CommonOptions());
    }
    Arguments arguments;
    EndOptions(words);
    try {
        std::ranges::reverse(words);  // as CLI11 wants them
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        arguments.problem = error.what();
        return arguments;
    }
    for (const CLI::App* command : app.get_subcommands()) {
        arguments.command =
            arguments.command == nullptr ? FindCommand(command->get_name()) : arguments.command;
    }
    arguments.problem = UnknownWord(app, arguments.command);
    std::string wrong = TakeValues(app, ProgramOptions(), arguments);
    if (arguments.command != nullptr) {
        const CLI::App& command = *app.get_subcommand(std::string{arguments.command->name});
        const std::string wrongCommon = TakeValues(command, CommonOptions(), arguments);
        wrong = wrong.empty() ? wrongCommon : wrong;
        const std::string wrongValue = TakeValues(command, arguments.command->options, arguments);
        wrong = wrong.empty() ? wrongValue : wrong;
    }
    const bool wantsText = arguments.Has(OptionId::kHelp) || arguments.Has(OptionId::kVersion);
    if (arguments.problem.empty() && !wantsText) {
        arguments.problem = wrong;
        if (wrong.empty() && arguments.command != nullptr) {
            arguments.problem = MissingArgument(arguments);
        }
    }
    return arguments;
}

}  // namespace standin::cli
