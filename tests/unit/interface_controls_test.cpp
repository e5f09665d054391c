// The controls of dialogs.
#include "Class Files/interface/FinPICheckBox.h"
#include "Class Files/interface/FinPIEditUnicodeText.h"
#include "Class Files/interface/FinPIPopupLayerList.h"
#include "Class Files/interface/FinPIRadioButton.h"
#include "tests/unit/interface_support.h"

namespace {

class ControlTest : public InterfaceTest {
protected:
    NotingDialog dialog{&command, nullptr, nullptr};
    OpenDialog& open = Show(dialog);
    WindowHandle window = &open.window;
};

TEST_F(ControlTest, RadioGroupChecksOneButton) {
    FinPIRadioButton group{1006, 1007};
    EXPECT_EQ(group.GetValue(), FinPIRadioButton::kNothingChecked);
    group.Attach(window, 5, 1);
    EXPECT_EQ(group.GetValue(), 1U) << "beyond the last button";
    group.SetValue(static_cast<u32>(-3));
    EXPECT_EQ(group.GetValue(), 0U) << "before the first button";
    group.CheckButton(1007);
    EXPECT_EQ(open.values[1006], 0U);
    EXPECT_EQ(open.values[1007], 1U);
    group.Enable(0);
    EXPECT_EQ(open.disabled, (std::set<u16>{1006, 1007}));
}

TEST_F(ControlTest, EnabledCheckBoxRestoresValue) {
    FinPICheckBox box{1009, true};
    box.Attach(window, 1, 0);
    EXPECT_EQ(box.GetValue(), 0U);
    EXPECT_EQ(box.GetStoredValue(), 1U);
    box.Enable(1);
    EXPECT_EQ(box.GetValue(), 1U);
    FinPICheckBox plain{1010};
    plain.Attach(window, 1, 0);
    EXPECT_EQ(open.disabled, (std::set<u16>{1010}));
    EXPECT_EQ(plain.GetValue(), 1U);
    plain.Toggle();
    EXPECT_EQ(plain.GetValue(), 0U);
    EXPECT_EQ(plain.GetStoredValue(), 0U);
}

TEST_F(ControlTest, TextFieldsConvertAndTruncate) {
    FinPIEditUnicodeText field{7};
    field.AttachText(window, u"Comp\u00E1s", 1);
    char utf8[16];
    EXPECT_STREQ(field.GetTextUtf8(utf8, sizeof(utf8)), "Comp\xC3\xA1s");
    char16 units[5];
    EXPECT_EQ(std::u16string{field.GetText(units, 5)}, u"Comp");
    field.SetTextUtf8("S\xC3\xAD");
    EXPECT_EQ(open.texts[7], u"S\u00ED");
    field.SetValue(3);
    EXPECT_EQ(field.GetValue(), 3U);
    open.positions.clear();
    field.AttachText(window, u"", 0);
    EXPECT_EQ(open.disabled, std::set<u16>{7});
    open.disabled.clear();
    field.SetUserValue(2.5);
    EXPECT_EQ(field.GetUserValue(), 2.5);
    EXPECT_EQ(dialog.GetUserValueRounded(window, 7), 3);
    standin::App().faults.refuseKind =
        standin::FaultPlan::AllOf(standin::HostCall::kGetDlgItemUser);
    EXPECT_EQ(field.GetUserValue(), 0);
    EXPECT_EQ(dialog.GetUserValueRounded(window, 7), 0);
    standin::App().faults = {};
    FinPIEditUnicodeText none{0};
    none.Attach(window, 1, 0);
    none.AttachText(window, u"text", 0);
    EXPECT_TRUE(open.positions.empty());
    EXPECT_FALSE(open.texts.contains(0));
    EXPECT_TRUE(open.disabled.empty());
}

TEST_F(ControlTest, LayerListsShowTheHostsLayers) {
    FinPIPopupLayerList from{1003};
    from.Attach(window, 0, 1);
    from.FillLayers(65535, true);
    EXPECT_EQ(from.GetValue(), 1U);
    EXPECT_EQ(from.GetItemValue(1), FinPIPopupLayerList::kAllLayersItem);
    FinPIPopupLayerList to{1005};
    to.Attach(window, 0, 1);
    to.FillLayers(2, false);
    EXPECT_EQ(to.GetValue(), 3U);
    EXPECT_TRUE(to.SelectionChanged(9)) << "chosen once more";
    EXPECT_EQ(to.GetItemValue(3), 2);
    EXPECT_EQ(to.GetItemValue(0), 0);
    EXPECT_EQ(from.GetItemValue(6), 0);
    standin::App().maxLayers = 2;
    from.FillLayers(7, true);
    EXPECT_EQ(open.Items(1003), (Names{u"All Layers", u"Layer 1", u"Layer 2"}));
    to.FillLayers(0, true);
    EXPECT_EQ(to.GetItemValue(1), FinPIPopupLayerList::kAllLayersItem) << "filled again";
}

TEST_F(ControlTest, ListKeepsSelectionWhenItemsGo) {
    FinPIPopupLayerList list{1003};
    EXPECT_EQ(list.GetValue(), 0U);
    list.Attach(window, 0, 1);
    for (const char16* text : {u"a", u"b", u"c"}) {
        list.AppendItem(text);
    }
    list.ReplaceItemText(u"B", 2);
    char16 text[8] = u"kept";
    EXPECT_EQ(std::u16string{list.GetItemText(9, text, 0)}, u"kept");
    EXPECT_EQ(std::u16string{list.GetItemText(0, text, 0)}, u"kept");
    EXPECT_EQ(std::u16string{list.UnusedItemText(1, text, 0)}, u"kept");
    EXPECT_EQ(std::u16string{list.GetItemText(9, text, 1)}, u"");
    EXPECT_EQ(std::u16string{list.GetItemText(2, text, 1)}, u"B");
    EXPECT_EQ(std::u16string{list.GetItemText(1, text, 1)}, u"a");
    EXPECT_EQ(std::u16string{list.GetItemText(3, text, 1)}, u"c");
    list.RemoveItem(3);
    EXPECT_EQ(open.positions[1003], 2U) << "the new last item";
    list.RemoveItem(1);
    EXPECT_EQ(open.positions[1003], 1U) << "the item behind it";
    list.RemoveItem(1);
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(list.GetValue(), 0U);
}

// With two items of the string table before the layers.
struct ListWithFixedItems final : FinPIPopupLayerList {
    ListWithFixedItems() : FinPIPopupLayerList{1003} {
        m_fixedItems = 2;
        m_firstFixedString = 20001;
    }
};

TEST_F(ControlTest, ListBeginsWithFixedItems) {
    ListWithFixedItems list;
    list.Attach(window, 2, 1);
    EXPECT_EQ(open.Items(1003), (Names{u"Yes", u"No"}));
    EXPECT_EQ(list.GetValue(), 2U);
    EXPECT_EQ(list.GetItemValue(1), 0) << "without a value of its own";
}

// Can ignore choosing the same item again, or Layer 3.
struct PickyList final : FinPIPopupLayerList {
    PickyList(u16 control, bool isPicky) : FinPIPopupLayerList{control} {
        m_reselectionIsNoChange = isPicky ? 1 : 0;
        m_hasSkipValue = isPicky ? 1 : 0;
        m_skipValue = 2;
    }
};

TEST_F(ControlTest, ListIgnoresSomeChoices) {
    for (const bool isPicky : {false, true}) {
        PickyList list{1003, isPicky};
        list.Attach(window, 0, 1);
        list.FillLayers(0, false);
        EXPECT_FALSE(list.SelectionChanged(1)) << "not final yet";
        for (const auto& [position, changed] : {std::pair{1U, false},
                                                {2U, true},
                                                {2U, false},
                                                {3U, false},
                                                {2U, false},
                                                {4U, true}}) {
            open.positions[1003] = position;
            EXPECT_EQ(list.SelectionChanged(9), changed || !isPicky) << position;
        }
    }
}

}  // namespace
