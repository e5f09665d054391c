// The probe: what it reports of hosts of every manner, and that it changes nothing.
#include <cstdlib>
#include <sstream>

#include "shell/host/detail_flags.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/files.h"
#include "tests/unit/support/mannered.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

constexpr u16 kProbeClose = 2;
constexpr u16 kSummary = 1001;
constexpr u16 kPlace = 1002;

std::string Utf8(const std::u16string& text) {
    return {text.begin(), text.end()};  // the tests look at ASCII alone
}

class Probe : public testing::Test {
protected:
    Probe() { setenv("HOME", home.Path().c_str(), 1); }

    // A chord out of order, a tuplet, a rest, hidden music, several details of one kind.
    static void WriteScore(StandIn& host) {
        host.Write({"q:g4,c4 (3:2 e:c4 e:d4 e:e4) q:r q:c4!", "ge:c4 h:c4 h:e4"});
        for (int i = 0; i < 3; ++i) {
            host.Attach({}, kArticulation, "a");
        }
    }

    // What leaves traces of the host's manners: a save, and a detail that goes.
    static void SaveAndDelete(StandIn& host) {
        EXFRAME* frame = FX_LoadTGF(0, 1, 1, 0, 1, kInterfaceVersion);
        ASSERT_NE(FX_SaveTGF(frame, kInterfaceVersion), 0);
        FX_FreeTGF(frame, kInterfaceVersion);
        const u32 entry = host.EntryNumber({});
        const u16 key[] = {static_cast<u16>(entry), static_cast<u16>(entry >> 16U), 1};
        ASSERT_NE(FX_DeleteEData(kArticulation, key, kInterfaceVersion), 0);
    }

    std::string Report() const { return Content(home / "plyweld-probe.txt"); }
    std::string Run(StandIn& host) const {
        const Plugin plugin{PLYWELD_PROBE};
        EXPECT_EQ(plugin.Init(), 1);
        plugin.Invoke(host);
        return Report();
    }
    // The subjects of the lines with this verdict, outside the list of exports.
    static std::string Subjects(const std::string& report, const std::string& verdict) {
        std::istringstream lines{report.substr(0, report.find("\nExports\n"))};
        std::string subjects;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(verdict + " | ")) {
                const std::size_t start = verdict.size() + 3;
                subjects += line.substr(start, line.find(" | ", start) - start) + "\n";
            }
        }
        return subjects;
    }

    TemporaryFolder home;
};

TEST_F(Probe, AgreesWithTheUsualHost) {
    StandIn host{2, 2};
    WriteScore(host);
    const std::string report = Run(host);
    EXPECT_EQ(Subjects(report, "differs"), "") << report;
    const std::string agreed = Subjects(report, "agrees");
    for (const char* subject :
         {"FX_SaveTGF EXNOTE\n", "FX_SaveTGF EDTTuplet2005\n", "FX_DeleteEData numbers\n",
          "EXENTRY flags\n", "EDTArticulation25_6\n", "ENTRYMETRICS\n", "EXENTRY noteCount\n",
          "EXENTRY elapsedTime\n", "EDTMeasureSpec2014 'SOMS'\n"}) {
        EXPECT_NE(agreed.find(subject), std::string::npos) << subject << report;
    }
}

// What it reports of each manner: what differs there.
struct Met {
    Manner manner;
    const char* differs;
};

class ProbeOnHost : public Probe, public testing::WithParamInterface<Met> {};

TEST_P(ProbeOnHost, ReportsItsManner) {
    const Mannered mannered{GetParam().manner};
    StandIn host{2, 2};
    WriteScore(host);
    SaveAndDelete(host);
    const std::string report = Run(host);
    EXPECT_EQ(Subjects(report, "differs"), GetParam().differs) << report;
    const bool isSorting = App().manners.sorting;
    EXPECT_EQ(Subjects(report, "not seen here").find("FX_SaveTGF EXNOTE\n") != std::string::npos,
              isSorting)
        << report;
}

INSTANTIATE_TEST_SUITE_P(
    Manners, ProbeOnHost,
    testing::Values(Met{{"taciturn", &Manners::taciturn},
                        "FX_SetCurrentEnigmaDocument\nFX_GetEntryMetrics\n"},
                    Met{{"talkative", &Manners::talkative}, "FX_GetPartName_UTF16\n"},
                    Met{{"wide", &Manners::wide},
                        "FX_GetCurrentWindowInfo WINDOWINFO\nFX_GetDocumentPath\n"
                        "FX_GetEntryMetrics ENTRYMETRICS\n"},
                    Met{{"gaps", &Manners::gaps}, "FX_DeleteEData numbers\n"},
                    Met{{"sorting", &Manners::sorting}, ""},
                    Met{{"rounding", &Manners::rounding}, "FX_SaveTGF EDTTuplet2005\n"},
                    Met{{"shy", &Manners::shy}, "FX_\n"}),
    [](const testing::TestParamInfo<Met>& test) { return test.param.manner.name; });

