// Edits: what a cancelled one leaves, and undo and redo.
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

i16 Start(const char16* text) {
    return FX_StartFinaleEdit_UTF16(text, kInterfaceVersion);
}
i16 End() {
    return FX_EndFinaleEdit(kInterfaceVersion);
}
i16 Cancel() {
    return FX_CancelFinaleEdit(kInterfaceVersion);
}

class HostUndo : public ::testing::Test {
protected:
    void Edit(const char16* text, std::string_view notation) {
        ASSERT_EQ(Start(text), 1);
        host.Layer(2, 2, 0, notation);
        ASSERT_EQ(End(), 1);
    }

    StandIn host{2, 4};
};

TEST_F(HostUndo, UndoAndRedoGoBackAndForth) {
    const u64 first = host.Score().Digest();
    Edit(u"One", "w:c4");
    const u64 second = host.Score().Digest();
    Edit(u"Two", "h:c4 h:d4");
    const u64 third = host.Score().Digest();

    EXPECT_EQ(host.Score().UndoTexts(), (std::vector<std::u16string>{u"One", u"Two"}));
    EXPECT_TRUE(host.Score().Undo());
    EXPECT_EQ(host.Score().Digest(), second);
    EXPECT_TRUE(host.Score().Undo());
    EXPECT_EQ(host.Score().Digest(), first);
    EXPECT_FALSE(host.Score().Undo());
    EXPECT_TRUE(host.Score().Redo());
    EXPECT_TRUE(host.Score().Redo());
    EXPECT_EQ(host.Score().Digest(), third);
    EXPECT_FALSE(host.Score().Redo());

    EXPECT_TRUE(host.Score().Undo());
    Edit(u"Other", "w:d4");
    EXPECT_TRUE(host.Score().RedoTexts().empty()) << "a new edit ends what could be redone";
}

TEST_F(HostUndo, EditsDoNotNestAndEmptyOnesLeaveNoTrace) {
    EXPECT_EQ(End(), 0);
    EXPECT_EQ(Cancel(), 0);
    ASSERT_EQ(Start(u"One"), 1);
    EXPECT_EQ(Start(u"Two"), 0);
    {
        const Loan loan{host.Key(1, 1, 0)};
        EXPECT_EQ(loan.Save(), 1);  // with nothing changed
    }
    ASSERT_EQ(End(), 1);
    EXPECT_TRUE(host.Score().UndoTexts().empty());
    EXPECT_EQ(FX_StartFinaleEdit_UTF16(nullptr, kInterfaceVersion), 0);
}

TEST_F(HostUndo, EachDocumentHasItsOwnEdit) {
    Document& other = App().OpenDocument(u"other");
    ASSERT_EQ(Start(u"One"), 1);
    App().SetCurrentDocument(other.Number());
    EXPECT_EQ(Cancel(), 0) << "the other document has no edit open";
    EXPECT_EQ(Start(u"Two"), 1);
    EXPECT_EQ(End(), 1);
    App().SetCurrentDocument(host.Score().Number());
    EXPECT_EQ(Cancel(), 1);
}

TEST_F(HostUndo, AChangeOutsideAnEditCannotBeUndone) {
    Edit(u"One", "h:c4 h:d4");
    host.Layer(2, 2, 0, "h:r h:d4");
    EXPECT_FALSE(host.Score().Undo());
    ASSERT_TRUE(RunMenuCommand(MenuCommand::kShowActiveLayerOnly));
    EXPECT_EQ(host.Score().UndoTexts().size(), 1U) << "the host's own commands are edits";
}

}  // namespace
}  // namespace standin
