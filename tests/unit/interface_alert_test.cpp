// Questions and warnings with a "Do not show again." box.
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/interface/FinPIAlert.h"
#include "Class Files/settings/FinPIUtil.h"
#include "host/score/application.h"
#include "tests/unit/interface_support.h"

namespace {

using OpenDialog = standin::DialogDesk::OpenDialog;

constexpr u32 kQuestion = 20003;

class AlertTest : public InterfaceTest {
protected:
    u16 Ask(AlertType type) { return ShowAlert(&command, nullptr, type, kQuestion); }
};

TEST_F(AlertTest, AnswersStandWhenTheBoxIsTicked) {
    const struct {
        AlertType type;
        u16 button;  // 0: the window is closed
        bool ticked;
        u16 answer;
        bool asksAgain;
        u16 nextAnswer;  // what is remembered
    } cases[] = {
        {AlertType::kYesNo, 1, false, 6, true, 0},
        {AlertType::kYesNo, 1, true, 6, false, 6},
        {AlertType::kYesNo, 2, true, 7, false, 7},
        {AlertType::kYesNo, 0, true, 0, true, 0},
        {AlertType::kOkCancel, 1, true, 1, false, 1},
        {AlertType::kOkCancel, 2, true, 2, true, 0},  // a cancelled one is not remembered
        {AlertType::kOk, 1, true, 1, false, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        platform::headless::Reset();
        desk.Then([&](OpenDialog& open) {
            if (c.ticked) {
                open.Press(4);
            }
            if (c.button != 0) {
                open.Press(c.button);
            }
        });
        EXPECT_EQ(Ask(c.type), c.answer);
        const std::size_t shown = desk.Shown().size();
        EXPECT_EQ(Ask(c.type), c.nextAnswer);
        EXPECT_EQ(desk.Shown().size() > shown, c.asksAgain);
    }
}

TEST_F(AlertTest, ShowsTheMessageAndTheButtonsOfItsType) {
    desk.Then([](OpenDialog& open) {
        EXPECT_EQ(open.window.caption, u"Finale");
        EXPECT_EQ(open.texts[3].substr(0, 16), u"If you continue,");
        EXPECT_EQ(open.texts[1], u"Yes");
        EXPECT_EQ(open.texts[2], u"No");
        EXPECT_EQ(open.window.controls[4].rectangle.Width(), 18 * 6 + 35);
        EXPECT_EQ(open.flags & 1U, 1U);
    });
    Ask(AlertType::kYesNo);
    desk.Then([](OpenDialog& open) {
        EXPECT_TRUE(open.hidden.contains(2));
        EXPECT_EQ(open.texts[1], u"OK");
    });
    Ask(AlertType::kOk);
    platform::headless::SetLanguage(platform::headless::Language::kSpanish);
    desk.Then([](OpenDialog& open) {
        EXPECT_EQ(open.texts[1], u"S\u00ED");
        EXPECT_EQ(open.texts[3].substr(0, 12), u"Si contin\u00FAa,");
    });
    Ask(AlertType::kYesNo);
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

TEST_F(AlertTest, FormatsItsArguments) {
    desk.Then([](OpenDialog& open) {
        EXPECT_EQ(open.texts[3], u"Applies previously saved settings from Capa.");
    });
    ShowAlert(&command, nullptr, AlertType::kOk, 20005, "Capa");
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

TEST_F(AlertTest, AShortStoredRecordHasTheAgreeingAnswer) {
    const u16 flagOnly = 1;
    ZKFX_PutSettings("CKAT", 20003, &flagOnly, 2, "Dont Show Again Alert");
    EXPECT_EQ(Ask(AlertType::kYesNo), 6);
    EXPECT_TRUE(desk.Shown().empty());
    u16 record[2]{};
    EXPECT_EQ(ZKFX_GetSettings("CKAT", 20003, record, 4, "Dont Show Again Alert"), 4U)
        << "the record is written also when nothing was shown";
    EXPECT_EQ(record[1], 6);
}

TEST_F(AlertTest, AnUnknownTypeIsAnErrorAndStillShows) {
    desk.Then([](OpenDialog& open) { EXPECT_TRUE(open.hidden.empty()); });
    Ask(static_cast<AlertType>(3));
    ASSERT_NE(g_pendingError, nullptr);
    ReportPendingError();
    EXPECT_EQ(standin::App().alerts.front().text,
              u"Internal Application Error at FinPIAlert::OnInitializeWindow->Invalid Alert Type.");
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

}  // namespace
