#include <algorithm>
#include <cctype>

#include "host/cli/usage/help_text.h"

namespace standin::cli {

namespace {

// Escapes text for troff: hyphens that can be copied, and no accidental commands.
std::string Troff(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '-' || c == '\\') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Troff(text) + "\\fR";
}

std::string Section(std::string_view name) {
    return ".SH " + std::string{name} + '\n';
}

std::string Paragraph(const std::string& term, std::string_view text) {
    return ".TP\n" + term + '\n' + Troff(text) + '\n';
}

std::string OptionParagraph(const OptionRow& row) {
    std::string names;
    std::string_view rest = row.names;
    while (!rest.empty()) {
        const std::string_view name = rest.substr(0, rest.find(','));
        names += (names.empty() ? "" : ", ") + Bold(name);
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    if (!row.value.empty()) {
        names += " \\fI" + std::string{row.value} + "\\fR";
    }
    std::string text{Say(row.help)};
    if (!row.choices.empty()) {
        text += " (" + std::string{row.choices} + ")";
    }
    if (!row.initial.empty()) {
        text += "; " + Say(Text::kDefault, {std::string{row.initial}});
    }
    return Paragraph(names, text + ".");
}

std::string InCapitals(std::string_view text) {
    std::string capitals{text};
    std::ranges::transform(capitals, capitals.begin(), [](unsigned char c) {
        return static_cast<char>(c < 0x80 ? std::toupper(c) : c);
    });
    return capitals;
}

}  // namespace

std::string ManualPage() {
    std::string page = ".TH PLYWELD 1 \"\" \"Plyweld " PLYWELD_VERSION "\"\n";
    page += Section(Say(Text::kManualName)) + "plyweld \\- " + Say(Text::kManualSubject, {}) + "\n";
    page += Section(Say(Text::kManualSynopsis));
    for (const CommandRow& command : Commands()) {
        if (command.forPeople) {
            page += Bold("plyweld " + std::string{command.name}) + " ...\n.br\n";
        }
    }
    page += Section(Say(Text::kManualDescription)) + Troff(Say(Text::kProgramPurpose)) + '\n';
    page += Section(Say(Text::kManualExamples));
    for (const Example& example : Examples()) {
        page += Paragraph(Bold(example.line), Say(example.what));
    }
    for (const CommandRow& command : Commands()) {
        if (command.forPeople) {
            page += Section("\"PLYWELD " + InCapitals(command.name) + "\"");
            page += Troff(Say(command.purpose)) + ".\n";
            for (const OptionRow& row : command.options) {
                page += OptionParagraph(row);
            }
        }
    }
    page += Section(Say(Text::kManualOptions));
    for (const OptionRow& row : ProgramOptions()) {
        page += OptionParagraph(row);
    }
    page += Section(Say(Text::kManualExit));
    for (const ExitCodeRow& row : ExitCodes()) {
        page += Paragraph(Bold(row.code), Say(row.meaning));
    }
    return page;
}

}  // namespace standin::cli
