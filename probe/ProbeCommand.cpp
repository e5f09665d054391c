#include "probe/ProbeCommand.h"

#include <algorithm>
#include <array>

#include "Class Files/LiveCommands.h"
#include "platform/text.h"
#include "probe/Report.h"
#include "shell/host/callbacks.h"

using probe::Say;
using probe::Text;

namespace {

namespace Control {
constexpr u16 kOk = 1;
constexpr u16 kClose = 2;
constexpr u16 kSummary = 1001;
constexpr u16 kPlace = 1002;
// Not shown: to look at the calls for controls of these kinds.
constexpr u16 kBox = 1003;
constexpr u16 kList = 1004;
}  // namespace Control

std::u16string Utf16(const std::string& text) {
    return platform::MultiByteToUtf16(text, platform::CodePage::kUtf8).value_or(u"");
}

}  // namespace

ProbeCommand::ProbeCommand(WindowHandle owner, u16 item, const std::string& title)
    : ProbeCommand{owner, item,
                   platform::MultiByteToUtf16(title, platform::CodePage::kAnsi).value_or(u"")} {}

ProbeCommand::ProbeCommand(WindowHandle owner, u16 item, std::u16string name)
    : FinPIModeless{owner, item, kCommandID, name.c_str()},
      m_name{std::move(name)},
      m_box{Control::kBox},
      m_list{Control::kList} {}

i16 ProbeCommand::ShowDialog(const EREGION* selection, const EREGION* wholeDocument) {
    m_score = probe::LookAtScore();
    probe::MeasureExports(m_findings);
    probe::MeasureSizes(m_findings, m_score);
    probe::MeasureCalls(m_findings, m_score);
    if (m_score.document != 0) {
        probe::MeasureRecords(m_findings);
        m_entries = probe::MeasureFrames(m_findings, m_score);
    }
    const i16 result = FinPIModeless::ShowDialog(selection, wholeDocument);
    if (IsLive(this)) {
        m_findings.Begin(Text::kDialogs);
        if (Window() != nullptr) {
            m_findings.Add("FX_Dialog", Say(Text::kCreatedFirst), Say(Text::kYes), true);
        } else {
            m_findings.AddNotSeen("FX_Dialog", Say(Text::kCreatedFirst));
        }
        probe::NameUnmeasured(m_findings);
        Report(Window());
    }
    return result;
}

i16 ProbeCommand::OnInitializeWindow(WindowHandle window) {
    LookAtDialog(window);
    StartTimer(window);
    return 1;
}

void ProbeCommand::LookAtDialog(WindowHandle window) {
    m_findings.Begin(Text::kDialogs);
    m_box.Attach(window, 1, 1);
    const bool isSet = m_box.GetValue() == 1;
    m_box.SetValue(0);
    const bool isBack = isSet && m_box.GetValue() == 0;
    for (const char* call : {"FX_SetDlgItemVal", "FX_GetDlgItemVal"}) {
        m_findings.Add(call, Say(Text::kValueBack), Say(isBack ? Text::kYes : Text::kNo), isBack);
    }
    m_list.Attach(window, 0, 1);
    m_list.FillLayers(1, false);
    const u32 position = Host::GetDlgCntlVal(window, Control::kList, i16{0}, i16{0});
    for (const char* call : {"FX_SetDlgCntlVal", "FX_GetDlgCntlVal"}) {
        m_findings.Add(call, Say(Text::kListFromOne), std::to_string(position), position == 2);
    }
    constexpr u32 kCapacity = 8;
    Host::SetDlgString(window, Control::kPlace, u"0123456789");
    std::array<char16, 32> text;
    text.fill(0x5A5A);
    Host::GetDlgString(window, Control::kPlace, text.data(), kCapacity);
    const bool isKept = std::all_of(text.begin() + kCapacity, text.end(),
                                    [](char16 unit) { return unit == 0x5A5A; });
    const bool isSame = text[0] == u'0' && text[1] == u'1';
    m_findings.Add("FX_SetDlgString_UTF16", Say(Text::kValueBack),
                   Say(isSame ? Text::kYes : Text::kNo), isSame);
    m_findings.Add("FX_GetDlgString_UTF16", Say(Text::kCapacity),
                   Say(isKept ? Text::kYes : Text::kNo), isKept);
}

void ProbeCommand::OnTimer(WindowHandle window) {
    if (!m_hasTicked) {
        m_hasTicked = true;
        m_findings.Begin(Text::kDialogs);
        m_findings.Add("FX_SetTimer", Say(Text::kTicks), Say(Text::kYes), true);
        Report(window);
    }
}

void ProbeCommand::Report(WindowHandle window) {
    const std::string place = probe::SaveReport(probe::ReportText(m_findings, m_score, m_entries));
    if (window != nullptr) {
        Host::SetDlgString(window, Control::kSummary, Utf16(probe::Totals(m_findings)).c_str());
        Host::SetDlgString(window, Control::kPlace, Utf16(place).c_str());
    }
}

i16 ProbeCommand::HandleCommand(WindowHandle window, u16 control, u8* final) {
    if (control == Control::kClose || control == Control::kOk) {
        *final = 1;
        CloseDialog(window);
    }
    return 0;
}
