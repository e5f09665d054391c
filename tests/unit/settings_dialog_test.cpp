// The Save Settings dialog: its list, its buttons, and what it stores.
#include "tests/unit/settings_support.h"
#include "tests/unit/support/failing_memory.h"

namespace {

namespace headless = platform::headless;

TEST_F(SavedSettingsTest, EmptyListHasNoSelection) {
    StoreLetters(2);
    Run([](OpenDialog& save) {
        save.Choose(Control::kList, 3);
        save.Press(Control::kDelete);
        EXPECT_EQ(save.SelectedItem(Control::kList), u"a") << "the new last one";
        save.focus = Control::kDelete;
        save.Press(Control::kDelete);
        EXPECT_EQ(save.focus, Control::kName) << "the button is disabled";
        for (int i = 0; i < 2; ++i) {
            save.Press(Control::kDelete);
            save.Choose(Control::kList, 1);
            save.Press(Control::kDelete);
        }
        EXPECT_EQ(save.Items(Control::kList).size(), 1U) << "an added entry is not deleted";
        save.Press(Control::kAdd);
        save.Choose(Control::kList, 2);
        save.window.controls[Control::kList].items.clear();
        save.Choose(Control::kList, 0);
        save.Type(Control::kName, u"of no entry");
        save.Press(Control::kOk);
        EXPECT_TRUE(save.Items(Control::kList).empty());
    });
}

TEST_F(SavedSettingsTest, FirstOneIsAddedToEmptyList) {
    Run([](OpenDialog& save) {
        save.window.controls[Control::kList].items.clear();
        save.Choose(Control::kList, 0);
        save.Type(Control::kName, u"of no entry");
        save.Press(Control::kAdd);
        EXPECT_EQ(save.Items(Control::kList).size(), 1U);
        save.Press(Control::kCancel);
    });
}

TEST_F(SavedSettingsTest, EntryKeepsItsOwnChoice) {
    StoreLetters(2);
    Run([](OpenDialog& save) {
        save.Choose(Control::kList, 2);
        save.Press(Control::kSkipDialog);
        save.Type(Control::kName, u"");
        save.Choose(Control::kList, 3);
        EXPECT_EQ(save.Items(Control::kList).at(1), u"a") << "an empty name is ignored";
        save.Press(Control::kOk);
    });
    const Notes stored = Stored();
    EXPECT_EQ(stored.at(1), "a 11 1 abcd");
    EXPECT_EQ(stored.at(2), "b 12 0 abcd");
}

TEST_F(SavedSettingsTest, FailedWriteKeepsDialogOpen) {
    Run([](OpenDialog& save) {
        headless::RefuseRegistryCall(headless::RegistryCall::kSetValue, 1);
        save.Press(Control::kOk);
        EXPECT_FALSE(save.ended);
        EXPECT_EQ(Alerts(), 1U);
        save.Press(Control::kCancel);
    });
    EXPECT_EQ(g_savedSettingsChanged, 1);
}

TEST_F(SavedSettingsTest, OpensWhereItWasClosed) {
    ASSERT_EQ(SavedSettingPtr{0}.PutToFile(22001), 1);
    for (const int left : {310, 50}) {
        Run([left](OpenDialog& save) {
            EXPECT_EQ(save.window.rectangle.left, left);
            save.window.rectangle = {50, 60, 250, 260};
            EXPECT_EQ(save.Press(99), 0) << "no control of the dialog";
            EXPECT_EQ(save.Press(Control::kCancel), 1);
        });
    }
    EXPECT_EQ(Alerts(), 0U) << "a setting may be empty";
}

TEST_F(SavedSettingsTest, SurvivesLackOfMemory) {
    StoreLetters(19);
    FailingMemory::refused = 19 * sizeof(SavedSettingPtr);
    Run([](OpenDialog& open) {
        open.Press(Control::kOk);
        EXPECT_FALSE(open.ended);
    });
    FailingMemory::refused = 0;
    ASSERT_EQ(Alerts(), 1U);
    EXPECT_NE(standin::App().alerts[0].text.find(u"Unable to allocate m_storedSettings array."),
              std::u16string::npos);
}

TEST_F(SavedSettingsTest, DefaultNameHasAtMost255Bytes) {
    for (const std::u16string beginning : {u"", u"x"}) {
        std::u16string shown;
        const std::u16string key = beginning + std::u16string(254, u'\u00E9');
        FinPISaveSettingsDlg save{&command, key.c_str()};
        desk.Then([&shown](OpenDialog& open) { shown = open.Items(Control::kList).at(0); });
        save.ShowDialogWindow(nullptr, 1);
        EXPECT_EQ(shown, beginning + std::u16string(127, u'\u00E9'));
    }
}

TEST_F(SavedSettingsTest, StoresEntriesSortedByName) {
    Run([](OpenDialog& open) {
        EXPECT_EQ(open.Items(Control::kList), (Names{u"Plyweld/Saved Setting 1"}));
        EXPECT_EQ(open.window.rectangle.left, 310);
        for (const auto& [control, extra] : {std::pair{Control::kListLabel, 2},
                                             {Control::kNameLabel, 2},
                                             {Control::kSkipDialog, 35}}) {
            EXPECT_EQ(open.window.controls[control].rectangle.Width(),
                      6 * static_cast<int>(open.texts[control].size()) + extra);
        }
        open.Type(Control::kName, u"b");
        open.Press(Control::kAdd);
        open.Type(Control::kName, u"a");
        open.Press(Control::kSkipDialog);
        EXPECT_EQ(open.Press(Control::kOk), 1);
    });
    EXPECT_EQ(Stored(), (Notes{"a 1 0 dlg!", "b 2 1 dlg!"}));
    u16 commandItem = 0;
    ReadSavedSetting(kCommand, 2, nullptr, &commandItem, nullptr, nullptr, nullptr);
    EXPECT_EQ(commandItem, 2);
    EXPECT_STREQ(command.settings, "....") << "the command's own settings stay";
    EXPECT_EQ(command.SavedSettingNumber(), 1);
    EXPECT_EQ(command.SavedSettingIdentifier(), 1);
    EXPECT_EQ(command.added.size(), 2U);
}

TEST_F(SavedSettingsTest, FirstSettingHoldsSubmenuFlag) {
    const auto flags = [] {
        std::string all;
        for (SavedSettingPtr record{4};
             record.GetFromFile(static_cast<i16>(kCommand + 1 + std::ssize(all))) != 0;) {
            all += std::to_string(record.Header().flags);
        }
        return all;
    };
    StoreLetters(2);
    for (const char* const afterwards : {"100", "000"}) {
        Run([](OpenDialog& open) {
            open.Press(Control::kUseSubmenu);
            open.Press(Control::kOk);
        });
        EXPECT_EQ(flags(), afterwards);
    }
}

TEST_F(SavedSettingsTest, CancelStoresNothing) {
    StoreLetters(1);
    Run([](OpenDialog& open) {
        open.Choose(Control::kList, 2);
        for (const u16 control : {Control::kDelete, Control::kName, Control::kAdd, Control::kList,
                                  Control::kSkipDialog, Control::kUseSubmenu}) {
            EXPECT_EQ(open.Press(control), 1) << control;
        }
        open.Type(Control::kName, u"new");
        open.Press(Control::kCancel);
        EXPECT_TRUE(open.ended);
    });
    EXPECT_EQ(Stored(), (Notes{"a 11 0 abcd"}));
    EXPECT_FALSE(dialog.WasAccepted());
    EXPECT_EQ(command.SavedSettingNumber(), 0);
}

TEST_F(SavedSettingsTest, UsedNameGetsCounter) {
    Store(1, u"X", 1);
    Store(2, u"X 1", 2);
    Store(3, u"Y", 3);
    Store(4, u"Plyweld/Saved Setting 1", 4);
    Run([](OpenDialog& open) {
        EXPECT_EQ(open.Items(Control::kList).at(1), u"Plyweld/Saved Setting 2");
        open.Choose(Control::kList, 5);
        open.Type(Control::kName, u"X");
        open.Choose(Control::kList, 2);
        open.Type(Control::kName, u"X 2");
        open.Choose(Control::kList, 1);
        EXPECT_EQ(open.Items(Control::kList),
                  (Names{u"Plyweld/Saved Setting 1", u"X", u"X 1", u"X 2", u"X 2 1"}));
        EXPECT_EQ(open.SelectedItem(Control::kList), u"Plyweld/Saved Setting 1");
        open.Press(Control::kCancel);
    });
    EXPECT_EQ(Stored().back(), "Plyweld/Saved Setting 1 4 0 abcd");
}

TEST_F(SavedSettingsTest, RenamedEntryIsSorted) {
    StoreLetters(4);
    Run([](OpenDialog& open) {
        open.Choose(Control::kList, 2);
        EXPECT_EQ(open.texts[Control::kName], u"a");
        open.Type(Control::kName, u"z");
        open.Choose(Control::kList, 4);
        EXPECT_EQ(open.SelectedItem(Control::kList), u"c") << "moved down behind it";
        EXPECT_EQ(open.texts[Control::kName], u"c");
        open.Type(Control::kName, u"aa");
        open.Choose(Control::kList, 2);
        EXPECT_EQ(open.SelectedItem(Control::kList), u"b") << "moved up to its place";
    });
}

TEST_F(SavedSettingsTest, DeletingClosesGap) {
    StoreLetters(3);
    Run([](OpenDialog& open) {
        open.Press(Control::kDelete);
        EXPECT_EQ(open.Items(Control::kList).size(), 4U) << "an added entry is not deleted";
        open.Choose(Control::kList, 3);
        open.Press(Control::kDelete);
        EXPECT_EQ(open.SelectedItem(Control::kList), u"c");
        open.Choose(Control::kList, 1);
        open.Type(Control::kName, u"zz");
        open.Press(Control::kOk);
    });
    EXPECT_EQ(Stored(), (Notes{"a 11 0 abcd", "c 13 0 abcd", "zz 14 1 dlg!"}));
    EXPECT_EQ(command.forgotten, (std::vector<u16>{12}));
    EXPECT_EQ(command.SavedSettingNumber(), 3);
}

TEST_F(SavedSettingsTest, IdentifiersWrapToLowestFree) {
    Store(1, u"a", 65535);
    Store(2, u"b", 0);
    Store(3, u"c", 1);
    command.UseSavedSetting(2, 0);
    Run([](OpenDialog& open) {
        EXPECT_TRUE(open.disabled.contains(Control::kDelete)) << "in use";
        EXPECT_TRUE(open.hidden.contains(Control::kDeleteAll)) << "likewise";
        open.Press(Control::kAdd);
        open.Type(Control::kName, u"d");
        open.Press(Control::kOk);
    });
    EXPECT_EQ(Stored(), (Notes{"a 65535 0 abcd", "b 2 0 abcd", "c 1 0 abcd", "d 3 0 dlg!"}));
}

TEST_F(SavedSettingsTest, StoredNameMayBeEmpty) {
    Store(1, u"", 7);
    Run([](OpenDialog& open) {
        EXPECT_EQ(open.Items(Control::kList), (Names{u"", u"Plyweld/Saved Setting 1"}));
    });
}

TEST_F(SavedSettingsTest, IdentifiersFollowTheStoredOrder) {
    Store(1, u"a", 0);
    Store(2, u"b", 0);
    Run([](OpenDialog& open) {
        open.Choose(Control::kList, 2);
        open.Type(Control::kName, u"z");
        open.Press(Control::kOk);
    });
    EXPECT_EQ(Stored(), (Notes{"Plyweld/Saved Setting 1 3 1 dlg!", "b 2 0 abcd", "z 1 0 abcd"}));
}

TEST_F(SavedSettingsTest, AtMostNinetyNine) {
    StoreLetters(99);
    Run([](OpenDialog& open) {
        EXPECT_TRUE(open.disabled.contains(Control::kAdd));
        open.Press(Control::kDelete);
        open.focus = Control::kAdd;
        open.Press(Control::kAdd);
        EXPECT_EQ(open.focus, Control::kName) << "a disabled button has no use for the keys";
        EXPECT_EQ(open.Press(Control::kDeleteAll), 1);
        EXPECT_TRUE(open.ended);
    });
    EXPECT_EQ(command.SavedSettingIdentifier(), 0);
    EXPECT_TRUE(Stored().empty());
    EXPECT_EQ(command.forgotten.size(), 99U);
}

TEST_F(SavedSettingsTest, FailedLoadDisablesDialog) {
    SavedSettingPtr record{4};
    record.Header().totalSize = 100;
    ASSERT_EQ(record.PutToFile(22001), 1);
    std::u16string messages;
    for (int refused = 0; refused <= 12; ++refused) {
        headless::RefuseRegistryCall(headless::RegistryCall::kQueryValue, refused);
        const std::size_t before = Alerts();
        Run([&](OpenDialog& open) {
            if (Alerts() > before) {
                messages += standin::App().alerts.back().text;
                open.Press(Control::kOk);
                EXPECT_FALSE(open.ended) << refused;
            }
        });
        Store(1, u"Slow", 7);
    }
    for (const char16* text : {u"element. Try", u"element size.", u"from preferences."}) {
        EXPECT_NE(messages.find(text), std::u16string::npos);
    }
}

TEST_F(SavedSettingsTest, NoToTheQuestionKeepsDialogOpen) {
    g_savedSettingsChanged = 0;
    for (const bool isYes : {false, true}) {
        Run([&](OpenDialog& open) {
            desk.Then([isYes](OpenDialog& question) {
                question.Press(4);
                question.Press(isYes ? 1 : 2);
            });
            if (!isYes) {
                desk.Then([](OpenDialog& question) { question.Press(2); });
                open.Press(Control::kDeleteAll);
                EXPECT_EQ(open.texts[Control::kName], u"") << "the list is empty";
                open.Press(Control::kAdd);
            }
            open.Type(Control::kName, u"only");
            open.Press(Control::kOk);
            EXPECT_EQ(open.ended, isYes);
        });
        EXPECT_EQ(Stored(), isYes ? Notes{"only 1 1 dlg!"} : Notes{})
            << "the question comes back after No";
    }
}

// A command whose saved settings never skip its dialog, or are never gathered.
struct PlainDialog final : FinPISaveSettingsDlg {
    PlainDialog(FinPI* owner, bool withoutSkip) : FinPISaveSettingsDlg{owner, u"Plain"} {
        m_hideSkipOption = withoutSkip;
        m_hideSubmenuOption = !withoutSkip;
    }
};

TEST_F(SavedSettingsTest, MissingOptionRowsTakeNoSpace) {
    for (const bool withoutSkip : {true, false}) {
        const u16 gone = withoutSkip ? Control::kSkipDialog : Control::kUseSubmenu;
        const u16 kept = withoutSkip ? Control::kUseSubmenu : Control::kSkipDialog;
        desk.Then([=](OpenDialog& open) {
            EXPECT_EQ(open.hidden, std::set<u16>{gone});
            EXPECT_EQ(open.values[gone], 0U);
            EXPECT_EQ(open.values[kept], 1U);
            EXPECT_EQ(open.window.controls[kept].rectangle.top, 64);
            EXPECT_EQ(open.window.controls[Control::kOk].rectangle.top, 83);
        });
        PlainDialog{&command, withoutSkip}.ShowDialogWindow(nullptr, 1);
    }
    EXPECT_EQ(desk.ScriptsLeft(), 0U);
}

}  // namespace
