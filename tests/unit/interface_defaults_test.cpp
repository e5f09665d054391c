// What commands and dialogs do that replace none of the operations that they may replace.
#include "Class Files/FinPIModeless.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/interface/HostMenu.h"
#include "tests/unit/interface_support.h"

namespace {

class PlainCommand : public FinPIModeless {
public:
    explicit PlainCommand(u16 item = 3) : FinPIModeless{nullptr, item, 22000, u"Plain"} {}

    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return u"Plain"; }
    i16 ProcessAllDocuments() const override { return 0; }
    i16 HandleCommand(WindowHandle, u16, u8*) override { return 0; }

    i16 DoProcessDocument(const EREGION&, i16 walkMode, i16 reportStaves, i16 reportMeasures,
                          i16 reportLayers, i16 firstMeasure, i16 measureHook,
                          i16 skipMultimeasureRests, u16* continueFlag) override {
        arguments = {walkMode,     reportStaves, reportMeasures,        reportLayers,
                     firstMeasure, measureHook,  skipMultimeasureRests, *continueFlag};
        return 5;
    }
    i16 Walk() { return ProcessCurrentDocument(); }
    using FinPIModeless::Invoke;

    std::vector<int> arguments;

    // Whether a run takes all measures, all staves, and what it does without a selection.
    std::string WholesOf(const EREGION* selection, const EREGION& wholeDocument) {
        ChooseRegion(selection, wholeDocument);
        return Wholes();
    }
    std::string Wholes() const {
        return std::to_string(m_wholeMeasures) + std::to_string(m_wholeStaves) +
               std::to_string(m_noSelection);
    }
};

// Notes what its timer reports.
class WatchingCommand final : public PlainCommand {
public:
    void OnMenuEvent(WindowHandle, u32 event) override { notes.push_back(std::to_string(event)); }
    void OnListedMenuEvent(WindowHandle) override { notes.emplace_back("listed"); }
    void OnDocumentListChanged(WindowHandle) override { notes.emplace_back("list"); }
    void OnCurrentDocumentChanged(WindowHandle) override { notes.emplace_back("other"); }
    void UpdateSelectionText(WindowHandle) override { notes.emplace_back("selection"); }

    Notes notes;
};

// Counts the staves and measures of its walks.
class WalkingCommand final : public FinPI {
public:
    WalkingCommand() noexcept : FinPI{nullptr, 0, 22000} {}

    i16 Start(const EREGION*, const EREGION*) override { return 0; }
    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return u"Walking"; }
    i16 PrepareDocument() override { return prepared; }
    i16 ProcessStaffMeasure(i16, u16, i16, u16) override {
        ++m_processed;
        return processes;
    }
    // The result, the flag and the count.
    std::vector<int> WalkOver(const EREGION& region) {
        u16 goesOn = 1;
        m_processed = 0;
        const i16 result = DoProcessDocument(region, 0, 1, 1, 0, -1, 0, 0, &goesOn);
        g_pendingError.reset();
        return {result, goesOn, m_processed};
    }

    i16 prepared = 1;
    i16 processes = 1;

private:
    int m_processed = 0;
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

TEST_F(Defaults, WalkByStaffAndMeasure) {
    PlainCommand plain;
    EXPECT_EQ(plain.Walk(), 5);
    EXPECT_EQ(plain.arguments, (std::vector<int>{0, 1, 1, 0, -1, 0, 0, 1}));
}

TEST_F(Defaults, WalkStopsWhereItCannotGoOn) {
    WalkingCommand walking;
    for (int measure = 2; measure <= 8; ++measure) {
        host.Score().AddMeasure(4, 1024);
    }
    const EREGION region{0, 1, 1, 0, 0, 1, 8, kEndOfMeasure};
    const std::vector<int> stopped{0, 0, 0};
    EXPECT_EQ(walking.WalkOver(region), (std::vector<int>{1, 1, 8}));
    standin::App().progressListener = [](const standin::ProgressReport&) { return false; };
    EXPECT_EQ(walking.WalkOver(region), (std::vector<int>{0, 0, 3})) << "by the user";
    standin::App().progressListener = nullptr;
    walking.processes = 0;
    EXPECT_EQ(walking.WalkOver(region), (std::vector<int>{0, 0, 1})) << "by the command";
    walking.prepared = 0;
    EXPECT_EQ(walking.WalkOver(region), stopped);
    walking.prepared = 1;
    PostError(FinPINoOpenDocumentError{});
    EXPECT_EQ(walking.WalkOver(region), stopped);
    standin::App().faults.refuseKind =
        standin::FaultPlan::AllOf(standin::HostCall::kGetCurERegions);
    EXPECT_EQ(walking.WalkOver(region), stopped);
}

