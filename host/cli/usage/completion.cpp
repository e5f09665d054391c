#include "host/cli/usage/completion.h"

#include <algorithm>
#include <vector>

#include "host/cli/usage/option_table.h"

namespace standin::cli {

namespace {

constexpr std::string_view kScoreEndings[] = {"musicxml", "xml", "mxl"};

// "-o" and "--output" of "-o,--output".
std::vector<std::string> NamesOf(const OptionRow& row) {
    std::vector<std::string> names;
    std::string_view rest = row.names;
    while (!rest.empty()) {
        const std::string_view name = rest.substr(0, rest.find(','));
        names.emplace_back(name);
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return names;
}

// The endings of the files that a value may name, as patterns of shells separate them; empty when
// it names none.
std::string_view EndingsOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::kScore:
        case ValueKind::kScores:
        case ValueKind::kOutputScore:
            return "musicxml|xml|mxl";
        case ValueKind::kPage:
            return "html";
        default:
            return {};
    }
}

// In single quotes, for every shell.
std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string{"'\\''"} : std::string{c};
    }
    return quoted + "'";
}

std::string JoinedNames(std::span<const OptionRow> rows) {
    std::string joined;
    for (const OptionRow& row : rows) {
        for (const std::string& name : NamesOf(row)) {
            joined += row.IsArgument() ? "" : name + ' ';
        }
    }
    for (const OptionRow& row : CommonOptions()) {
        for (const std::string& name : NamesOf(row)) {
            joined += name + ' ';
        }
    }
    joined.pop_back();
    return joined;
}

std::string WordsOfCommands() {
    std::string names;
    for (const CommandRow& command : Commands()) {
        names += command.forPeople ? std::string{command.name} + ' ' : "";
    }
    return names.substr(0, names.size() - 1);
}

// The choices of a command's first argument; empty when it takes none.
std::string_view ArgumentChoices(const CommandRow& command) {
    const bool hasOne = !command.options.empty() && command.options.front().IsArgument();
    return hasOne ? command.options.front().choices : std::string_view{};
}

std::string BashFiles(ValueKind kind) {
    return "_plyweld_files '" + std::string{EndingsOf(kind)} + "'";
}

std::string BashValue(const OptionRow& row) {
    std::string pattern;
    for (const std::string& name : NamesOf(row)) {
        pattern += (pattern.empty() ? "" : "|") + name;
    }
    const std::string start = "    " + pattern + ") ";
    if (!row.choices.empty()) {
        return start + "COMPREPLY=($(compgen -W " + Quoted(row.choices) +
               " -- \"$word\")); return ;;\n";
    }
    return start + (EndingsOf(row.kind).empty() ? "" : BashFiles(row.kind) + "; ") + "return ;;\n";
}

std::string BashScript() {
    std::string script =
        "# bash completion for plyweld\n"
        "_plyweld_files() {\n"
        "    compopt -o filenames 2>/dev/null\n"
        "    mapfile -t COMPREPLY < <(compgen -d -- \"$word\"; compgen -f -X "
        "\"!*.@($1)\" -- \"$word\")\n"
        "}\n"
        "_plyweld() {\n"
        "    shopt -q extglob || shopt -s extglob\n"
        "    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
        "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
        "        COMPREPLY=($(compgen -W '" +
        WordsOfCommands() +
        " -h --help --color -V --version' -- \"$word\"))\n"
        "        return\n"
        "    fi\n"
        "    case ${COMP_WORDS[1]} in\n";
    for (const CommandRow& command : Commands()) {
        script += "    " + std::string{command.name} + ")\n    case $previous in\n";
        for (const OptionRow& row : command.options) {
            script += row.IsArgument() || row.kind == ValueKind::kNone ? "" : BashValue(row);
        }
        for (const OptionRow& row : CommonOptions()) {
            script += row.kind == ValueKind::kNone ? "" : BashValue(row);
        }
        const std::string_view choices = ArgumentChoices(command);
        const ValueKind first =
            command.options.empty() ? ValueKind::kNone : command.options.front().kind;
        script += "    esac\n    case $word in\n    -*) COMPREPLY=($(compgen -W " +
                  Quoted(JoinedNames(command.options)) + " -- \"$word\")) ;;\n";
        if (!choices.empty()) {
            script += "    *) COMPREPLY=($(compgen -W " + Quoted(choices) + " -- \"$word\")) ;;\n";
        } else if (!EndingsOf(first).empty()) {
            script += "    *) " + BashFiles(first) + " ;;\n";
        }
        script += "    esac ;;\n";
    }
    return script + "    esac\n}\ncomplete -F _plyweld plyweld\n";
}

