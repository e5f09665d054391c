// What commands and dialogs do that replace none of the operations that they may replace.
#include "Class Files/FinPIModeless.h"
#include "tests/unit/interface_support.h"

namespace {

class PlainCommand final : public FinPIModeless {
public:
    PlainCommand() : FinPIModeless{nullptr, 3, 22000, u"Plain"} {}

    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return u"Plain"; }
    i16 ProcessAllDocuments() const override { return 0; }
    i16 HandleCommand(WindowHandle, u16, u8*) override { return 0; }

    // Whether a run takes all measures, all staves, and what it does without a selection.
    std::string WholesOf(const EREGION* selection, const EREGION& wholeDocument) {
        ChooseRegion(selection, wholeDocument);
        return std::to_string(m_wholeMeasures) + std::to_string(m_wholeStaves) +
               std::to_string(m_noSelection);
    }
};

class PlainDialog final : public FinPIDialog {
public:
    PlainDialog() : FinPIDialog{nullptr, 22000, u"Plain", nullptr, nullptr} {}
    i16 HandleCommand(WindowHandle, u16, u8*) override { return 0; }
};

using Defaults = InterfaceTest;

TEST_F(Defaults, LetRunContinue) {
    PlainCommand plain;
    EXPECT_EQ(plain.PrepareDocument(), 1);
    EXPECT_EQ(plain.ProcessMeasure(), 1);
    EXPECT_EQ(plain.ProcessStaffMeasure(1, 1, 1, 1), 1);
    EXPECT_EQ(plain.ProcessFrame(), 1);
    EXPECT_EQ(plain.ProcessEntry(), 1);
    EXPECT_EQ(plain.ProcessNote(), 1);
    EXPECT_EQ(plain.AllowProgress(1, 1), 1);
    EXPECT_EQ(plain.KeepEdit(), 1);
    EXPECT_EQ(command.ShowDialog(nullptr, nullptr), 1);
    EXPECT_EQ(plain.LoadSettings(), 1);
    EXPECT_EQ(plain.OnInitializeWindow(nullptr), 1);
    EXPECT_EQ(plain.OnDialogReady(), 2);
    for (const i16 reserved :
         {plain.UnusedHook(), plain.UnusedModelessHook(), plain.UnusedAnswer()}) {
        EXPECT_EQ(reserved, 1);
    }
}

TEST_F(Defaults, ChangeNothing) {
    PlainCommand plain;
    EXPECT_EQ(plain.Execute(nullptr, nullptr), 0);
    EXPECT_EQ(plain.ChangesGeneralPrefs(), 0);
    EXPECT_EQ(plain.GetWholeDocumentQuestion(), 0);
    EXPECT_EQ(plain.GetAllDocumentsQuestion(), 0);
    EXPECT_EQ(plain.GetOtherDocumentsQuestion(), 0);
    EXPECT_EQ(plain.GetLastCommandItem(), 0);
    EXPECT_EQ(plain.CanSkipDialog(), 0);
    EXPECT_EQ(plain.NeedsLayoutUpdate(), 0);
    for (const i16 reserved : {plain.FinPI::UnusedQuery(), plain.UnusedModelessQuery1(),
                               plain.UnusedModelessQuery2(), plain.UnusedModelessQuery3()}) {
        EXPECT_EQ(reserved, 0);
    }
}

TEST_F(Defaults, DialogIgnoresEvents) {
    PlainDialog plain;
    EXPECT_EQ(plain.OnOtherMessage(nullptr, 0, 0, 0), 0);
    EXPECT_EQ(plain.OnActivate(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.OnPaint(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.OnCharacter(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.OnControlColor(nullptr, 0, nullptr, 0), 0);
    EXPECT_EQ(plain.OnMinimize(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.OnMaximize(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.OnRestore(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.GetExtraShowFlags(nullptr, 0), 0);
    EXPECT_EQ(plain.GetPositionKeyOffset(nullptr, 0, 0), 0);
    EXPECT_EQ(plain.UnusedQuery(), 0);
    EXPECT_EQ(plain.UnusedResult(), 0);
}

TEST_F(Defaults, NewCommandHasNoSavedSetting) {
    const PlainCommand plain;
    EXPECT_EQ(plain.ItemIndex(), 3);
    EXPECT_EQ(plain.CommandItem(), 3);
    EXPECT_EQ(plain.GetCommandID(), 22000);
    EXPECT_EQ(plain.SavedSettingNumber(), 0);
    EXPECT_EQ(plain.SavedSettingIdentifier(), 0);
    EXPECT_EQ(plain.SkipsDialog(), 0);
    EXPECT_FALSE(plain.IsRunning());
    EXPECT_FALSE(plain.WasAccepted());
    EXPECT_EQ(plain.Window(), nullptr);
}

TEST_F(Defaults, KnowsWhetherWholeDocumentIsSelected) {
    PlainCommand plain;
    const EREGION whole{0, 1, 1, 0, 0, 4, 10, kEndOfMeasure};
    EXPECT_EQ(plain.WholesOf(nullptr, whole), "111");
    EXPECT_EQ(+plain.ProcessingRegion().endSlot, 4);
    const std::pair<EREGION, const char*> cases[] = {
        {whole, "110"},
        {{0, 1, 2, 0, 0, 4, 10, kEndOfMeasure}, "010"},
        {{0, 1, 1, 0, 0, 4, 9, kEndOfMeasure}, "010"},
        {{0, 2, 1, 0, 0, 4, 10, kEndOfMeasure}, "100"},
        {{0, 1, 1, 0, 0, 3, 10, kEndOfMeasure}, "100"},
        {{65500, 1, 1, 0, 65500, 4, 10, kEndOfMeasure}, "100"},
    };
    for (const auto& [selection, wholes] : cases) {
        EXPECT_EQ(plain.WholesOf(&selection, whole), wholes);
        EXPECT_EQ(+plain.ProcessingRegion().startStaffList, selection.startStaffList);
    }
}

TEST_F(Defaults, DialogWithoutSettingsReportsError) {
    PlainCommand plain;
    plain.CopyDialogToConfigData(nullptr);
    ASSERT_EQ(standin::App().alerts.size(), 1U);
    EXPECT_NE(standin::App().alerts[0].text.find(u"CopyDialogToConfigData"), std::u16string::npos);
}

}  // namespace
