#include "Class Files/FinPISaveSettingsDlg.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "Class Files/FinPI.h"
#include "Class Files/SaveSettingsControls.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/interface/DialogLayout.h"
#include "Class Files/settings/SavedSettings.h"
#include "platform/resources.h"
#include "platform/text.h"
#include "platform/window.h"
#include "shell/host/callbacks.h"

namespace Control = SaveSettingsControl;

namespace {

constexpr u16 kSaveSettingsDialog = 20003;
constexpr u32 kDefaultNameString = 20015;

constexpr std::size_t kMaxNameBytes = 255;  // in UTF-8

std::u16string CutAtBytes(const std::u16string& text, std::size_t bytes) {
    const std::string utf8 = platform::Utf8Of(text);
    return platform::MultiByteToUtf16(platform::CutUtf8(utf8, bytes), platform::CodePage::kUtf8)
        .value_or(std::u16string{});
}

void ReportOpeningError(const char* detail) {
    PostError(FinPIAppError("FinPISaveSettingsDlg::OnInitializeWindow", detail));
    ReportPendingError();
}

}  // namespace

FinPISaveSettingsDlg::FinPISaveSettingsDlg(FinPI* owner, const char16* commandKey)
    : FinPIDialog{owner, kSaveSettingsDialog, u"Save Settings", nullptr, nullptr},
      m_commandKey{commandKey},
      m_numberInUse{owner->SavedSettingNumber()},
      m_selectedNumber{m_numberInUse},
      m_nameField{Control::kName},
      m_skipBox{Control::kSkipDialog},
      m_submenuBox{Control::kUseSubmenu} {}

u16 FinPISaveSettingsDlg::CommandID() const {
    return m_owner->GetCommandID();
}

SavedSettingList FinPISaveSettingsDlg::List() const noexcept {
    return {m_window, Control::kList};
}

std::u16string FinPISaveSettingsDlg::NameField() {
    char16 text[1024];
    return m_nameField.GetText(text, static_cast<u32>(std::size(text)));
}

std::u16string FinPISaveSettingsDlg::DefaultSettingName(u16 number) const {
    const std::string digits = std::to_string(number);
    std::u16string name = m_commandKey;
    name.append(u"/").append(platform::ResourceString(kDefaultNameString)).append(u" ");
    return CutAtBytes(name.append(digits.begin(), digits.end()), kMaxNameBytes);
}

SavedSettingPtr* FinPISaveSettingsDlg::StoredSetting(SavedSettingItem item) {
    const auto index = static_cast<std::size_t>(item.StoredNumber() - CommandID() - 1);
    return index < m_storedSettings.size() ? &m_storedSettings[index] : nullptr;
}

void FinPISaveSettingsDlg::PrepareControls(WindowHandle window) {
    FitCheckBox(window, Control::kSkipDialog);
    FitLabel(window, Control::kListLabel);
    FitLabel(window, Control::kNameLabel);
}

i16 FinPISaveSettingsDlg::OnInitializeWindow(WindowHandle window) {
    m_nameField.AttachText(window, u"", 1);
    ListStoredSettings();
    if (!LoadStoredSettings()) {
        return 0;
    }
    SetUpOptionRows(window);
    if (m_numberInUse != 0) {
        Host::ShowHideDlgItem(window, Control::kDeleteAll, i16{0});
    }
    SelectFirstEntry();
    m_nameField.SetFocus();
    return 1;
}

void FinPISaveSettingsDlg::ListStoredSettings() {
    m_nextIdentifier = 0;
    char16 name[128];
    u16 skipDialog{};
    u16 identifier{};
    for (i16 number = 1; ReadSavedSetting(CommandID(), number, name, nullptr, &skipDialog,
                                          &identifier, nullptr) != 0;
         ++number) {
        m_nextIdentifier = std::max(m_nextIdentifier, identifier);
        const std::u16string text{name, std::ranges::find(name, u'\0')};
        const SavedSettingItem item{
            static_cast<u16>(SavedSettings::StoredNumber(CommandID(), number)), skipDialog != 0};
        List().InsertSorted(text, item, true);
        m_loadedCount = number;
    }
}