TEST_F(Defaults, RegionIsChosenBeforeTheDialogOpens) {
    PlainCommand plain{0};
    const EREGION whole = host.Score().WholeRegion();
    ASSERT_TRUE(plain.Invoke(nullptr, whole));
    EXPECT_EQ(+plain.ProcessingRegion().endMeasure, +whole.endMeasure);
    EXPECT_EQ(plain.Wholes(), "111");
}

TEST_F(Defaults, TimerTellsWhatChanged) {
    auto* const watching = new WatchingCommand;  // its dialog's end destroys it
    ASSERT_EQ(watching->ShowDialog(nullptr, nullptr), 1);
    OpenDialog& open = *desk.Newest();
    const auto tick = [&] {
        watching->notes.clear();
        open.Send(standin::kTimerMessage);
        return watching->notes;
    };
    EXPECT_EQ(tick(), Notes{"list"}) << "the first list";
    EXPECT_EQ(tick(), Notes{});
    for (const u32 event : {10500U, 10501U, 10503U, 10504U}) {
        const bool isListed = event == 10501 || event == 10503;
        EXPECT_EQ(open.Send(MenuEventMessage(), 0, event), 1);
        EXPECT_EQ(tick(), isListed ? (Notes{"listed", std::to_string(event)})
                                   : Notes{std::to_string(event)});
        EXPECT_EQ(tick(), Notes{});
    }
    host.SelectAll();
    EXPECT_EQ(tick(), Notes{"selection"});
    {
        const u16 before = standin::App().CurrentNumber();
        const standin::Document& other = standin::App().OpenDocument(u"other");
        standin::App().SetCurrentDocument(other.Number());
        EXPECT_EQ(tick(), (Notes{"list", "other", "selection"}));
        standin::App().SetCurrentDocument(before);
    }
    EXPECT_EQ(tick(), Notes{"selection"});
    desk.EndDialog(&open.window);
}

TEST_F(Defaults, TitlesAndUndoTextsAreCutToTheirRoom) {
    for (int measure = 2; measure <= 134; ++measure) {
        host.Score().AddMeasure(4, 1024);
    }
    const EREGION region{0, 1, 112, 0, 0, 1, 134, kEndOfMeasure};
    const std::pair<i32, const char16*> cases[] = {
        {1, u""},
        {5, u"Plyw"},
        {8, u"Plyweld"},
        {10, u"Plyweld"},
        {11, u"Plyweld 11"},
        {12, u"Plyweld 112"},
        {14, u"Plyweld 112"},
        {15, u"Plyweld 112-13"},
        {60, u"Plyweld 112-134"},
    };
    const auto beginning = [](const std::u16string& buffer) {
        return buffer.substr(0, buffer.find(u'\0'));
    };
    for (const auto& [length, text] : cases) {
        std::u16string buffer(64, u'#');
        command.GetUndoText(buffer.data(), length, region);
        EXPECT_EQ(beginning(buffer), text) << length;
        EXPECT_EQ(buffer[static_cast<std::size_t>(length)], u'#') << length;
        buffer.assign(64, u'#');
        command.GetTitle(buffer.data(), length, 0);
        EXPECT_EQ(beginning(buffer),
                  std::u16string{u"Plyweld"}.substr(0, static_cast<std::size_t>(length - 1)));
        EXPECT_EQ(buffer[static_cast<std::size_t>(length)], u'#') << length;
    }
    command.GetUndoText(nullptr, 0, region);
    command.GetTitle(nullptr, 0, 20001);
    char16 yes[8];
    command.GetTitle(yes, 8, 20001);
    EXPECT_EQ(std::u16string{yes}, u"Yes");
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
    EXPECT_EQ(plain.Wholes(), "000");
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
