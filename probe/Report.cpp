#include "probe/Report.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "platform/documents_folder.h"
#include "shell/module/ModuleState.h"

namespace probe {

namespace {

constexpr const char* kFileName = "plyweld-probe.txt";
constexpr Text kSections[] = {Text::kFreedoms, Text::kSizes, Text::kRecords, Text::kFrames,
                              Text::kDetails,  Text::kCalls, Text::kDialogs, Text::kExports};

std::string Hexadecimal(u32 value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", value);
    return text;
}

std::string VerdictText(Verdict verdict) {
    switch (verdict) {
        case Verdict::kAgrees:
            return Say(Text::kAgrees);
        case Verdict::kDiffers:
            return Say(Text::kDiffers);
        default:
            return Say(Text::kNotSeen);
    }
}

std::string Line(const Finding& finding) {
    std::string line = VerdictText(finding.verdict);
    line.append(" | ").append(finding.subject);
    line.append(" | ").append(Say(Text::kAssumed)).append(": ").append(finding.assumed);
    line.append(" | ").append(Say(Text::kSeen)).append(": ").append(finding.seen);
    return line.append("\n");
}

}  // namespace

std::string Totals(const Findings& findings) {
    return SayNumbers(Text::kTotals, findings.Count(Verdict::kAgrees),
                      findings.Count(Verdict::kDiffers), findings.Count(Verdict::kNotSeen));
}

std::string ReportText(const Findings& findings, const Score& score, u64 entries) {
    std::string text = Say(Text::kIntroduction) + "\n";
    text += Say(Text::kHost, {Hexadecimal(g_module.hostVersion), Hexadecimal(kInterfaceVersion),
                              PLYWELD_VERSION}) +
            "\n";
    text += SayNumbers(Text::kLooked, i16{score.measures}, i16{score.slots}, entries) + "\n";
    text += Totals(findings) + "\n";
    for (const Text section : kSections) {
        text += "\n" + Say(section) + "\n";
        for (const Finding& finding : findings.All()) {
            if (finding.section == section) {
                text += Line(finding);
            }
        }
    }
    return text;
}

std::string SaveReport(const std::string& text) {
    const std::string folder = platform::DocumentsFolder();
    const std::filesystem::path file =
        std::filesystem::path{std::u8string{folder.begin(), folder.end()}} / kFileName;
    const std::u8string name = file.u8string();
    std::ofstream stream{file};
    stream << text << std::flush;
    return Say(stream ? Text::kSavedAt : Text::kNotSaved, {{name.begin(), name.end()}});
}

}  // namespace probe
