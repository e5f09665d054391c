// A desktop in memory: it runs the plug-in's dialogs for the stand-in host, and the test plays the
// user.
//
// A modal dialog runs the next script of the test, and closes if the script leaves it open. A
// modeless one stays on the desk.
#pragma once

#include <deque>
#include <functional>
#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/score/dialog_service.h"
#include "platform/headless/window_model.h"

namespace standin {

// The command dialog's buttons, and what the system sends to any dialog.
inline constexpr u16 kGo = 1;
inline constexpr u16 kClose = 2;
inline constexpr u16 kSaveSettings = 1008;
inline constexpr u32 kTimerMessage = 275;
inline constexpr u32 kCloseMessage = 16;
inline constexpr u32 kDestroyMessage = 2;

class DialogDesk final : public DialogService {
public:
    struct OpenDialog {
        HWND__ window;
        u16 number = 0;
        u16 flags = 0;
        WindowHandle owner = nullptr;
        DialogEventCallback callback = nullptr;
        void* object = nullptr;
        bool ended = false;
        std::map<u16, u32> values;     // of check boxes and radio buttons
        std::map<u16, u32> positions;  // of lists
        std::map<u16, std::u16string> texts;
        std::map<u16, double> userValues;
        std::set<u16> disabled;
        std::set<u16> hidden;
        std::map<u64, u32> timers;  // milliseconds by timer
        u16 focus = 0;

        i16 Send(u32 message, u64 eventWord = 0, i64 eventLong = 0);
        // A user's actions; a button that is disabled or hidden does nothing.
        i16 Press(u16 control);
        void Choose(u16 list, u32 position);
        void Type(u16 control, const std::u16string& text) { texts[control] = text; }
        std::vector<std::u16string> Items(u16 list) const;
        std::u16string SelectedItem(u16 list) const;
    };
    using Script = std::function<void(OpenDialog&)>;

    // The application's dialog service for as long as it lives.
    DialogDesk();
    ~DialogDesk() override;

    // One for each modal dialog that will be shown, in order.
    void Then(Script script) { m_scripts.push_back(std::move(script)); }
    // The next is that for saving settings, which takes this name, and the answer is Yes.
    void ThenSaveAs(const std::u16string& name);
    std::size_t ScriptsLeft() const { return m_scripts.size(); }
    // The newest dialog on the desk; null when none is open.
    OpenDialog* Newest();
    const std::vector<u16>& Shown() const { return m_shown; }  // dialog numbers, in order

    // Where the system would put a new window.
    platform::Rectangle newWindow{300, 200, 700, 500};

    i16 Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner, u16 flags,
               void* dialogObject) override;
    i16 EndDialog(WindowHandle window) override;
    u32 GetItemVal(WindowHandle window, u16 id, i16) override { return Of(window).values[id]; }
    i16 SetItemVal(WindowHandle window, u16 id, i16, u32 value) override {
        return With(window, [&](OpenDialog& open) { open.values[id] = value; });
    }
    u32 GetCntlVal(WindowHandle window, u16 id) override { return Of(window).positions[id]; }
    i16 SetCntlVal(WindowHandle window, u16 id, u32 value) override {
        return With(window, [&](OpenDialog& open) { open.positions[id] = value; });
    }
    std::u16string GetString(WindowHandle window, u16 id) override { return Of(window).texts[id]; }
    i16 SetString(WindowHandle window, u16 id, const std::u16string& text) override {
        return With(window, [&](OpenDialog& open) { open.texts[id] = text; });
    }
    i16 Enable(WindowHandle window, u16 id, bool enabled) override {
        return With(window, [&](OpenDialog& open) { Put(open.disabled, id, !enabled); });
    }
    i16 Show(WindowHandle window, u16 id, bool shown) override {
        return With(window, [&](OpenDialog& open) { Put(open.hidden, id, !shown); });
    }
    i16 SetFocus(WindowHandle window, u16 id) override {
        return With(window, [&](OpenDialog& open) { open.focus = id; });
    }
    i16 GetItemUser(WindowHandle window, u16 id, i16, double* out) override {
        return With(window, [&](OpenDialog& open) { *out = open.userValues[id]; });
    }
    i16 SetItemUser(WindowHandle window, u16 id, i16, double value) override {
        return With(window, [&](OpenDialog& open) { open.userValues[id] = value; });
    }
    i16 SetTimer(WindowHandle window, u64 timer, u32 milliseconds) override {
        return With(window, [&](OpenDialog& open) { open.timers[timer] = milliseconds; });
    }
    i16 KillTimer(WindowHandle window, u64 timer) override {
        return With(window, [&](OpenDialog& open) { open.timers.erase(timer); });
    }

private:
    OpenDialog* Find(WindowHandle window);
    // The dialog of the window, or an empty one.
    OpenDialog& Of(WindowHandle window) {
        OpenDialog* open = Find(window);
        return open != nullptr ? *open : m_none = {};
    }
    template <typename Routine>
    i16 With(WindowHandle window, Routine routine) {
        routine(Of(window));
        return Find(window) != nullptr ? 1 : 0;
    }
    static void Put(std::set<u16>& controls, u16 control, bool isIn);

    OpenDialog m_none;
    std::list<OpenDialog> m_open;
    std::deque<Script> m_scripts;
    std::vector<u16> m_shown;
    DialogService* m_previous;
};

}  // namespace standin
