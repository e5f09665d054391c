// A command of any plug-in, run on a score as its menu item would.
#include "host/cli/commands/commands.h"
#include "host/cli/commands/merge_run.h"
#include "host/cli/commands/plugin.h"
#include "host/cli/io/installation.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/open_score.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/score_bytes.h"
#include "platform/text.h"

namespace standin::cli {

namespace {

// A menu item without the dots that announce a dialog.
std::string TitleOf(const PluginItem& item) {
    std::u16string_view text = item.text;
    if (text.ends_with(u"...")) {
        text.remove_suffix(3);
    }
    return platform::Utf8Of(text);
}

// Whether an item is listed by this title: alone or, where a submenu is to gather the plug-in's
// items, behind the plug-in's name and version, which itself is the name of its first item.
bool IsTitled(const std::vector<PluginItem>& items, std::size_t item, const std::string& title) {
    const std::string text = TitleOf(items[item]);
    if (item == 0) {
        return text == title || (text.starts_with(title) && text[title.size()] == ' ');
    }
    return text == title || text == TitleOf(items[0]).append(" ").append(title);
}

// Runs the first command of this title that a plug-in lists. The text says what went wrong.
std::string RunTitled(const std::string& title, const EREGION& whole) {
    std::string problem;
    for (const std::string& file : PluginFiles()) {
        const auto plugin = Plugin::Start(problem, nullptr, file);
        if (plugin == nullptr) {
            return problem.insert(0, file + ": ");
        }
        for (std::size_t item = 0; item < plugin->Items().size(); ++item) {
            if (IsTitled(plugin->Items(), item, title)) {
                plugin->RunCommand(static_cast<int>(item), &whole, whole);
                return {};
            }
        }
    }
    return Say(Text::kNoSuchCommand, {title});
}

std::string Write(const std::string& output, ImportedScore& score) {
    std::string problem;
    const std::string bytes = BytesFor(output, score, problem);
    if (problem.empty()) {
        problem = WriteWhole(output, bytes);
    }
    return problem.empty() ? problem : output + ": " + problem;
}

}  // namespace

ExitCode RunPluginCommand(const PluginCommand& command) {
    const OpenScore open{command.input};
    if (!open) {
        return kUnreadable;
    }
    bool warned = false;
    App().alertListener = [&warned](const Alert& alert) {
        warned = true;
        Complain(TextOf(alert));
    };
    const EREGION whole = open.GetDocument().WholeRegion();
    open.GetDocument().selection = whole;
    std::string problem;
    for (const std::string& title : command.titles) {
        problem = problem.empty() ? RunTitled(title, whole) : problem;
    }
    App().alertListener = nullptr;
    if (problem.empty() && !command.output.empty()) {
        problem = Write(command.output, open.Score());
    }
    if (!problem.empty()) {
        Complain(problem);
    }
    return problem.empty() && !warned ? kDone : kFailed;
}

}  // namespace standin::cli
