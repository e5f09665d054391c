// One run of the plug-in's command over a document.
#pragma once

#include <string>

#include "host/cli/io/stored_options.h"
#include "host/score/application.h"

namespace standin::cli {

struct MergeRun {
    bool kept = false;     // the edit was ended, not canceled
    bool stopped = false;  // by the user
    std::string problem;   // why the run failed; empty if it did not
};

// Starts the plug-in, runs its command with these options on the current document's selection,
// and ends it. A run that failed or was stopped leaves the document as it was.
MergeRun RunMerge(Document& document, const EREGION& selection, const MergeOptions& options);

// What an alert of the plug-in says, in UTF-8.
std::string TextOf(const Alert& alert);

}  // namespace standin::cli
