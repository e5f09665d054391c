// What the probe found: for each assumption what was seen, and whether that is the same.
#pragma once

#include <string>
#include <vector>

#include "probe/Texts.h"
#include "shell/host/host_types.h"

namespace probe {

enum class Verdict { kAgrees, kDiffers, kNotSeen };

struct Finding {
    Text section;
    std::string subject;  // a callback, a structure
    std::string assumed;
    std::string seen;
    Verdict verdict;
};

// How often something was looked at, and how often it was as assumed.
struct Tally {
    u64 seen = 0;
    u64 good = 0;

    void Count(bool isGood) {
        ++seen;
        good += isGood ? 1 : 0;
    }
};

class Findings {
public:
    // The lines that follow belong to this section.
    void Begin(Text section) { m_section = section; }
    void Add(std::string subject, std::string assumed, std::string seen, Verdict verdict);
    void Add(std::string subject, std::string assumed, std::string seen, bool agrees);
    void Add(std::string subject, std::string assumed, const Tally& tally);
    // Nothing of the sort was there to look at.
    void AddNotSeen(std::string subject, std::string assumed);

    const std::vector<Finding>& All() const noexcept { return m_all; }
    int Count(Verdict verdict) const;
    // Whether a line of a section other than the exports is about this callback.
    bool IsAbout(const std::string& callback) const;

private:
    Text m_section = Text::kCalls;
    std::vector<Finding> m_all;
};

}  // namespace probe
