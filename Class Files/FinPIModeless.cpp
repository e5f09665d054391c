#include "Class Files/FinPIModeless.h"

#include <memory>
#include <utility>

#include "Class Files/LiveCommands.h"
#include "Class Files/UndoableEdit.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "shell/host/callbacks.h"

namespace {

constexpr i32 kUndoTextUnits = 256;
constexpr const char16* kVersion = u"" PLYWELD_VERSION;

// Sets a flag until the scope ends.
class FlagScope {
public:
    explicit FlagScope(u16& flag) noexcept : m_flag{flag} { m_flag = 1; }
    ~FlagScope() { m_flag = 0; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    u16& m_flag;
};

}  // namespace

FinPIModeless::FinPIModeless(WindowHandle owner, u16 item, u16 commandID, const char16* name)
    : FinPI{owner, item, commandID},
      FinPIDialog{this, commandID, name, nullptr, kVersion},
      m_nextLive{g_module.firstLive},
      m_firstDocument{m_lastSelection.DocumentID()} {
    g_module.firstLive = this;
}

FinPIModeless::~FinPIModeless() {
    FinPIModeless** link = &g_module.firstLive;
    while (*link != nullptr && *link != this) {
        link = &(*link)->m_nextLive;
    }
    if (*link == this) {
        *link = m_nextLive;
    }
}

i16 FinPIModeless::Start(const EREGION* selection, const EREGION* wholeDocument) {
    std::unique_ptr<FinPIModeless> self{this};
    m_stop = 0;
    if (wholeDocument == nullptr || !Invoke(selection, *wholeDocument)) {
        return 0;
    }
    m_lastSelection.SetRegion(selection);
    LoadSettings();
    if (CanSkipDialog() != 0 && SkipsDialog() != 0) {
        RunModeless();
        return 0;
    }
    if (m_savedSetting != 0) {
        SetTitle(m_savedSettingName);
    }
    // A dialog that stays open controls the object; one that has closed already has destroyed it.
    FinPIModeless* const command = self.release();
    if (command->ShowDialog(selection, wholeDocument) == 0 && IsLive(command)) {
        self.reset(command);
    }
    return 0;
}

void FinPIModeless::RunModeless() {
    // The pending error and the edit belong to one run, so runs cannot be nested.
    if (m_stop != 0 || IsAnyRunning()) {
        return;
    }
    const FlagScope running{m_running};
    g_pendingError.reset();  // posted while the dialog was open, not by this run
    if (Host::GetCurrentEnigmaDocument() == 0) {
        PostError(FinPINoOpenDocumentError{});
        ReportPendingError();
        return;
    }
    u64 result{};
    EREGION selection{};
    EREGION wholeDocument{};
    const bool selected = Host::GetCurERegions(&result, &selection, &wholeDocument) != 0;
    ChooseRegion(selected ? &selection : nullptr, wholeDocument);
    FinPIMetricsCache::ClearAll();
    if (ExecuteAsEdit(selected ? &selection : nullptr, wholeDocument)) {
        Host::RedrawMusic(&m_region);
    }
    FinPIMetricsCache::ClearAll();
    SaveSettings();
    m_stop = 0;
}

bool FinPIModeless::ExecuteAsEdit(const EREGION* selection, const EREGION& wholeDocument) {
    char16 undoText[kUndoTextUnits];
    std::unique_ptr<FinPIException> ofTheRun = std::move(g_pendingError);
    GetUndoText(undoText, kUndoTextUnits, m_region);
    g_pendingError = std::move(ofTheRun);  // unreadable parts are left out of the text
    UndoableEdit edit{undoText};
    const bool changed = Execute(selection, &wholeDocument) != 0;
    bool failed = m_stop != 0;
    if (ErrorIsPending()) {
        failed = ReportPendingError() != 0 || failed;
    }
    if (failed) {
        return false;
    }
    edit.Keep();
    return changed;
}
