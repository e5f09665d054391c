// Documents and the names of their staves, differences from the imported score, and undo.
#include "tests/unit/support/loan.h"

namespace standin {
namespace {

TEST(HostDocuments, OneIsCurrent) {
    StandIn host;
    const u16 first = host.Score().Number();
    const u16 second = App().OpenDocument(u"two").Number();
    const u16 third = App().OpenDocument(u"three").Number();
    App().CloseDocument(second);
    EXPECT_EQ(FX_GetNextEnigmaDocument(0, kInterfaceVersion), first);
    EXPECT_EQ(FX_GetNextEnigmaDocument(first, kInterfaceVersion), third);
    EXPECT_EQ(FX_SetCurrentEnigmaDocument(second, kInterfaceVersion), 0);
    char16 path[4];
    EXPECT_EQ(FX_GetDocumentPath(third, path, 4, kInterfaceVersion), 1);
    EXPECT_EQ(std::u16string{path}, u"thr") << "cut, with its end";
}

TEST(HostStaves, SharedNamesAreNumbered) {
    StandIn host{0};
    host.Score().AddStaff(4, u"Violin");
    host.Score().AddStaff(2, u"Viola");
    host.Score().AddStaff(9, u"Violin");
    EXPECT_EQ(host.Score().AutoNumberedName(4), u"Violin 1");
    EXPECT_EQ(host.Score().AutoNumberedName(2), u"Viola");
    EXPECT_EQ(host.Score().AutoNumberedName(9), u"Violin 2");
}

using Places = std::set<std::pair<u16, u16>>;

class HostChanges : public ::testing::Test {
protected:
    HostChanges() : host{2, 5} {
        host.LayerEverywhere(0, "q:c4 q:d4 h:e4");
        host.Attach({1, 4, 0, 0}, kArticulation, "a");
        host.Slur({1, 1, 0, 0}, {2, 3, 0, 0});
        host.Expression(1, 2, 0, 0);
        host.Score().MarkImported();
    }

    std::pair<u16, u16> At(i16 slot, u16 measure) { return {host.Staff(slot), measure}; }

    StandIn host;
};

TEST_F(HostChanges, RestoredContentIsUnchanged) {
    const EREGION whole = host.Score().WholeRegion();
    EXPECT_EQ(FX_RebeamRegion(&whole, 0, kInterfaceVersion), 1);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{}) << "beams are not a change";
    const std::vector<EXENTRY> entries = host.Score().FindFrame(host.Key(1, 1, 0))->entries;
    host.Score().PutFrame(host.Key(1, 1, 0), {entries[0], entries[1]});
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 1)});
    host.Score().PutFrame(host.Key(1, 1, 0), entries);
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});

    host.Score().BeginEdit(u"Clear");
    host.Score().PutFrame(host.Key(2, 2, 0), {});
    EXPECT_EQ(host.Score().ImportedFrame(host.Key(2, 2, 0))->entries.size(), 3U);
    host.Score().EndEdit();
    host.Score().Undo();
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{});
}

TEST_F(HostChanges, IncludeDetailsExpressionsAndShapes) {
    RecordStore& records = host.Score().Records();
    records.DeleteDetails(host.EntryNumber({1, 4, 0, 0}));
    EXPECT_EQ(host.Score().ChangedMeasures(), Places{At(1, 4)});
    records.Delete(Tag::kExpression, RecordKey::Other(2, 0));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 2), At(1, 4)}));
    auto shape = FromBytes<EDTSmartShape>(*records.Find(Tag::kSmartShape, RecordKey::Other(1)));
    ++shape.start.position;
    records.Save(Tag::kSmartShape, RecordKey::Other(1), BytesOf(shape));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2), At(1, 4)}));
    records.Delete(Tag::kSmartShape, RecordKey::Other(1));
    EXPECT_EQ(host.Score().ChangedMeasures(), (Places{At(1, 1), At(1, 2), At(1, 4), At(2, 3)}));
}

class HostUndo : public ::testing::Test {
protected:
    // As one edit.
    u64 DigestAfter(const char16* text, std::string_view notation) {
        EXPECT_TRUE(score.BeginEdit(text));
        host.Layer(2, 2, 0, notation);
        EXPECT_TRUE(score.EndEdit());
        return score.Digest();
    }

    StandIn host{2, 4};
    Document& score = host.Score();
};

TEST_F(HostUndo, UndoesAndRedoes) {
    const u64 first = score.Digest();
    const u64 second = DigestAfter(u"One", "w:c4");
    const u64 third = DigestAfter(u"Two", "h:c4 h:d4");
    EXPECT_EQ(score.UndoTexts(), (std::vector<std::u16string>{u"One", u"Two"}));
    EXPECT_TRUE(score.Undo());
    EXPECT_EQ(score.Digest(), second);
    EXPECT_TRUE(score.Undo());
    EXPECT_EQ(score.Digest(), first);
    EXPECT_FALSE(score.Undo());
    EXPECT_TRUE(score.Redo() && score.Redo());
    EXPECT_EQ(score.Digest(), third);
    EXPECT_FALSE(score.Redo());
    EXPECT_TRUE(score.Undo());
    DigestAfter(u"Other", "w:d4");
    EXPECT_TRUE(score.RedoTexts().empty()) << "a new edit ends what could be redone";
}

TEST_F(HostUndo, EditsDoNotNest) {
    EXPECT_FALSE(score.EndEdit() || score.CancelEdit());
    ASSERT_TRUE(score.BeginEdit(u"One"));
    EXPECT_FALSE(score.BeginEdit(u"Two"));
    EXPECT_EQ(Loan{host.Key(1, 1, 0)}.Save(), 1);  // with nothing changed
    EXPECT_FALSE(App().OpenDocument(u"other").CancelEdit()) << "it has no edit open";
    ASSERT_TRUE(score.EndEdit());
    EXPECT_TRUE(score.UndoTexts().empty());
}

TEST_F(HostUndo, NeedsAnEdit) {
    DigestAfter(u"One", "h:c4 h:d4");
    host.Layer(2, 2, 0, "h:r h:d4");
    EXPECT_FALSE(score.Undo());
    ASSERT_TRUE(RunMenuCommand(MenuCommand::kShowActiveLayerOnly));
    EXPECT_EQ(score.UndoTexts().size(), 1U) << "the host's own commands are edits";
}

}  // namespace
}  // namespace standin
