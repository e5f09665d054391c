// Questions and warnings with a "Do not show again." box.
#include <tuple>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/FinPIAlert.h"
#include "tests/unit/interface_support.h"

namespace {

// As templates and stored answers know them.
constexpr AlertType kOk{0};
constexpr AlertType kOkCancel{1};
constexpr AlertType kYesNo{4};

class AlertTest : public InterfaceTest {
protected:
    u16 Ask(AlertType type) { return ShowAlert(&command, nullptr, type, 20003); }
};

TEST_F(AlertTest, AnswerIsRememberedWhenBoxIsTicked) {
    // The button (0: the window is closed), whether the box is ticked, the answer, and the next
    // one, which is what is remembered (0: it asks again).
    const std::tuple<AlertType, u16, bool, u16, u16> cases[] = {
        {kYesNo, 1, false, 6, 0},   {kYesNo, 1, true, 6, 6},
        {kYesNo, 2, true, 7, 7},    {kYesNo, 0, true, 0, 0},
        {kOkCancel, 1, true, 1, 1}, {kOkCancel, 2, true, 2, 0},  // a canceled one is not remembered
        {kOk, 1, true, 1, 1},
    };
    for (const auto& c : cases) {
        const auto [type, button, ticked, answer, nextAnswer] = c;
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        platform::headless::Reset();
        desk.Then([type = type, button = button, ticked = ticked](OpenDialog& open) {
            EXPECT_EQ(open.texts[1] + open.texts[2], type == kYesNo ? u"YesNo" : u"OKCancel");
            open.Press(ticked ? 4 : 0);
            open.Press(button);
            EXPECT_EQ(open.ended, button != 0);
        });
        EXPECT_EQ(Ask(type), answer);
        const std::size_t shown = desk.Shown().size();
        EXPECT_EQ(Ask(type), nextAnswer);
        EXPECT_EQ(desk.Shown().size() > shown, nextAnswer == 0);
    }
}

TEST_F(AlertTest, ItsButtonsEndIt) {
    for (const auto& [control, handled] : {std::pair{u16{1}, Handled{1, 1}},
                                           {u16{2}, Handled{1, 1}},
                                           {u16{4}, Handled{1, 0}},
                                           {u16{3}, Handled{0, 0}}}) {
        platform::headless::Reset();
        desk.Then([control = control, handled = handled](OpenDialog& open) {
            EXPECT_EQ(Handle(open, control), handled) << control;
        });
        Ask(kYesNo);
    }
}

TEST_F(AlertTest, FormatsArgumentsAndFitsBox) {
    desk.Then([](OpenDialog& open) {
        EXPECT_EQ(open.texts[3], u"Applies previously saved settings from Capa.");
        EXPECT_EQ(open.hidden, std::set<u16>{2});
        EXPECT_EQ(open.window.controls[4].rectangle.Width(), 18 * 6 + 35);
    });
    ShowAlert(&command, nullptr, kOk, 20005, "Capa");
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

TEST_F(AlertTest, LongTextIsCut) {
    const FinPIAlert keyed{&command, 20003, kOk, std::u16string(300, u'k').c_str()};
    EXPECT_EQ(std::u16string{keyed.PositionKey()}, std::u16string(255, u'k'));
    desk.Then([](OpenDialog& open) { EXPECT_EQ(open.texts[3].size(), 1023U); });
    ShowAlert(&command, nullptr, kOk, 20005, std::string(2000, 'x').c_str());
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

TEST_F(AlertTest, ShortStoredRecordMeansYes) {
    const u16 flagOnly = 1;
    ZKFX_PutSettings("CKAT", 20003, &flagOnly, 2, "Dont Show Again Alert");
    EXPECT_EQ(Ask(kYesNo), 6);
    EXPECT_TRUE(desk.Shown().empty());
}

}  // namespace
