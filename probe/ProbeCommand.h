// The probe's command: looks at the host when it is chosen, writes the report, and shows a summary.
// It opens no edit and saves no record.
#pragma once

#include <string>

#include "Class Files/FinPIModeless.h"
#include "Class Files/interface/FinPICheckBox.h"
#include "Class Files/interface/FinPIPopupLayerList.h"
#include "probe/Findings.h"
#include "probe/Measure.h"

class ProbeCommand : public FinPIModeless {
public:
    // Its title, its dialog, and where the dialog's place is stored.
    static constexpr u16 kCommandID = 22200;

    // title: the command's title in the system's code page.
    ProbeCommand(WindowHandle owner, u16 item, const std::string& title);

    u32 GetSettingsSize() const override { return 0; }
    void* GetSettings() override { return nullptr; }
    const char16* GetName() const override { return m_name.c_str(); }
    i16 ProcessAllDocuments() const override { return 0; }

    // Looks, and writes a first report; where dialogs can be shown, they are looked at, too.
    i16 ShowDialog(const EREGION* selection, const EREGION* wholeDocument) override;
    i16 OnInitializeWindow(WindowHandle window) override;
    void OnTimer(WindowHandle window) override;
    i16 HandleCommand(WindowHandle window, u16 control, u8* final) override;

private:
    ProbeCommand(WindowHandle owner, u16 item, std::u16string name);
    void LookAtDialog(WindowHandle window);
    // Writes the report as it is now, and puts the summary into the dialog.
    void Report(WindowHandle window);

    std::u16string m_name;
    probe::Score m_score;
    probe::Findings m_findings;
    u64 m_entries = 0;
    bool m_hasTicked = false;
    FinPICheckBox m_box;
    FinPIPopupLayerList m_list;
};
