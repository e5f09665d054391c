// The findings as a text for people.
#pragma once

#include <string>

#include "probe/Findings.h"
#include "probe/Measure.h"

namespace probe {

// "102 agree, 3 differ, 12 not seen here".
std::string Totals(const Findings& findings);

// UTF-8, lines ending as the system ends them. entries: how many were looked at.
std::string ReportText(const Findings& findings, const Score& score, u64 entries);

// Writes it where the user keeps documents. The text says where it is, or that it could not be
// written.
std::string SaveReport(const std::string& text);

}  // namespace probe