TEST_F(Probe, SeesWhatALibraryWouldGetWrong) {
    StandIn host{2, 2};
    WriteScore(host);
    const Frame* frame = host.Score().FindFrame(host.Key(1, 1, 0));
    ASSERT_NE(frame, nullptr);
    EXENTRY& entry = const_cast<Frame*>(frame)->entries[0];
    entry.flags &= ~DetailFlag::kArticulation;
    entry.elapsedTime += 3;
    entry.notes[1].noteID = entry.notes[0].noteID;
    EXPECT_EQ(Subjects(Run(host), "differs"),
              "EXNOTE noteID\nEXNOTE flags\nEXENTRY elapsedTime, actualDuration\n"
              "EXENTRY flags\n");
}

TEST_F(Probe, ChangesNothing) {
    StandIn host{2, 2};
    WriteScore(host);
    DialogDesk desk;
    const DocumentContent before = host.Score().Content();
    const auto undo = host.Score().UndoTexts();
    App().calls = {};
    {
        const Plugin plugin{PLYWELD_PROBE};
        EXPECT_EQ(plugin.Init(), 1);
        plugin.InvokeWithShift(host);
        ASSERT_NE(desk.Newest(), nullptr) << "Shift runs nothing: there is no run";
        desk.Newest()->Press(kProbeClose);
    }
    EXPECT_TRUE(host.Score().Content() == before);
    EXPECT_EQ(host.Score().UndoTexts(), undo);
    EXPECT_EQ(App().calls.refusedByRule, 0U);
    for (const HostCall call :
         {HostCall::kStartFinaleEdit, HostCall::kSaveEData, HostCall::kCreateEData,
          HostCall::kDeleteEData, HostCall::kSaveTGF, HostCall::kInsertEXENTRY,
          HostCall::kDeleteEXENTRY, HostCall::kReduceEntries, HostCall::kExecuteMenuItem,
          HostCall::kRebeamRegion, HostCall::kUpdateLayout}) {
        EXPECT_EQ(App().calls.Of(call), 0U) << NameOf(call);
    }
}

TEST_F(Probe, DialogShowsTotalsAndPlace) {
    StandIn host{1, 1};
    host.Write({"q:c4"});
    DialogDesk desk;
    const Plugin plugin{PLYWELD_PROBE};
    EXPECT_EQ(plugin.Init(), 1);
    plugin.Invoke(host);
    ASSERT_NE(desk.Newest(), nullptr);
    const std::string first = Report();
    EXPECT_EQ(Subjects(first, "differs"), "") << first;
    EXPECT_NE(Subjects(first, "agrees").find("FX_Dialog\n"), std::string::npos);
    EXPECT_NE(Subjects(first, "agrees").find("FX_GetDlgCntlVal\n"), std::string::npos) << first;
    EXPECT_NE(first.find(Utf8(desk.Newest()->texts[kSummary]) + "\n"), std::string::npos);
    EXPECT_EQ(Utf8(desk.Newest()->texts[kPlace]),
              "The report is in " + (home / "plyweld-probe.txt").string());
    desk.Newest()->Send(kTimerMessage, 1);
    EXPECT_NE(Subjects(Report(), "agrees").find("FX_SetTimer\n"), std::string::npos);
    desk.Newest()->Press(kProbeClose);
    EXPECT_EQ(desk.Newest(), nullptr);
}

TEST_F(Probe, HasALineForEveryCallback) {
    StandIn host{1, 1};
    const std::string report = Run(host);
    const std::string outside = report.substr(0, report.find("\nExports\n"));
    for (std::size_t i = 0; i < kHostCallCount; ++i) {
        const std::string name = std::string{" | "} + NameOf(static_cast<HostCall>(i)) + " ";
        EXPECT_NE(outside.find(name), std::string::npos) << name;
    }
}

TEST_F(Probe, SaysWhereItCouldNotWrite) {
    StandIn host{1, 1};
    setenv("HOME", (home / "nowhere").c_str(), 1);
    DialogDesk desk;
    const Plugin plugin{PLYWELD_PROBE};
    EXPECT_EQ(plugin.Init(), 1);
    plugin.Invoke(host);
    EXPECT_TRUE(Utf8(desk.Newest()->texts[kPlace]).starts_with("The report could not be written"));
    desk.Newest()->Press(kProbeClose);
}

}  // namespace
}  // namespace standin
