// A command with a modeless dialog: the changes that its timer watches, and when it is destroyed.
#include "Class Files/FinPIModeless.h"
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

class ModelessTest : public InterfaceTest {
protected:
    Notes notes;
    NotingCommand& modeless = *new NotingCommand{notes};  // owns itself
    OpenDialog& open = Show(modeless);
};

TEST_F(ModelessTest, OutlivesItsHandler) {
    modeless.whileHandling = [&] {
        open.Send(WindowMessage::kDestroy);
        EXPECT_EQ(open.Send(WindowMessage::kPaint), 0) << "it has ended";
        EXPECT_EQ(open.Send(WindowMessage::kTimer), 0);
    };
    open.Press(1009);
    EXPECT_EQ(notes, (Notes{"saved", "handled", "gone"}));
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
