// Large scores, and many runs in one process. PLYWELD_LONG runs both in full.
#include <filesystem>
#include <malloc.h>

#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/merge_count.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

bool IsLong() {
    return NumberFromEnvironment("PLYWELD_LONG", 0) != 0;
}

// Bytes in use; 0 where the memory is a sanitizer's.
u64 MemoryInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

u64 OpenFiles() {
    const std::filesystem::directory_iterator files{"/proc/self/fd"};
    return static_cast<u64>(std::distance(begin(files), end(files)));
}

TEST(Endurance, LargeScoreStaysWithinMemory) {
    const i16 staves = IsLong() ? 40 : 8;
    const u16 measures = IsLong() ? 10000 : 200;
    const u64 empty = MemoryInUse();
    StandIn host{staves, measures};
    for (u16 layer = 0; const char* music : {"h:c4 h:r", "h:e4 h:f4", "h:g4 h:r", "h:r h:a4"}) {
        host.LayerEverywhere(layer++, music);
    }
    host.SelectAll();
    const u64 score = MemoryInUse() - empty;
    Plugin{}.Merge(host);
    const u64 now = MemoryInUse() - empty;
    RecordProperty("megabytes", std::to_string(score >> 20U));
    RecordProperty("megabytesAfter", std::to_string(now >> 20U));
    EXPECT_TRUE(App().alerts.empty());
    u64 unlike = 0;
    for (i16 slot = 1; slot <= staves; ++slot) {
        for (u16 measure = 1; measure <= measures; ++measure) {
            unlike += host.Layer(slot, measure, 0) != "h:c4,e4,g4 h:f4,a4" ? 1 : 0;
        }
    }
    EXPECT_EQ(unlike, 0U);
    // The score, what undoing needs of it, and little more: every frame changed.
    EXPECT_LE(now, score * 5 / 2);
}

TEST(Endurance, ManyRunsLeakNothing) {
    constexpr u32 kWarmUp = 50;
    constexpr u64 kMaxBytesPerRun = 192;  // new entries take numbers that are never reused
    const u32 runs = IsLong() ? 2000 : 300;
    StandIn host{2, 1};
    host.LayerEverywhere(0, "q:c4 q:r h:r");
    host.LayerEverywhere(1, "q:e4 q:f4 (3:2 q:g4 q:a4 q:b4)");
    host.Attach({1, 1, 1, 0}, HostTag("edIM"), "dot");
    host.Slur({1, 1, 1, 0}, {1, 1, 1, 2});
    host.SelectAll();
    DialogDesk desk;
    const Plugin plugin;
    const DocumentContent before = host.Score().Content();
    const auto inUse = [] {
        return std::pair{OpenFiles(), Plugin::Stored("Plyweld", "ZKCF22000")};
    };
    u64 memory = 0;
    decltype(inUse()) warm;
    for (u32 run = 1; run <= runs; ++run) {
        if (run % 2 == 0) {
            plugin.Merge(host);
        } else {
            plugin.Invoke(host);
            ASSERT_NE(desk.Newest(), nullptr);
            desk.Newest()->Press(kGo);
            desk.Newest()->Press(kClose);
        }
        ASSERT_TRUE(host.Score().Undo()) << run;
        App().ResetCounts();
        if (run == kWarmUp) {
            memory = MemoryInUse();
            warm = inUse();
        }
    }
    RecordProperty("runs", std::to_string(runs));
    EXPECT_TRUE(host.Score().Content() == before);
    EXPECT_LE(MemoryInUse(), memory + kMaxBytesPerRun * (runs - kWarmUp));
    EXPECT_EQ(inUse(), warm);
}

}  // namespace
}  // namespace standin
