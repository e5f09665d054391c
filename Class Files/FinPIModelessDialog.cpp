// What a modeless command adds to its dialog.
#include "Class Files/FinPIModeless.h"
#include "Class Files/LiveCommands.h"
#include "Class Files/interface/HostMenu.h"
#include "platform/window.h"
#include "shell/host/callbacks.h"

namespace {

// How far a dialog appears from the one that was opened before it.
constexpr i16 kCascade = 10;  // pixels

// The menu events that have a handler of their own.
constexpr u32 kFirstListedEvent = 10501;
constexpr u32 kLastListedEvent = 10503;

std::set<u16> OpenDocuments() {
    std::set<u16> documents;
    u16 document = Host::GetNextEnigmaDocument(u16{0});
    // A repeated number would make the walk endless.
    while (document != 0 && documents.insert(document).second) {
        document = Host::GetNextEnigmaDocument(document);
    }
    return documents;
}

FinPIRegion CurrentSelection() {
    u64 result{};
    EREGION selection{};
    EREGION wholeDocument{};
    FinPIRegion region;
    const bool selected = Host::GetCurERegions(&result, &selection, &wholeDocument) != 0;
    region.SetRegion(selected ? &selection : nullptr);
    return region;
}

bool IsEmpty(const FinPIRegion& region) {
    return region.startSlot == 0;
}

}  // namespace

i16 FinPIModeless::BringToFront() {
    return platform::FocusWindow(Window()) ? 1 : 0;
}

i16 FinPIModeless::ShowDialog(const EREGION* /*selection*/, const EREGION* /*wholeDocument*/) {
    ShowDialogWindow(m_ownerWindow, 0);
    return IsLive(this) && Window() != nullptr ? 1 : 0;
}

void FinPIModeless::ForgetWindowPlace(u16 identifier) {
    ForgetStoredPosition(identifier);
}

i16 FinPIModeless::CloseDialog(WindowHandle window) {
    return IsRunning() ? i16{0} : FinPIDialog::CloseDialog(window);
}

i16 FinPIModeless::LoadWindowPosition(u16 keyOffset) {
    if (FinPIDialog::LoadWindowPosition(keyOffset) != 0) {
        return 1;
    }
    if (m_nextLive == nullptr) {
        return 0;
    }
    // Its current place; the stored one may be older or missing.
    if (m_nextLive->Window() != nullptr && m_nextLive->m_minimized == 0) {
        m_nextLive->RememberWindowPlace(m_nextLive->Window());
    }
    SetPlace(static_cast<i16>(m_nextLive->Left() + kCascade),
             static_cast<i16>(m_nextLive->Top() + kCascade));
    return 1;
}

u16 FinPIModeless::GetPositionKeyOffset(WindowHandle /*window*/, u64 /*eventWord*/,
                                        i64 /*eventLong*/) {
    return m_savedSettingID;
}

i16 FinPIModeless::OnDestroyWindow(WindowHandle window, u64 eventWord, i64 eventLong) {
    FinPIDialog::OnDestroyWindow(window, eventWord, eventLong);
    SaveSettings();
    // The host may end its windows while a run, or a dialog of this one, is on the stack.
    DeleteWhenIdle();
    return 1;
}

i16 FinPIModeless::OnOtherMessage(WindowHandle /*window*/, u32 message, u64 /*eventWord*/,
                                  i64 eventLong) {
    if (message != MenuEventMessage()) {
        return 0;
    }
    m_pendingMenuEvent = static_cast<u32>(eventLong);
    return 1;
}

void FinPIModeless::OnTimer(WindowHandle window) {
    WatchMenuEvents(window);
    WatchDocuments(window);
    WatchSelection(window);
}

void FinPIModeless::WatchMenuEvents(WindowHandle window) {
    const u32 event = m_pendingMenuEvent;
    if (event == 0) {
        return;
    }
    m_pendingMenuEvent = 0;
    if (event >= kFirstListedEvent && event <= kLastListedEvent) {
        OnListedMenuEvent(window);
    }
    OnMenuEvent(window, event);
}

void FinPIModeless::WatchDocuments(WindowHandle window) {
    std::set<u16> documents = OpenDocuments();
    if (documents != m_lastDocuments) {
        OnDocumentListChanged(window);
        m_lastDocuments = std::move(documents);
    }
    if (Host::GetCurrentEnigmaDocument() != m_firstDocument) {
        OnCurrentDocumentChanged(window);
    }
}

void FinPIModeless::WatchSelection(WindowHandle window) {
    const FinPIRegion selection = CurrentSelection();
    if (IsEmpty(selection) ? IsEmpty(m_lastSelection) : selection == m_lastSelection) {
        return;
    }
    m_lastSelection = selection;
    UpdateSelectionText(window);
}