bool FinPISaveSettingsDlg::LoadStoredSettings() {
    try {
        m_storedSettings.reserve(static_cast<std::size_t>(m_loadedCount));
    } catch (const std::bad_alloc&) {
        ReportOpeningError("Unable to allocate m_storedSettings array.");
        return false;
    }
    for (i16 number = 1; number <= m_loadedCount; ++number) {
        if (!LoadStoredSetting(SavedSettings::StoredNumber(CommandID(), number))) {
            return false;
        }
    }
    for (SavedSettingPtr& setting : m_storedSettings) {
        GiveIdentifier(setting.Header());
    }
    return true;
}

bool FinPISaveSettingsDlg::LoadStoredSetting(i16 number) {
    SavedSettingPtr header{0};
    if (header.GetFromFile(number) == 0) {
        ReportOpeningError("Unable to get array element size.");
        return false;
    }
    const int settingsSize = header.Header().totalSize - header.Header().headerSize;
    if (settingsSize < 0) {
        ReportOpeningError(
            "Unable to allocate memory for array element. Try adding memory to Finale.");
        return false;
    }
    SavedSettingPtr setting{static_cast<u32>(settingsSize)};
    if (setting.GetFromFile(number) == 0) {
        ReportOpeningError("Unable to get array element from preferences.");
        return false;
    }
    m_storedSettings.push_back(std::move(setting));
    return true;
}

void FinPISaveSettingsDlg::GiveIdentifier(SavedSettingHeader& header) {
    if (header.identifier != 0) {
        return;
    }
    const auto isTaken = [this](u16 identifier) {
        return std::ranges::any_of(m_storedSettings, [identifier](const SavedSettingPtr& setting) {
            return setting.Header().identifier == identifier;
        });
    };
    do {
        ++m_nextIdentifier;  // the lowest numbers follow the highest
    } while (m_nextIdentifier == 0 || isTaken(m_nextIdentifier));
    header.identifier = m_nextIdentifier;
}

void FinPISaveSettingsDlg::SetUpOptionRows(WindowHandle window) {
    const auto top = [window](u16 control) {
        return platform::ControlRectangle(window, control).value_or(platform::Rectangle{}).top;
    };
    const int rowUp = top(Control::kSkipDialog) - top(Control::kUseSubmenu);
    m_skipBox.Attach(window, m_hideSkipOption ? 0 : 1, 1);
    if (m_hideSkipOption) {
        ShowHideControl(window, Control::kSkipDialog, -1, true);
        ShiftControlEdges(window, Control::kUseSubmenu, rowUp, rowUp);
        ShrinkDialogHeight(window, rowUp);
    }
    const bool useSubmenu = m_storedSettings.empty() || (m_storedSettings.front().Header().flags &
                                                         SavedSettingFlag::kUseSubmenu) != 0;
    m_submenuBox.Attach(window, useSubmenu && !m_hideSubmenuOption ? 1 : 0, 1);
    if (m_hideSubmenuOption) {
        ShowHideControl(window, Control::kUseSubmenu, -1, true);
        ShrinkDialogHeight(window, rowUp);
    }
}

void FinPISaveSettingsDlg::SelectFirstEntry() {
    SavedSettingList list = List();
    if (m_selectedNumber != 0) {
        const i16 wanted = SavedSettings::StoredNumber(CommandID(), m_selectedNumber);
        for (i16 position = 1; position <= list.Count(); ++position) {
            if (list.Item(position).StoredNumber() == wanted) {
                list.Select(position);
                UpdateButtons();
                return;
            }
        }
    }
    if (m_loadedCount < SavedSettings::kMaxPerCommand) {
        AddNewItem(false);
    } else {
        list.Select(1);
        UpdateButtons();
    }
}

void FinPISaveSettingsDlg::PutSavedSettings(u16 commandID, i16 number, const void* settings,
                                            u32 size) {
    SavedSettingPtr setting{size};
    const i16 storedNumber = SavedSettings::StoredNumber(commandID, number);
    if (number == 0 || setting.GetFromFile(storedNumber) == 0) {
        SavedSettings::ReportMissing(commandID, number, "FinPISaveSettingsDlg::PutSavedSettings",
                                     "Can't find specified saved setting.");
        return;
    }
    std::copy_n(static_cast<const u8*>(settings), size, static_cast<u8*>(setting.Settings()));
    setting.StampHeader();
    if (setting.PutToFile(storedNumber) == 0) {
        ReportPendingError();
    }
}