// Text inside the brackets of an argument's description.
std::string ZshText(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == ':' || c == '[' || c == ']' ? std::string{'\\', c} : std::string{c};
    }
    return escaped;
}

std::string ZshAction(const OptionRow& row) {
    if (!row.choices.empty()) {
        return ":value:(" + std::string{row.choices} + ")";
    }
    const std::string endings{EndingsOf(row.kind)};
    return endings.empty() ? ":value:" : ":file:_files -g \"*.(" + endings + ")\"";
}

// One argument of _arguments for each name of the option.
std::vector<std::string> ZshSpecs(const OptionRow& row) {
    if (row.IsArgument()) {
        return {Quoted((row.kind == ValueKind::kScores ? "*" : "") + ZshAction(row))};
    }
    const std::string action = row.kind == ValueKind::kNone ? "" : ZshAction(row);
    std::vector<std::string> specs;
    for (const std::string& name : NamesOf(row)) {
        std::string spec = name;
        spec.append("[").append(ZshText(Say(row.help))).append("]").append(action);
        specs.push_back(Quoted(spec));
    }
    return specs;
}

std::string ZshArguments(const CommandRow& command) {
    std::string text = "    " + std::string{command.name} + ")\n        _arguments";
    for (const OptionRow& row : command.options) {
        for (const std::string& spec : ZshSpecs(row)) {
            text += " \\\n            " + spec;
        }
    }
    for (const OptionRow& row : CommonOptions()) {
        for (const std::string& spec : ZshSpecs(row)) {
            text += " \\\n            " + spec;
        }
    }
    return text + "\n        ;;\n";
}

std::string ZshScript() {
    std::string script =
        "#compdef plyweld\n"
        "_plyweld() {\n"
        "    local -a commands\n"
        "    commands=(\n";
    for (const CommandRow& command : Commands()) {
        if (command.forPeople) {
            script += "        " +
                      Quoted(std::string{command.name} + ":" + ZshText(Say(command.purpose))) +
                      '\n';
        }
    }
    script +=
        "    )\n"
        "    if (( CURRENT == 2 )); then\n"
        "        _describe command commands\n"
        "        return\n"
        "    fi\n"
        "    local command=$words[2]\n"
        "    words=(\"${(@)words[2,-1]}\")\n"
        "    (( CURRENT-- ))\n"
        "    case $command in\n";
    for (const CommandRow& command : Commands()) {
        script += ZshArguments(command);
    }
    return script + "    esac\n}\n_plyweld \"$@\"\n";
}

std::string FishOption(const OptionRow& row, const std::string& condition) {
    std::string line = "complete -c plyweld -n " + Quoted(condition);
    for (const std::string& name : NamesOf(row)) {
        if (name.starts_with("--")) {
            line += " -l " + name.substr(2);
        } else if (name.starts_with("-")) {
            line += " -s " + name.substr(1);
        }
    }
    line += " -d " + Quoted(Say(row.help));
    if (row.kind != ValueKind::kNone) {
        line += row.choices.empty() ? (EndingsOf(row.kind).empty() ? " -x" : " -r -F")
                                    : " -x -a " + Quoted(row.choices);
    }
    return line + '\n';
}

std::string FishScript() {
    std::string script = "# fish completion for plyweld\ncomplete -c plyweld -f\n";
    for (const CommandRow& command : Commands()) {
        if (command.forPeople) {
            script += "complete -c plyweld -n __fish_use_subcommand -a " +
                      std::string{command.name} + " -d " + Quoted(Say(command.purpose)) + '\n';
        }
        const std::string condition = "__fish_seen_subcommand_from " + std::string{command.name};
        for (const OptionRow& row : command.options) {
            if (!row.IsArgument()) {
                script += FishOption(row, condition);
            } else if (!row.choices.empty()) {
                script += "complete -c plyweld -n " + Quoted(condition) + " -a " +
                          Quoted(row.choices) + '\n';
            } else if (!EndingsOf(row.kind).empty()) {
                for (const std::string_view ending : kScoreEndings) {
                    script += "complete -c plyweld -n " + Quoted(condition) +
                              " -a '(__fish_complete_suffix ." + std::string{ending} + ")'\n";
                }
            }
        }
        for (const OptionRow& row : CommonOptions()) {
            script += FishOption(row, condition);
        }
    }
    for (const OptionRow& row : ProgramOptions()) {
        script += FishOption(row, "__fish_use_subcommand");
    }
    return script;
}

}  // namespace

std::string CompletionScript(std::string_view shell) {
    if (shell == "bash") {
        return BashScript();
    }
    if (shell == "zsh") {
        return ZshScript();
    }
    return shell == "fish" ? FishScript() : std::string{};
}

}  // namespace standin::cli
