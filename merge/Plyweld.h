// The plug-in's command: merges the music of one layer, or of all the others, into a
// destination layer within the selected region.
#pragma once

#include <string>

#include "Class Files/FinPIModeless.h"
#include "Class Files/interface/FinPICheckBox.h"
#include "Class Files/interface/FinPIPopupLayerList.h"
#include "Class Files/interface/FinPIRadioButton.h"
#include "merge/PlyweldConfigData.h"
#include "merge/PlyweldControls.h"

struct FramePair;
struct RestRun;

class Plyweld : public FinPIModeless {
public:
    // The one number of the command: its title string, its dialog, its stored options.
    static constexpr u16 kCommandID = 22000;

    // title: the command's title in the system's code page.
    Plyweld(WindowHandle owner, u16 item, const std::string& title);

    u32 GetSettingsSize() const override { return sizeof(PlyweldConfigData); }
    void* GetSettings() override { return &m_configData; }
    const char16* GetName() const override { return m_name.c_str(); }
    // The bytes of the options = read from the store, 1 = the defaults.
    i32 LoadSettings() override;
    void SaveSettings() override;
    // Prepares the destination layer when its music is to be replaced. Always 1.
    i16 PrepareDocument() override;
    i16 ProcessStaffMeasure(i16 slot, u16 staff, i16 measure, u16 staffSystem) override;
    i16 Execute(const EREGION* selection, const EREGION* wholeDocument) override;
    i16 CanSkipDialog() const override { return 1; }
    i16 ProcessAllDocuments() const override { return 0; }

    // The dialog, filled from the options when it opens.
    i16 OnInitializeWindow(WindowHandle window) override;
    i16 HandleCommand(WindowHandle window, u16 control, u8* final) override;
    // However the window closes, the options keep what it showed.
    i16 OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong) override;
    void CopyDialogToConfigData(WindowHandle window) override;
    // Describes the selection.
    void UpdateSelectionText(WindowHandle window) override;

private:
    Plyweld(WindowHandle owner, u16 item, std::u16string name);
    void ToggleSwitch(u16 control);
    // A run needs two different layers and a selection.
    void UpdateGoButton(WindowHandle window);
    // Merges one source layer into the destination, for one staff in one measure. 0 = a frame could
    // not be saved, or another document became current; the edit must then be rolled back.
    i16 MergeFrame(u16 staff, i16 measure, u16 sourceLayer, u16 destinationLayer);
    // Replaces destination rests with source entries of exactly the same time and position, then
    // saves both frames. 0 as above.
    i16 FillRestRuns(FramePair& frames);
    // Finds the first run of selected destination rests from an index on. Missing time after the
    // destination's entries counts as rests. 0 = none.
    i16 FindRestRun(const FramePair& frames, i16 startIndex, RestRun& run) const;
    // The dialog, or without one the window from which the command was invoked.
    WindowHandle AlertOwner() const noexcept {
        return Window() != nullptr ? Window() : OwnerWindow();
    }
    // Returns the bytes read; 0 = nothing is stored.
    u32 ReadStoredSettings();
    void RebeamWholeMeasures() const;

    std::u16string m_name;
    FinPIPopupLayerList m_fromList{PlyweldControl::kFrom};
    FinPIPopupLayerList m_toList{PlyweldControl::kTo};
    FinPIRadioButton m_modeButtons{PlyweldControl::kMergeMode, PlyweldControl::kReplaceMode};
    // A check box and its word of the options.
    struct Switch {
        u16 PlyweldConfigData::*member;
        u16 control;
        FinPICheckBox box{control};
    };
    Switch m_switches[kMergeSwitchCount] = {
#define MERGE_SWITCH(Name, member, initial, control, ...) {&PlyweldConfigData::member, control},
#include "shell/options/merge_switches.inc"
    };
    PlyweldConfigData m_configData;
};
