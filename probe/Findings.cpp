#include "probe/Findings.h"

#include <algorithm>
#include <utility>

#include "platform/module.h"

namespace probe {

namespace {

// Of a callback that the host does not export nothing can be seen.
bool IsMissing(const std::string& subject) {
    const std::string callback = subject.substr(0, subject.find(' '));
    return callback.starts_with("FX_") && callback != "FX_" &&
           platform::FindHostFunction(callback.c_str()) == nullptr;
}

}  // namespace

void Findings::Add(std::string subject, std::string assumed, std::string seen, Verdict verdict) {
    if (m_section != Text::kExports && IsMissing(subject)) {
        seen = Say(Text::kMissing);
        verdict = Verdict::kNotSeen;
    }
    m_all.push_back({m_section, std::move(subject), std::move(assumed), std::move(seen), verdict});
}

void Findings::Add(std::string subject, std::string assumed, std::string seen, bool agrees) {
    Add(std::move(subject), std::move(assumed), std::move(seen),
        agrees ? Verdict::kAgrees : Verdict::kDiffers);
}

void Findings::Add(std::string subject, std::string assumed, const Tally& tally) {
    if (tally.seen == 0) {
        AddNotSeen(std::move(subject), std::move(assumed));
        return;
    }
    Add(std::move(subject), std::move(assumed), SayNumbers(Text::kCounted, tally.good, tally.seen),
        tally.good == tally.seen);
}

void Findings::AddNotSeen(std::string subject, std::string assumed) {
    Add(std::move(subject), std::move(assumed), Say(Text::kNothing), Verdict::kNotSeen);
}

int Findings::Count(Verdict verdict) const {
    return static_cast<int>(std::ranges::count(m_all, verdict, &Finding::verdict));
}

bool Findings::IsAbout(const std::string& callback) const {
    return std::ranges::any_of(m_all, [&callback](const Finding& finding) {
        return finding.section != Text::kExports && finding.subject.starts_with(callback) &&
               (finding.subject.size() == callback.size() ||
                finding.subject[callback.size()] == ' ');
    });
}

}  // namespace probe
