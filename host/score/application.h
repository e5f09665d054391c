// The host program's state: its open documents, the current one, and a log of what the plug-in did.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/score/dialog_service.h"
#include "host/score/document.h"
#include "host/score/fault_plan.h"
#include "host/score/lent_frames.h"
#include "host/score/manners.h"

namespace standin {

struct Alert {
    WindowHandle owner = nullptr;
    i16 kind = 0;
    u16 stringId = 0;     // of the plug-in's own string table; 0 = the text counts
    std::u16string text;  // empty when stringId is given
};

struct ProgressReport {
    u64 handle = 0;
    i16 steps = 0;
    u16 staff = 0;  // 0 = not given
    i16 measure = 0;
    i16 layer = -1;  // -1 = not given
};

class Application {
public:
    // --- Documents. The first one opened becomes current.
    Document& OpenDocument(std::u16string path);
    // Another document becomes current when the current one closes.
    bool CloseDocument(u16 number);
    Document* FindDocument(u16 number) const;  // null when none
    Document* CurrentDocument() const { return FindDocument(m_current); }
    u16 CurrentNumber() const noexcept { return m_current; }
    bool SetCurrentDocument(u16 number);  // false if no document has that number
    // The first document numbered above this one; 0 starts, 0 = none left.
    u16 NextDocument(u16 number) const;

    // --- Layers and view
    i16 maxLayers = 4;
    i16 activeLayer = 0;
    u16 view = 0;  // 0 page, 1 scroll, 2 studio
    // The current document's option that hides all layers but the active one.
    bool ShowsActiveLayerOnly() const;
    bool ShowsLayer(i16 layer) const;

    Manners manners;  // of the program, for as long as it runs

    // --- What the plug-in was lent and what it did
    LentFrames lent;
    CallCounts calls;
    FaultPlan faults;
    std::vector<Alert> alerts;
    std::function<void(const Alert&)> alertListener;  // optional
    // Called when an edit of the plug-in has ended, with whether it changed anything. Optional.
    std::function<void(bool changed)> editListener;
    std::vector<ProgressReport> progress;
    // Called for each report; false = the user stops. Optional.
    std::function<bool(const ProgressReport&)> progressListener;
    std::set<u64> progressDisplays;  // handles of the open displays
    u64 progressDisplaysOpened = 0;
    i16 lastProgressStopped = 0;  // the argument that closed the last display
    std::vector<EREGION> redrawn;
    EREGION lastRebeamed{};
    i16 lastLayoutPage = -1;        // the argument of the last layout update
    std::vector<u16> menuCommands;  // as run by the plug-in
    DialogService* dialogs = nullptr;

    EntryMemory& EntryMemoryForFrames() const;

    // Resets counters, logs and the fault plan; documents stay as they are.
    void ResetCounts();
    // As at the start of the program, with the same manners.
    void Reset();

private:
    std::vector<std::unique_ptr<Document>> m_documents;  // by number
    u16 m_current = 0;
    u16 m_lastNumber = 0;
};

// The one application of the process.
Application& App();

// The host's menu commands that the plug-in uses.
namespace MenuCommand {
inline constexpr u16 kShowActiveLayerOnly = 10632;
inline constexpr u16 kFirstLayer = 10633;  // + n makes layer n active
inline constexpr u16 kClearLayer = 16048;  // the active layer within the selection
}  // namespace MenuCommand

// Runs a menu command on the current document. False: unknown, or it does not apply.
bool RunMenuCommand(u16 command);

}  // namespace standin
