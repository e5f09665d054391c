// The command's dialog: its controls to and from the options, the selection in words.
#include <algorithm>

#include "Class Files/foundation/FinPIException.h"
#include "merge/Plyweld.h"
#include "merge/PlyweldControls.h"
#include "platform/resources.h"
#include "platform/text.h"
#include "shell/host/callbacks.h"

namespace Control = PlyweldControl;

namespace {

constexpr u32 kNoSelectionLabel = 22004;

// False when nothing is selected.
bool ReadSelection(EREGION& selection) {
    u64 result{};
    EREGION wholeDocument{};
    return Host::GetCurERegions(&result, &selection, &wholeDocument) != 0;
}

std::u16string SelectionText() {
    EREGION selection{};
    if (ReadSelection(selection)) {
        FinPIRegion region;
        region.SetRegion(&selection);
        const bool wasPending = g_pendingError != nullptr;
        std::u16string text = region.Description();
        if (!wasPending) {
            g_pendingError.reset();  // unreadable parts are left out of the text
        }
        return text;
    }
    // As shown in the system's code page.
    const auto text = platform::Utf16ToMultiByte(platform::ResourceString(kNoSelectionLabel),
                                                 platform::CodePage::kAnsi);
    return platform::MultiByteToUtf16(text.value_or(""), platform::CodePage::kAnsi).value_or(u"");
}

u16 SelectedLayer(FinPIPopupLayerList& list, i16 lowest) {
    const i16 layer = list.GetItemValue(list.GetValue());
    return static_cast<u16>(std::clamp(layer, lowest, Host::GetMaxLayers()));
}

}  // namespace

i16 Plyweld::OnInitializeWindow(WindowHandle window) {
    m_fromList.Attach(window, 0, 1);
    m_fromList.FillLayers(m_configData.sourceLayer, true);
    m_toList.Attach(window, 0, 1);
    m_toList.FillLayers(m_configData.destinationLayer, false);
    // Neither mode shows as merging, which clears nothing.
    m_modeButtons.Attach(window, static_cast<u32>(static_cast<i16>(m_configData.mode)), 1);
    for (Switch& each : m_switches) {
        each.box.Attach(window, m_configData.*each.member, 1);
    }
    UpdateSelectionText(window);
    StartTimer(window);
    return 1;
}

i16 Plyweld::HandleCommand(WindowHandle window, u16 control, u8* final) {
    const bool usesOptions =
        control == Control::kGo || control == Control::kClose || control == Control::kSaveSettings;
    if (usesOptions && IsRunning()) {
        return 0;
    }
    switch (control) {
        case Control::kFrom:
            if (m_fromList.SelectionChanged(m_notificationCode)) {
                UpdateGoButton(window);
            }
            break;
        case Control::kTo:
            if (m_toList.SelectionChanged(m_notificationCode)) {
                UpdateGoButton(window);
            }
            break;
        case Control::kMergeMode:
        case Control::kReplaceMode:
            m_modeButtons.CheckButton(control);
            break;
        case Control::kSaveSettings:
            RunSaveSettingsDialog(window);
            break;
        case Control::kGo:
            CopyDialogToConfigData(window);
            RunModeless();
            break;
        case Control::kClose:
            CopyDialogToConfigData(window);
            *final = 1;
            CloseDialog(window);
            break;
        default:
            ToggleSwitch(control);
            break;
    }
    return 0;
}

void Plyweld::ToggleSwitch(u16 control) {
    for (Switch& each : m_switches) {
        if (each.control == control) {
            each.box.Toggle();
        }
    }
}

i16 Plyweld::OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong) {
    // A run keeps the options it started with, and a destroyed list has no values.
    if (m_initialized != 0 && !IsRunning() && m_toList.GetItemCount() > 0) {
        CopyDialogToConfigData(window);
    }
    return FinPIModeless::OnDestroyWindow(window, eventWord, eventLong);
}

void Plyweld::UpdateGoButton(WindowHandle window) {
    EREGION selection{};
    const bool canRun = m_fromList.GetItemValue(m_fromList.GetValue()) !=
                            m_toList.GetItemValue(m_toList.GetValue()) &&
                        ReadSelection(selection);
    Host::EnableDlgItem(window, Control::kGo, static_cast<i16>(canRun ? 1 : 0));
}

void Plyweld::UpdateSelectionText(WindowHandle window) {
    Host::SetDlgString(window, Control::kSelection, SelectionText().c_str());
    UpdateGoButton(window);
}

void Plyweld::CopyDialogToConfigData(WindowHandle /*window*/) {
    m_configData.sourceLayer = SelectedLayer(m_fromList, FinPIPopupLayerList::kAllLayersItem);
    m_configData.destinationLayer = SelectedLayer(m_toList, 0);
    m_configData.mode = static_cast<u16>(m_modeButtons.GetValue());
    for (Switch& each : m_switches) {
        m_configData.*each.member = static_cast<u16>(each.box.GetValue());
    }
}
