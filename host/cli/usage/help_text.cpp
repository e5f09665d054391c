#include "host/cli/usage/help_text.h"

#include <algorithm>

#include "host/cli/io/installation.h"
#include "host/cli/io/terminal.h"

namespace standin::cli {

namespace {

constexpr std::size_t kColumn = 26;  // where explanations start
constexpr std::size_t kWidth = 96;

constexpr Example kExamples[] = {
    {"plyweld merge score.mxl -o merged.mxl", Text::kExampleCarol},
    {"plyweld merge score.mxl -o merged.mxl --from 2 --to 1 --measures 5-12", Text::kExamplePart},
    {"plyweld merge scores -o merged --verify", Text::kExampleBatch},
    {"plyweld show score.mxl", Text::kExampleShow},
};

constexpr ExitCodeRow kExitCodes[] = {
    {"0", Text::kExitDone},       {"1", Text::kExitFailed},        {"2", Text::kExitUsage},
    {"3", Text::kExitUnreadable}, {"130", Text::kExitInterrupted},
};

std::string Heading(Text text) {
    return '\n' + OutputPaint()(Ink::kHeading, std::string{Say(text)} + ':') + '\n';
}

// The width of the text in columns: continuation bytes of UTF-8 do not count.
std::size_t Columns(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

// The term and, in a second column, the explanation, broken between words.
std::string Row(const std::string& term, std::string_view explanation) {
    std::string text = "  " + term;
    std::size_t at = Columns(text);
    if (at + 2 > kColumn) {
        text += '\n';
        at = 0;
    }
    bool isFirst = true;
    while (!explanation.empty()) {
        const std::string_view word = explanation.substr(0, explanation.find(' '));
        explanation.remove_prefix(std::min(explanation.size(), word.size() + 1));
        if (!isFirst && at + 1 + Columns(word) > kWidth) {
            text += '\n';
            at = 0;
            isFirst = true;
        }
        const std::size_t gap = isFirst ? kColumn - at : 1;
        text.append(gap, ' ').append(word);
        at += gap + Columns(word);
        isFirst = false;
    }
    return text + '\n';
}

std::string TermOf(const OptionRow& row) {
    std::string term{row.names};
    const std::size_t comma = term.find(',');
    if (comma != std::string::npos) {
        term.insert(comma + 1, " ");
    }
    return row.value.empty() ? term : term + ' ' + std::string{row.value};
}

// With the choices and the default value.
std::string ExplanationOf(const OptionRow& row) {
    std::string text{Say(row.help)};
    std::string notes;
    if (!row.choices.empty() && !row.IsArgument()) {
        notes = row.choices;
        std::replace(notes.begin(), notes.end(), ' ', '|');
    }
    if (!row.initial.empty()) {
        notes += notes.empty() ? "" : "; ";
        notes += Say(Text::kDefault, {std::string{row.initial}});
    }
    return notes.empty() ? text : text + " (" + notes + ")";
}

std::string OptionRows(std::span<const OptionRow> rows, bool arguments) {
    std::string text;
    for (const OptionRow& row : rows) {
        if (row.IsArgument() == arguments) {
            text += Row(TermOf(row), ExplanationOf(row));
        }
    }
    return text;
}

std::string UsageOf(const CommandRow& command) {
    std::string usage = "plyweld " + std::string{command.name};
    bool hasOptions = false;
    for (const OptionRow& row : command.options) {
        if (row.IsArgument()) {
            usage +=
                row.required ? " " + std::string{row.names} : " [" + std::string{row.names} + "]";
        } else if (row.id == OptionId::kOutput) {
            usage += " -o " + std::string{row.value};
        } else {
            hasOptions = true;
        }
    }
    return hasOptions ? usage + " [OPTION...]" : usage;
}

std::string ExampleRows() {
    std::string text;
    for (const Example& example : kExamples) {
        text +=
            "  " + std::string{example.line} + "\n      " + std::string{Say(example.what)} + '\n';
    }
    return text;
}

std::string ExitCodeRows() {
    std::string text;
    for (const ExitCodeRow& row : kExitCodes) {
        text += Row(std::string{row.code}, Say(row.meaning));
    }
    return text;
}

}  // namespace

std::span<const Example> Examples() {
    return kExamples;
}

std::span<const ExitCodeRow> ExitCodes() {
    return kExitCodes;
}

std::string ProgramHelp() {
    std::string text = std::string{Say(Text::kProgramPurpose)} + '\n';
    text += Heading(Text::kExamples) + ExampleRows();
    text += Heading(Text::kCommands);
    for (const CommandRow& command : Commands()) {
        if (command.forPeople) {
            text += Row(std::string{command.name}, Say(command.purpose));
        }
    }
    text += Heading(Text::kOptions) + OptionRows(ProgramOptions(), false);
    text += Heading(Text::kExitCodes) + ExitCodeRows();
    text += '\n' + std::string{Say(Text::kMoreHelp)} + '\n';
    const std::string guide = GuideFile();
    return guide.empty() ? text : text + Say(Text::kWhereTheGuideIs, {guide}) + '\n';
}

std::string CommandHelp(const CommandRow& command) {
    std::string text = std::string{Say(command.purpose)} + "\n";
    if (command.name == "merge") {
        text += Heading(Text::kExamples) + ExampleRows();
    }
    text += Heading(Text::kUsage) + "  " + UsageOf(command) + '\n';
    const std::string arguments = OptionRows(command.options, true);
    if (!arguments.empty()) {
        text += Heading(Text::kArguments) + arguments;
    }
    text += Heading(Text::kOptions) + OptionRows(command.options, false) +
            OptionRows(CommonOptions(), false);
    return text + Heading(Text::kExitCodes) + ExitCodeRows();
}

}  // namespace standin::cli
