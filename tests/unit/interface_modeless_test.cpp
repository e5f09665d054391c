// A command with a modeless dialog: the changes that its timer watches, and when it is destroyed.
#include "Class Files/FinPIModeless.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/HostMenu.h"
#include "Class Files/interface/WindowMessages.h"
#include "tests/unit/interface_support.h"

namespace {

class NotingCommand final : public FinPIModeless {
public:
    explicit NotingCommand(Notes& notes)
        : FinPIModeless{nullptr, 0, 22000, u"Plyweld"}, m_notes{notes} {}
    ~NotingCommand() override { m_notes.emplace_back("gone"); }

    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return u"Plyweld"; }
    void SaveSettings() override { m_notes.emplace_back("saved"); }
    i16 ProcessAllDocuments() const override { return 0; }
    void UpdateSelectionText(WindowHandle) override { m_notes.emplace_back("selection"); }
    void OnDocumentListChanged(WindowHandle) override {
        m_notes.emplace_back("documents");
        if (whenTold) {
            whenTold();
        }
    }
    void OnCurrentDocumentChanged(WindowHandle) override { m_notes.emplace_back("current"); }
    void OnListedMenuEvent(WindowHandle) override { m_notes.emplace_back("listed"); }
    void OnMenuEvent(WindowHandle, u32 event) override {
        m_notes.push_back("menu " + std::to_string(event));
    }
    i16 HandleCommand(WindowHandle, u16, u8*) override {
        Notes& notes = m_notes;
        whileHandling();
        notes.emplace_back("handled");
        return 0;
    }

    std::function<void()> whileHandling;
    std::function<void()> whenTold;

private:
    Notes& m_notes;
};

// Runs with an error pending: one of before, and one that counts as none.
class RunningCommand final : public FinPIModeless {
public:
    RunningCommand() : FinPIModeless{nullptr, 0, 22000, u"Running"} {}

    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return u"Running"; }
    i16 ProcessAllDocuments() const override { return 0; }
    i16 HandleCommand(WindowHandle window, u16, u8*) override {
        PostError(FinPIAppError{"elsewhere", "before"});
        RunModeless();
        return CloseDialog(window);
    }
    i16 Execute(const EREGION*, const EREGION*) override {
        EXPECT_EQ(CloseDialog(Window()), 0) << "it must outlive its run";
        FinPIAppError none{"", ""};
        none.m_msgID = 0;
        PostError(none);
        return 1;
    }
};

class ModelessTest : public InterfaceTest {
protected:
    Notes notes;
    NotingCommand& modeless = *new NotingCommand{notes};  // owns itself
    OpenDialog& open = Show(modeless);
};

TEST_F(ModelessTest, OutlivesItsHandler) {
    modeless.whileHandling = [&] {
        EXPECT_EQ(open.Send(WindowMessage::kDestroy), 1);
        EXPECT_EQ(open.Send(WindowMessage::kPaint), 0) << "it has ended";
        EXPECT_EQ(open.Send(WindowMessage::kTimer), 0);
    };
    open.Press(1009);
    EXPECT_EQ(notes, (Notes{"saved", "handled", "gone"}));
}

TEST_F(ModelessTest, RunFailsOnlyWithErrorOfItsOwn) {
    EXPECT_EQ((new RunningCommand)->Start(nullptr, nullptr), 0) << "no document";
    host.SelectAll();
    EREGION whole = host.Score().WholeRegion();
    EXPECT_EQ((new RunningCommand)->Start(nullptr, &whole), 0);
    EXPECT_EQ(desk.Newest()->Press(1), 1) << "it closes after the run";
    EXPECT_TRUE(standin::App().alerts.empty());
    EXPECT_EQ(standin::App().redrawn.size(), 1U) << "the change is kept";
    g_pendingError.reset();
    open.Send(WindowMessage::kClose);
}

TEST_F(ModelessTest, NextDialogAppearsBesideItsPredecessor) {
    EXPECT_EQ(modeless.LoadWindowPosition(0), 0);
    Notes others;
    auto& second = *new NotingCommand{others};
    EXPECT_EQ(second.LoadWindowPosition(0), 1);
    EXPECT_EQ(second.Left(), desk.newWindow.left + 10);
    EXPECT_EQ(second.Top(), desk.newWindow.top + 10);
    open.Send(WindowMessage::kSystemCommand, SystemCommand::kMinimize);
    open.window.rectangle = {-32000, -32000, -31900, -31900};
    EXPECT_EQ(second.LoadWindowPosition(0), 1);
    EXPECT_EQ(second.Left(), desk.newWindow.left + 10) << "where it was before";
    const i16 record[14] = {50, 60};
    ZKFX_PutSettings("WPOS", 22000, record, sizeof(record), "Plyweld");
    EXPECT_EQ(second.LoadWindowPosition(0), 1);
    EXPECT_EQ(second.Left(), 50);
    second.ForgetWindowPlace(0);
    EXPECT_EQ(ZKFX_GetSettings("WPOS", 22000, nullptr, 0, "Plyweld"), 0U);
    open.Send(WindowMessage::kClose);
    EXPECT_EQ(second.NextLive(), nullptr) << "that one is gone";
    Show(second).Send(WindowMessage::kClose);
}

TEST_F(ModelessTest, ExceptionEndsOnlyItsTick) {
    modeless.whenTold = [] { throw std::bad_alloc{}; };
    open.Send(WindowMessage::kTimer);
    EXPECT_EQ(notes, Notes{"documents"});
    modeless.whenTold = nullptr;
    host.SelectAll();
    open.Send(WindowMessage::kTimer);
    EXPECT_EQ(notes.back(), "selection");
    open.Send(WindowMessage::kClose);
}

TEST_F(ModelessTest, TickReportsChanges) {
    const auto tick = [this] {
        notes.clear();
        open.Send(WindowMessage::kTimer);
        return notes;
    };
    EXPECT_EQ(tick(), Notes{"documents"}) << "the first";
    EXPECT_EQ(tick(), Notes{});
    const std::pair<i64, Notes> events[] = {
        {10500, {"menu 10500"}},
        {10501, {"listed", "menu 10501"}},
        {10503, {"listed", "menu 10503"}},
        {10504, {"menu 10504"}},
    };
    for (const auto& [event, reported] : events) {
        open.Send(MenuEventMessage(), 0, event);
        EXPECT_EQ(tick(), reported);
        EXPECT_EQ(tick(), Notes{});
    }
    const u16 first = host.Score().Number();
    const u16 other = standin::App().OpenDocument(u"other").Number();
    EXPECT_EQ(tick(), Notes{"documents"});
    standin::App().SetCurrentDocument(other);
    host.SelectAll();
    EXPECT_EQ(tick(), Notes{"current"}) << "in which nothing is selected";
    EXPECT_EQ(tick(), Notes{"current"}) << "for as long as it is";
    standin::App().SetCurrentDocument(first);
    EXPECT_EQ(tick(), Notes{"selection"});
    open.Send(WindowMessage::kClose);
}

}  // namespace
