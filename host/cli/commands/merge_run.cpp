#include "host/cli/commands/merge_run.h"

#include "host/cli/commands/plugin.h"
#include "host/cli/io/progress_line.h"
#include "host/score/application.h"
#include "platform/resources.h"
#include "platform/text.h"

namespace standin::cli {

std::string TextOf(const Alert& alert) {
    const std::u16string_view text =
        alert.stringId != 0 ? platform::ResourceString(alert.stringId) : alert.text;
    return platform::Utf8Of(text);
}

MergeRun RunMerge(Document& document, const EREGION& selection, const MergeOptions& options) {
    const StoredOptions stored{options};
    if (!stored) {
        return {false, false, Say(Text::kOptionsNotStored, {})};
    }
    MergeRun run;
    App().alertListener = [&run](const Alert& alert) {
        if (run.problem.empty()) {
            run.problem = TextOf(alert);
        }
    };
    document.selection = selection;
    std::string problem;
    if (const auto plugin = Plugin::Start(problem)) {
        const ProgressLine progress{static_cast<u16>(selection.endMeasure)};
        const EREGION whole = document.WholeRegion();
        plugin->RunCommand(0, &selection, whole);
        run.kept = !document.UndoTexts().empty();
        if (run.problem.empty() && !run.kept) {
            run.stopped = App().lastProgressStopped != 0;
            run.problem = Say(run.stopped ? Text::kStopped : Text::kNothingChanged, {});
        }
    } else {
        run.problem = std::string{machine::kPluginFile} + ": " + problem;
    }
    App().alertListener = nullptr;
    return run;
}

}  // namespace standin::cli
