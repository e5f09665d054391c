// The dialog framework: events, titles, remembered places, the timer, layout.
#include <optional>
#include <tuple>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/DialogLayout.h"
#include "Class Files/interface/WindowMessages.h"
#include "platform/headless/window_model.h"
#include "tests/unit/interface_support.h"

namespace {

// The system's own numbers.
constexpr u32 kPaint = 15;
constexpr u32 kPositionChanged = 71;
constexpr u32 kNotify = 78;
constexpr u32 kCommand = 273;
constexpr u32 kSystemCommand = 274;
constexpr u64 kMinimize = 0xF020;
constexpr u64 kMaximize = 0xF030;
constexpr u64 kCloseCommand = 0xF060;
constexpr u64 kRestore = 0xF120;

class DialogTest : public InterfaceTest {
protected:
    // Shows the dialog and forgets what its creation noted.
    OpenDialog& Start() {
        OpenDialog& open = Show(dialog);
        dialog.TakeNotes();
        return open;
    }

    NotingDialog dialog{&command, nullptr, u"6.10"};
};

void StorePlace(i16 left, i16 top) {
    const i16 record[14] = {left, top};
    ZKFX_PutSettings("WPOS", 22000, record, sizeof(record), "Plyweld");
}

TEST_F(DialogTest, EventsReachTheirHandler) {
    const struct {
        u32 message;
        u64 word;
        i16 result;
        const char* note;  // null: no handler is called
    } cases[] = {
        {6, 0, 11, "activate"},       {15, 0, 12, "paint"},
        {258, 'a', 13, "character"},  {32, 0, 0, nullptr},
        {307, 0, 15, "color 1003 1"}, {309, 0, 15, "color 1003 3"},
        {312, 0, 15, "color 1003 6"}, {0xC123, 0, 14, "other"},
        {275, 1, 1, "timer"},         {273, (5U << 16U) | 1009U, 16, "command 1009 5"},
        {274, 0xF010, 0, nullptr},    {71, 0, 0, nullptr},
    };
    HWND__ control;
    control.controlId = 1003;
    OpenDialog& open = Show(dialog);
    EXPECT_EQ(dialog.TakeNotes(), (Notes{"prepare", "initialize", "ready", "after"}));
    for (const auto& c : cases) {
        EXPECT_EQ(open.Send(c.message, c.word, reinterpret_cast<i64>(&control)), c.result);
        EXPECT_EQ(dialog.TakeNotes(), c.note == nullptr ? Notes{} : Notes{c.note}) << c.message;
    }
    NotificationHeader header{nullptr, 1004, kTabSelectionChanged};
    EXPECT_EQ(open.Send(kNotify, 0, reinterpret_cast<i64>(&header)), 16);
    EXPECT_EQ(dialog.TakeNotes(), (Notes{"command 1004 4294966744"}));
    header.code = kTabSelectionNotification;
    EXPECT_EQ(open.Send(kNotify, 0, reinterpret_cast<i64>(&header)), 0);
    EXPECT_EQ(dialog.TakeNotes(), Notes{}) << "no other notification";
}

TEST_F(DialogTest, FailedInitializationDisablesControls) {
    StorePlace(50, 60);
    dialog.initializes = 0;
    OpenDialog& open = Start();
    EXPECT_EQ(open.Press(1009), 0);
    EXPECT_EQ(dialog.TakeNotes(), Notes{});
    open.window.rectangle = {500, 500, 600, 600};
    open.Send(kPositionChanged);
    EXPECT_EQ(open.window.rectangle.left, 500) << "it stays where it is";
    EXPECT_EQ(open.Send(standin::kCloseMessage), 0);
    EXPECT_EQ(desk.Newest(), nullptr);
    EXPECT_EQ(standin::App().calls.Of(standin::HostCall::kKillTimer), 0U) << "none was running";
}

TEST_F(DialogTest, RefusesForeignEventsAndStopsExceptions) {
    OpenDialog& open = Start();
    HWND__ other;
    EXPECT_EQ(FinPIDialog::DialogEventCallback(&other, kCommand, 1, 0, &dialog), 0);
    EXPECT_EQ(FinPIDialog::DialogEventCallback(&other, kPaint, 0, 0, &dialog), 0);
    EXPECT_EQ(FinPIDialog::DialogEventCallback(&other, kPaint, 0, 0, nullptr), 0);
    EXPECT_EQ(dialog.TakeNotes(), Notes{});
    dialog.whileHandling = [] { throw std::bad_alloc{}; };
    EXPECT_EQ(open.Press(1009), 0);
    dialog.TakeNotes();
    open.Send(standin::kTimerMessage);
    EXPECT_EQ(dialog.TakeNotes(), Notes{"timer"}) << "that command is over";
    std::optional<NotingDialog> gone{std::in_place, &command, nullptr, nullptr};
    OpenDialog& left = Show(*gone);
    gone.reset();
    EXPECT_EQ(left.Send(standin::kTimerMessage), 0);
}

TEST_F(DialogTest, TimerWaitsDuringCommand) {
    OpenDialog& open = Start();
    dialog.whileHandling = [&] {
        dialog.whileHandling = nullptr;
        open.Press(1010);
        EXPECT_EQ(open.Send(standin::kTimerMessage), 1);
    };
    open.Press(1009);
    EXPECT_EQ(dialog.TakeNotes(), (Notes{"command 1009 0", "command 1010 0"}))
        << "the outer command is still being handled";
    open.Send(standin::kTimerMessage);
    EXPECT_EQ(dialog.TakeNotes(), (Notes{"timer"}));
    NotingDialog modal{&command, nullptr, nullptr};
    desk.Then([&](OpenDialog& shown) {
        shown.Press(2);
        modal.TakeNotes();
        shown.Send(standin::kTimerMessage);
        EXPECT_EQ(modal.TakeNotes(), Notes{});
    });
    modal.ShowDialogWindow(nullptr, 1);
}

TEST_F(DialogTest, ModelessDialogSeesChangedPreference) {
    OpenDialog& open = Start();
    open.Send(standin::kTimerMessage);
    std::string general(76, '\0');
    general[30] = 2;
    host.Score().Records().Save(HostTag("pfgp"), standin::RecordKey::Preference(0), general);
    open.Send(standin::kTimerMessage);
    open.Send(standin::kTimerMessage);
    EXPECT_EQ(dialog.TakeNotes(), (Notes{"timer", "preferences", "timer", "timer"}));
    NotingDialog unread{&command, nullptr, nullptr};
    general[30] = 0;
    host.Score().Records().Save(HostTag("pfgp"), standin::RecordKey::Preference(0), general);
    OpenDialog& other = Show(unread);
    unread.TakeNotes();
    standin::App().faults.refuseKind = standin::FaultPlan::AllOf(standin::HostCall::kLoadEData);
    other.Send(standin::kTimerMessage);
    EXPECT_EQ(unread.TakeNotes(), Notes{"timer"}) << "an unreadable preference counts as 0";
    standin::App().faults = {};
}

TEST_F(DialogTest, TitleIsTruncatedWithVersion) {
    const std::u16string filled(252, u'x');
    // Title, version, caption.
    const std::tuple<std::u16string, std::u16string, std::u16string> cases[] = {
        {u"Title", u"", u"Title"},
        {u"Title", u"6.10", u"Title v6.10"},
        {filled, u"6.10", filled + u" v6"},
        {filled + filled, u"", filled + u"xxx"},
        {u"T", std::u16string(70, u'9'), u"T v" + std::u16string(61, u'9')},
    };
    for (const auto& [title, version, caption] : cases) {
        NotingDialog titled{&command, title.c_str(), version.empty() ? nullptr : version.c_str()};
        EXPECT_EQ(Show(titled).window.caption, caption);
    }
    NotingDialog versioned{&command, nullptr, u"6.10"};
    EXPECT_EQ(Show(versioned).window.caption, u"Plyweld v6.10");
    NotingDialog retitled{&command, u"Title", u"6.10"};
    retitled.SetTitle(nullptr);
    EXPECT_EQ(Show(retitled).window.caption, u"Plyweld v6.10");
}

bool IsPlaceStored(i16 number) {
    return ZKFX_GetSettings("WPOS", number, nullptr, 0, "Plyweld") != 0;
}

TEST_F(DialogTest, StoresPlaceUnlessMinimized) {
    for (const u64 next : {kMinimize, kRestore, kMaximize}) {
        platform::headless::Reset();
        NotingDialog placed{&command, nullptr, nullptr};
        placed.keyOffset = 3;
        OpenDialog& open = Show(placed);
        open.Send(kSystemCommand, kMinimize);
        open.Send(kSystemCommand, next);
        EXPECT_EQ(open.Send(kSystemCommand, kCloseCommand), 0);
        EXPECT_EQ(IsPlaceStored(12003), next != kMinimize);
    }
}

struct ForgettingDialog final : NotingDialog {
    using FinPIDialog::ForgetStoredPosition;
    using NotingDialog::NotingDialog;
};

TEST_F(DialogTest, ForgetsOnlyItsOwnPlace) {
    StorePlace(50, 60);
    const ForgettingDialog placed{&command, nullptr, nullptr};
    placed.ForgetStoredPosition(21000);  // 33000 as a signed number
    EXPECT_TRUE(IsPlaceStored(22000));
    placed.ForgetStoredPosition(0);
    EXPECT_FALSE(IsPlaceStored(22000));
    ZKFX_PutSettings("WPOS", 0, "place", 5, "Plyweld");
    placed.ForgetStoredPosition(53536);
    EXPECT_FALSE(IsPlaceStored(0));
}

TEST_F(DialogTest, RestoresPlaceOnceAfterCreation) {
    StorePlace(50, 60);
    OpenDialog& open = Show(dialog);
    EXPECT_EQ(open.window.rectangle.left, 50);
    EXPECT_EQ(open.window.rectangle.Width(), desk.newWindow.Width());
    open.window.rectangle = {500, 500, 600, 600};
    open.Send(kPositionChanged);
    EXPECT_EQ(open.window.rectangle.left, 50);
    open.window.rectangle = {500, 500, 600, 600};
    open.Send(kPositionChanged);
    EXPECT_EQ(open.window.rectangle.left, 500) << "later moves are the user's";
    EXPECT_EQ(dialog.LoadWindowPosition(0), 1);
    EXPECT_EQ(dialog.LoadWindowPosition(1), 0) << "stored for another offset";
}

TEST_F(DialogTest, StoredPlaceMustBeOnDesktop) {
    // The desktop's left edge, the stored corner, whether the window goes there.
    const std::tuple<int, i16, i16, bool> cases[] = {
        {0, 0, 0, true},         {0, 1919, 1079, true},  // the last pixel
        {0, 1920, 100, false},   {0, 100, 1080, false},      {0, -50, 100, false},
        {-1920, -50, 100, true}, {-1920, -1921, 100, false},
    };
    for (const auto& [edge, left, top, moves] : cases) {
        platform::headless::SetDesktop({edge, 0, 1920, 1080});
        StorePlace(left, top);
        NotingDialog placed{&command, nullptr, nullptr};
        const platform::Rectangle& window = Show(placed).window.rectangle;
        EXPECT_EQ(window.left, moves ? left : desk.newWindow.left) << left;
        EXPECT_EQ(window.top, moves ? top : desk.newWindow.top) << top;
    }
}

TEST_F(DialogTest, TimerRunsUntilWindowEnds) {
    OpenDialog& open = Show(dialog);
    dialog.StartTimer(&open.window);
    EXPECT_EQ(open.timers, (std::map<u64, u32>{{1, 100}}));
    EXPECT_EQ(open.Send(standin::kDestroyMessage), 1);
    EXPECT_TRUE(open.timers.empty());
    dialog.StopTimer(&open.window);
    EXPECT_EQ(standin::App().calls.Of(standin::HostCall::kKillTimer), 1U) << "it runs no longer";
}

// A host may refuse to end it; after some ticks without an end it is updated again.
TEST_F(DialogTest, TimerResumesIfDialogStays) {
    OpenDialog& open = Show(dialog);
    standin::App().faults.refuseKind = standin::FaultPlan::AllOf(standin::HostCall::kEndDialog);
    open.Press(2);
    dialog.TakeNotes();
    open.Send(standin::kTimerMessage);
    EXPECT_EQ(dialog.TakeNotes(), Notes{}) << "it may be on its way";
    for (int tick = 2; tick <= 6; ++tick) {
        EXPECT_EQ(dialog.TakeNotes(), Notes{}) << tick;
        open.Send(standin::kTimerMessage);
    }
    EXPECT_EQ(dialog.TakeNotes(), Notes{"timer"});
    open.Press(2);
    open.Press(3);
    dialog.TakeNotes();
    open.Send(standin::kTimerMessage);
    EXPECT_EQ(dialog.TakeNotes(), Notes{"timer"}) << "a later command was none of the end";
}

TEST_F(DialogTest, LayoutMovesControls) {
    // The place of one control, from 30,40,100,50, and of the dialog's buttons.
    const std::tuple<u16, void (*)(WindowHandle), platform::Rectangle> cases[] = {
        {1003, [](auto w) { SizeControl(w, 1003, 20, 40); }, {30, 40, 70, 60}},
        {1003, [](auto w) { SizeControl(w, 1003, -1, 40); }, {30, 40, 70, 50}},
        {1003, [](auto w) { SizeControl(w, 1003, 0, -1); }, {30, 40, 100, 40}},
        {1003, [](auto w) { SizeControl(w, 1003, -1, 0); }, {30, 40, 30, 50}},
        {1003, [](auto w) { SizeControl(w, 1003, -1, -1); }, {30, 40, 100, 50}},
        {1003, [](auto w) { SizeControl(w, 99, 1, 1); }, {30, 40, 100, 50}},
        {1003, [](auto w) { PlaceControl(w, 1003, 0, 0, false); }, {0, 0, 70, 10}},
        {1003, [](auto w) { PlaceControl(w, 1003, 0, -1, false); }, {30, 0, 100, 10}},
        {1003, [](auto w) { PlaceControl(w, 1003, 5, 6, false); }, {6, 5, 76, 15}},
        {1003, [](auto w) { PlaceControl(w, 1003, -1, 80, true); }, {80, 40, 100, 50}},
        {1003, [](auto w) { PlaceControl(w, 1003, -1, 95, true); }, {95, 40, 105, 50}},
        {1003, [](auto w) { PlaceControl(w, 1003, -1, -1, true); }, {30, 40, 100, 50}},
        {1003, [](auto w) { ShiftControlEdges(w, 1003, -3, 2); }, {30, 37, 100, 52}},
        {1, [](auto w) { ShrinkDialogHeight(w, -14); }, {114, 71, 164, 85}},
        {2, [](auto) {}, {171, 71, 221, 85}},
    };
    OpenDialog& open = Show(dialog);
    HWND__& window = open.window;
    open.texts[1003] = u"text";
    ShowHideControl(&window, 1003, -1, false);
    EXPECT_EQ(open.texts[1003], u"text");
    ShowHideControl(&window, 1003, 0, false);
    EXPECT_EQ(open.texts[1003], u"") << "the table has no text 0";
    for (const auto& [control, change, place] : cases) {
        window.controls[1003].rectangle = {30, 40, 100, 50};
        change(&window);
        const platform::Rectangle& now = window.controls[control].rectangle;
        EXPECT_EQ(std::tie(now.left, now.top, now.right, now.bottom),
                  std::tie(place.left, place.top, place.right, place.bottom));
    }
    EXPECT_EQ(window.rectangle.Height(), desk.newWindow.Height() - 14);
    EXPECT_EQ(window.rectangle.Width(), desk.newWindow.Width());
}

}  // namespace
