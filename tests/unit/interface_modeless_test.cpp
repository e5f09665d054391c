// A command with a modeless dialog: what its timer watches, and when it goes.
#include "Class Files/FinPIModeless.h"
#include "Class Files/interface/WindowMessages.h"
#include "tests/unit/interface_support.h"

namespace {

using Notes = std::vector<std::string>;

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
    i16 HandleCommand(WindowHandle, u16, u8*) override {
        Notes& notes = m_notes;
        whileHandling();
        notes.emplace_back("handled");
        return 0;
    }

    std::function<void()> whileHandling;

private:
    Notes& m_notes;
};

class ModelessTest : public InterfaceTest {
protected:
    Notes notes;
    NotingCommand& modeless = *new NotingCommand{notes};  // owns itself
    OpenDialog& open = Show(modeless);
};

TEST_F(ModelessTest, OutlivesItsHandlerWhenTheHostEndsTheWindow) {
    modeless.whileHandling = [&] { open.Send(WindowMessage::kDestroy); };
    open.Press(1009);
    EXPECT_EQ(notes, (Notes{"saved", "handled", "gone"}));
}

}  // namespace
