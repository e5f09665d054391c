// Selecting staves, measures and beats in the grid with mouse and keyboard.
#include <sstream>

#include "host/desktop/grid/grid_layout.h"
#include "host/desktop/grid/selection_editor.h"
#include "host/desktop/grid/selection_text.h"
#include "tests/unit/support/stand_in.h"

namespace standin::desktop {
namespace {

constexpr auto kMeasure = SelectionUnit::kMeasure;
constexpr auto kBeat = SelectionUnit::kBeat;

// Three staves; 4/4, a measure of two and a half quarters, 6/8 in dotted quarters.
ScoreShape Shape() {
    return {3, {{4096, 1024}, {2560, 1024}, {3072, 1536}}};
}

// "slots measure:position-measure:position"; a bar means the measure's end.
std::string Text(const std::optional<EREGION>& region) {
    if (!region) {
        return "nothing";
    }
    std::ostringstream text;
    text << region->startSlot << '-' << region->endSlot << ' ' << region->startMeasure << ':'
         << region->startPosition << '-' << region->endMeasure << ':'
         << (region->endPosition == kEndOfMeasure ? "|" : std::to_string(region->endPosition));
    return text.str();
}

class Selecting : public testing::Test {
protected:
    Selecting() { editor.SetShape(Shape()); }
    std::string Now() const { return Text(editor.Region()); }

