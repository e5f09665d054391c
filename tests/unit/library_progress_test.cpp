// The progress display of a walk: when the host hears of it, and how it ends.
#include <optional>

#include "Class Files/ProgressCounter.h"
#include "tests/unit/support/library_test.h"

namespace standin {
namespace {

class Progress : public LibraryTest {
protected:
    // The steps of the reports that a walk of this size passes on to the host.
    static std::vector<i16> Reported(u64 workSize, const std::vector<i16>& steps) {
        App().progress.clear();
        ProgressCounter progress{EREGION{}, workSize};
        for (const i16 count : steps) {
            EXPECT_TRUE(progress.Report(count, 0, 1, -1));
        }
        std::vector<i16> reported;
        reported.reserve(App().progress.size());
        for (const ProgressReport& report : App().progress) {
            reported.push_back(report.steps);
        }
        return reported;
    }
    using Steps = std::vector<i16>;
};

TEST_F(Progress, IntervalGrowsWithWork) {
    EXPECT_EQ(Reported(0, {10, 1, 10, 2, 11}), (Steps{11, 12, 11}));
    EXPECT_EQ(Reported(599, {10, 1}), (Steps{11}));
    EXPECT_EQ(Reported(600, {12, 1}), (Steps{13}));
    EXPECT_EQ(Reported(6000, {30, 1}), (Steps{31}));
    EXPECT_EQ(Reported(u64{1} << 40U, {28671, 1}), (Steps{28672})) << "fits into 16 bits";
}

TEST_F(Progress, StopIsFinal) {
    std::optional<ProgressCounter> progress{std::in_place, EREGION{}, u64{0}};
    EXPECT_NE(progress->Handle(), 0U);
    App().progressListener = [](const ProgressReport&) { return false; };
    EXPECT_FALSE(progress->Report(11, 7, 1, 2));
    App().progressListener = nullptr;
    EXPECT_FALSE(progress->Report(11, 7, 1, 2));
    ASSERT_EQ(App().progress.size(), 1U) << "the host is not asked again";
    EXPECT_EQ(App().progress[0].staff, 7);
    EXPECT_EQ(App().progress[0].layer, 2);
    progress.reset();
    EXPECT_EQ(App().lastProgressStopped, 1);
}

TEST_F(Progress, DisabledProgressIsOnlyCounted) {
    ProgressCounter disabled{EREGION{}, 0};
    disabled.Disable();
    EXPECT_TRUE(disabled.Report(11, 0, 1, -1));
    Refuse(HostCall::kStartMassEdit);
    ProgressCounter without{EREGION{}, 0};
    EXPECT_EQ(without.Handle(), 0U);
    EXPECT_TRUE(without.Report(11, 0, 1, -1));
    EXPECT_TRUE(App().progress.empty());
    disabled.MarkFinished();
    App().lastProgressStopped = 1;
}

TEST_F(Progress, EndsAsFinishedOrStopped) {
    App().lastProgressStopped = 1;
    ProgressCounter{EREGION{}, 0}.MarkFinished();
    EXPECT_EQ(App().lastProgressStopped, 0);
    { const ProgressCounter unfinished{EREGION{}, 0}; }
    EXPECT_EQ(App().lastProgressStopped, 1);
}

}  // namespace
}  // namespace standin
