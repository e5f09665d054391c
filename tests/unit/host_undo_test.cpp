// Edits: what a cancelled one leaves, and undo and redo.
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

constexpr u32 kArticulation = HostTag("edIM");

i16 Start(const char16* text) {
    return FX_StartFinaleEdit_UTF16(text, kInterfaceVersion);
}
i16 End() {
    return FX_EndFinaleEdit(kInterfaceVersion);
}
i16 Cancel() {
    return FX_CancelFinaleEdit(kInterfaceVersion);
}

// A score with something of every kind, and an edit that touches all of it.
class HostUndo : public ::testing::Test {
protected:
    HostUndo() : host{2, 4} {
        host.Layer(1, 1, 0, "(3:2 e:c4 e:d4 e:e4) q:r q:f4 q:g4");
        host.Layer(1, 1, 1, "h:c4 h:d4");
        host.Layer(2, 2, 0, "w:c4");
        for (const char* content : {"a", "b", "c"}) {
            host.Attach({1, 1, 0, 0}, kArticulation, content);
        }
        host.Slur({1, 1, 0, 0}, {2, 2, 0, 0});
        host.Expression(1, 1, 0, 0);
        host.Expression(1, 1, 1024, 1);
        host.SelectAll();
    }

    void ChangeEverything() {
        Document& score = host.Score();
        {
            const Loan loan{host.Key(1, 1, 0)};
            ASSERT_EQ(loan.Delete(0, 1), 1);
            ASSERT_EQ(loan.Insert(1, 1), 1);
            loan[1].duration = 512;
            ASSERT_EQ(loan.Save(), 1);
        }
        host.Attach({1, 1, 0, 2}, kArticulation, "new");
        host.Layer(1, 4, 2, "q:c4");
        score.Records().Delete(Tag::kExpression, RecordKey::Other(1, 0));
        score.Records().Create(Tag::kExpression, RecordKey::Other(1, 0),
                               BytesOf(MyExpressionAssign{}));
        score.Records().Save(HostTag("pfgp"), RecordKey::Preference(0), Bytes(76, 'x'));
        App().activeLayer = 1;
        ASSERT_TRUE(RunMenuCommand(MenuCommand::kClearLayer));
        ASSERT_TRUE(RunMenuCommand(MenuCommand::kShowActiveLayerOnly));
        score.MakeLayoutStale();
        const EREGION whole = score.WholeRegion();
        ASSERT_EQ(FX_RebeamRegion(&whole, 0, kInterfaceVersion), 1);
    }

    StandIn host;
};

TEST_F(HostUndo, CancelRestoresEverything) {
    const DocumentContent before = host.Score().Content();
    const u64 digest = host.Score().Digest();
    const u32 gone = host.EntryNumber({1, 1, 0, 0});
    ASSERT_EQ(Start(u"Change"), 1);
    ChangeEverything();
    EXPECT_NE(host.Score().Digest(), digest);
    ASSERT_EQ(Cancel(), 1);
    EXPECT_TRUE(host.Score().Content() == before);
    EXPECT_EQ(host.Score().Digest(), digest);
    EXPECT_EQ(host.Score().HomeOf(gone), host.Key(1, 1, 0));
    EXPECT_EQ(host.Attached({1, 1, 0, 0}, kArticulation), "a,b,c");
    EXPECT_TRUE(host.Score().UndoTexts().empty());
}

TEST_F(HostUndo, UndoAndRedoGoBackAndForth) {
    const u64 first = host.Score().Digest();
    ASSERT_EQ(Start(u"One"), 1);
    ChangeEverything();
    ASSERT_EQ(End(), 1);
    const u64 second = host.Score().Digest();
    ASSERT_EQ(Start(u"Two"), 1);
    host.Layer(2, 2, 0, "h:c4 h:d4");
    ASSERT_EQ(End(), 1);
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
    ASSERT_EQ(Start(u"Other"), 1);
    host.Layer(2, 3, 0, "w:d4");
    ASSERT_EQ(End(), 1);
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
    ASSERT_EQ(Start(u"One"), 1);
    host.Layer(2, 2, 0, "h:c4 h:d4");
    ASSERT_EQ(End(), 1);
    host.Layer(2, 2, 0, "h:r h:d4");
    EXPECT_FALSE(host.Score().Undo());
    ASSERT_TRUE(RunMenuCommand(MenuCommand::kShowActiveLayerOnly));
    EXPECT_EQ(host.Score().UndoTexts().size(), 1U) << "the host's own commands are edits";
}

}  // namespace
}  // namespace standin
