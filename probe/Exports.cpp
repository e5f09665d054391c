#include "platform/module.h"
#include "probe/Measure.h"
#include "shell/host/host_types.h"

namespace probe {

namespace {

constexpr const char* kCallbacks[] = {
#define HOST_CALLBACK(name, function, ...) #function,
#include "shell/host/host_callbacks.inc"
#undef HOST_CALLBACK
};

}  // namespace

void MeasureExports(Findings& findings) {
    findings.Begin(Text::kExports);
    Tally tally;
    for (const char* name : kCallbacks) {
        const bool isThere = platform::FindHostFunction(name) != nullptr;
        tally.Count(isThere);
        findings.Add(name, Say(Text::kExported), Say(isThere ? Text::kExported : Text::kMissing),
                     isThere);
    }
    findings.Begin(Text::kFreedoms);
    findings.Add("FX_", SayNumbers(Text::kUsualExports, tally.seen), tally);
}

void NameUnmeasured(Findings& findings) {
    findings.Begin(Text::kCalls);
    for (const char* name : kCallbacks) {
        if (!findings.IsAbout(name)) {
            findings.Add(name, Say(Text::kNotLookedAt), Say(Text::kNothing), Verdict::kNotSeen);
        }
    }
}

}  // namespace probe