    SelectionEditor editor;
};

TEST_F(Selecting, ByMeasureCoversWholeMeasures) {
    editor.Begin({2, 3, 100}, kMeasure);
    EXPECT_EQ(Now(), "2-2 3:0-3:|");
    editor.Extend({1, 1, 3000}, kMeasure);
    EXPECT_EQ(Now(), "1-2 1:0-3:|");
}

TEST_F(Selecting, ByBeatIncludesBothEnds) {
    editor.Begin({1, 1, 2100}, kBeat);
    EXPECT_EQ(Now(), "1-1 1:2048-1:3071");
    editor.Extend({1, 1, 0}, kBeat);
    EXPECT_EQ(Now(), "1-1 1:0-1:3071");
    // The half beat at the end of the second measure ends with the measure.
    editor.Extend({1, 2, 2559}, kBeat);
    EXPECT_EQ(Now(), "1-1 1:2048-2:|");
    // A beat of 6/8 is a dotted quarter.
    editor.Begin({1, 3, 1600}, kBeat);
    EXPECT_EQ(Now(), "1-1 3:1536-3:|");
}

TEST_F(Selecting, MixesABeatAndWholeMeasures) {
    editor.Begin({1, 1, 1024}, kBeat);
    editor.Extend({3, 2, 0}, kMeasure);
    EXPECT_EQ(Now(), "1-3 1:1024-2:|");
    editor.Begin({1, 2, 1024}, kBeat);
    editor.Extend({1, 1, 0}, kMeasure);
    EXPECT_EQ(Now(), "1-1 1:0-2:2047");
    editor.WidenToMeasures();
    editor.WidenToStaves();
    EXPECT_EQ(Now(), "1-3 1:0-2:|");
}

TEST_F(Selecting, KeysMoveWithinTheScore) {
    editor.Move(Direction::kRight, kMeasure, false);
    EXPECT_EQ(Now(), "1-1 1:0-1:|") << "the first key selects the first measure";
    editor.Move(Direction::kUp, kMeasure, false);
    editor.Move(Direction::kLeft, kMeasure, true);
    EXPECT_EQ(Now(), "1-1 1:0-1:|") << "the edges hold";
    editor.Move(Direction::kDown, kMeasure, true);
    for (int i = 0; i < 5; ++i) {
        editor.Move(Direction::kRight, kMeasure, true);
    }
    EXPECT_EQ(Now(), "1-2 1:0-3:|");
    editor.Move(Direction::kDown, kMeasure, false);
    EXPECT_EQ(Now(), "3-3 3:0-3:|") << "without Shift the selection follows the end that moved";
}

TEST_F(Selecting, KeysMoveByBeatAcrossBarlines) {
    editor.Begin({1, 1, 3072}, kBeat);
    editor.Move(Direction::kRight, kBeat, true);
    EXPECT_EQ(Now(), "1-1 1:3072-2:1023");
    editor.Move(Direction::kLeft, kBeat, true);
    editor.Move(Direction::kLeft, kBeat, true);
    EXPECT_EQ(Now(), "1-1 1:2048-1:|");
    // From a whole measure the next beat is the one after it.
    editor.Begin({1, 1, 0}, kMeasure);
    editor.Move(Direction::kRight, kBeat, false);
    EXPECT_EQ(Now(), "1-1 2:0-2:1023");
    editor.Begin({1, 1, 0}, kBeat);
    editor.Move(Direction::kLeft, kBeat, false);
    EXPECT_EQ(Now(), "1-1 1:0-1:1023");
}

TEST_F(Selecting, RegionSurvivesRoundTrip) {
    for (const EREGION& region :
         {EREGION{0, 1, 1, 0, 0, 3, 3, kEndOfMeasure}, EREGION{0, 2, 1, 1024, 0, 2, 2, 1023},
          EREGION{0, 1, 3, 1536, 0, 1, 3, kEndOfMeasure}}) {
        editor.Adopt(region);
        EXPECT_EQ(Now(), Text(region));
    }
    editor.SelectAll();
    editor.SetShape({1, {{4096, 1024}}});
    EXPECT_EQ(Now(), "nothing") << "a smaller score does not hold the selection";
    editor.SetShape({});
    editor.SelectAll();
    editor.Move(Direction::kRight, kBeat, true);
    EXPECT_EQ(Now(), "nothing") << "nor does an empty one";
}

TEST(Grid, HitsWhatItDraws) {
    const GridLayout layout{Shape()};
    for (const auto& [slot, measure, position] :
         {std::tuple{1, 1, 0}, {1, 1, 1024}, {2, 2, 1024}, {3, 3, 0}, {3, 3, 2048}}) {
        const int bottom = layout.Cell(slot, measure).bottom - 1;
        const auto hit = layout.Hit(layout.XOf(measure, position) + 1, bottom);
        ASSERT_TRUE(hit);
        EXPECT_EQ(hit->slot, slot);
        EXPECT_EQ(hit->measure, measure);
        EXPECT_NEAR(hit->position, position, 110);
    }
    EXPECT_FALSE(layout.Hit(10, 60)) << "staff names";
    EXPECT_FALSE(layout.Hit(300, 10)) << "measure numbers";
    EXPECT_FALSE(layout.Hit(300, layout.Height())) << "below the last staff";
    EXPECT_FALSE(layout.Hit(layout.Width(), 60)) << "behind the last measure";
    const GridPoint beyond = layout.Nearest(100000, 100000).value();
    EXPECT_EQ(beyond.slot, 3);
    EXPECT_EQ(beyond.measure, 3);
    EXPECT_LT(beyond.position, 3072);
    EXPECT_FALSE(GridLayout{ScoreShape{}}.Nearest(200, 60));
}

TEST(SelectionInWords, SaysNoMoreThanNeeded) {
    StandIn host{2, 6};
    const auto text = [&host](i16 lastMeasure, i32 from, i32 to) {
        host.Select(1, 2, from, 1, lastMeasure, to);
        return SelectionText(host.Score());
    };
    const std::u16string name = host.Score().AutoNumberedName(host.Staff(1));
    const std::string one{name.begin(), name.end()};
    EXPECT_EQ(SelectionText(host.Score()), "Nothing is selected");
    EXPECT_EQ(text(2, 0, kEndOfMeasure), one + ", measure 2");
    EXPECT_EQ(text(5, 0, kEndOfMeasure), one + ", measures 2 to 5");
    EXPECT_EQ(text(2, 1024, 3071), one + ", measure 2, beats 2 to 3");
    EXPECT_EQ(text(2, 3072, kEndOfMeasure), one + ", measure 2, beat 4");
    EXPECT_EQ(text(5, 1024, 1023), one + ", measure 2, beat 2 to measure 5, beat 1");
}

}  // namespace
}  // namespace standin::desktop
