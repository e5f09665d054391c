// Documents and the names of their staves, what differs from the score as it was imported, and
// edits that are undone.
#include <array>

#include "tests/unit/support/loan.h"

namespace standin {
namespace {

TEST(HostDocuments, AreListedByNumberAndOneIsCurrent) {
    StandIn host;
    const u16 first = host.Score().Number();
    const u16 second = App().OpenDocument(u"C:\\two.musicxml").Number();
    const u16 third = App().OpenDocument(u"three").Number();
    App().CloseDocument(second);
    EXPECT_EQ(FX_GetNextEnigmaDocument(0, kInterfaceVersion), first);
    EXPECT_EQ(FX_GetNextEnigmaDocument(first, kInterfaceVersion), third);
    EXPECT_EQ(FX_SetCurrentEnigmaDocument(second, kInterfaceVersion), 0);
    std::array<char16, 4> path{};
    EXPECT_EQ(FX_GetDocumentPath(third, path.data(), 4, kInterfaceVersion), 1);
    EXPECT_EQ(std::u16string{path.data()}, u"thr") << "cut, with its end";
    EXPECT_EQ(FX_GetDocumentPath(second, path.data(), 4, kInterfaceVersion), 0);
}

TEST(HostStaves, NamesThatAreSharedAreNumbered) {
    StandIn host{0};
    const std::pair<u16, const char16*> staves[] = {{4, u"Violin"}, {2, u"Viola"}, {9, u"Violin"}};
    for (const auto& [number, name] : staves) {
        host.Score().AddStaff(number, name);
    }
    std::u16string names;
    for (const u16 staff : {u16{4}, u16{2}, u16{9}, u16{5}}) {
        std::array<char16, 511> text{};
        FX_AutoNumberedName_UTF16(staff, 1, 0, text.data(), kInterfaceVersion);
        names += std::u16string{text.data()} + u";";
    }
    EXPECT_EQ(names, u"Violin 1;Viola;Violin 2;;");
}

using Places = std::set<std::pair<u16, u16>>;

class HostChanges : public ::testing::Test {
protected:
    HostChanges() : host{2, 5} {
        for (u16 measure = 1; measure <= 4; ++measure) {
            host.Layer(1, measure, 0, "q:c4 q:d4 h:e4");
            host.Layer(2, measure, 0, "w:c4");
        }
        host.Attach({1, 1, 0, 0}, kArticulation, "a");
        slur = host.Slur({1, 1, 0, 0}, {2, 3, 0, 0});
        host.Expression(1, 2, 0, 0);
        host.Score().MarkImported();
    }

    std::pair<u16, u16> At(i16 slot, u16 measure) { return {host.Staff(slot), measure}; }

    StandIn host;
    u16 slur;
};

TEST_F(HostChanges, NothingAtFirstNorWhenTouchedAndPutBack) {
    const EREGION whole = host.Score().WholeRegion();
    EXPECT_EQ(FX_RebeamRegion(&whole, 0, kInterfaceVersion), 1);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{}) << "beams are no change";
    const std::vector<EXENTRY> entries = host.Score().FindFrame(host.Key(1, 1, 0))->entries;
    std::vector<EXENTRY> shorter = entries;
    shorter.pop_back();
    host.Score().PutFrame(host.Key(1, 1, 0), shorter);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 1)});
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});

    host.Score().BeginEdit(u"Clear");
    host.Score().PutFrame(host.Key(2, 2, 0), {});
    EXPECT_EQ(host.Score().ImportedFrame(host.Key(2, 2, 0))->entries.size(), 1U);
    host.Score().EndEdit();
    host.Score().Undo();
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});
}

TEST_F(HostChanges, EntryDetailsExpressionsAndShapeEndsCount) {
    RecordStore& records = host.Score().Records();
    const u32 entry = host.EntryNumber({1, 1, 0, 0});
    records.Save(kArticulation, RecordKey::OfEntry(entry), Bytes(12, 'z'));
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 1)});

    auto expression =
        FromBytes<MyExpressionAssign>(*records.Find(Tag::kExpression, RecordKey::Other(2, 0)));
    expression.layer = 2;
    records.Save(Tag::kExpression, RecordKey::Other(2, 0), BytesOf(expression));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2)}));

    auto shape = FromBytes<EDTSmartShape>(*records.Find(Tag::kSmartShape, RecordKey::Other(slur)));
    shape.end = {host.Staff(2), 4, host.EntryNumber({2, 4, 0, 0}), 0};
    records.Save(Tag::kSmartShape, RecordKey::Other(slur), BytesOf(shape));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2), At(2, 3), At(2, 4)}));
}

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
    EXPECT_TRUE(host.Score().Redo() && host.Score().Redo());
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
