#include "tests/unit/support/dialog_desk.h"

#include <algorithm>

#include "host/score/application.h"

namespace standin {

namespace {

constexpr u32 kDestroy = 2;
constexpr u32 kClose = 16;
constexpr u32 kInitDialog = 272;
constexpr u32 kCommand = 273;
constexpr u64 kSelectionEndOk = 9;

struct TemplateControl {
    u16 id;
    const char16* text;
    platform::Rectangle rectangle;
};

// By dialog number: what the plug-in reads of its templates, and places as tests need them.
const std::map<u16, std::vector<TemplateControl>>& Templates() {
    static const std::map<u16, std::vector<TemplateControl>> templates = {
        {20001,
         {{1, u"OK", {100, 60, 150, 74}},
          {2, u"Cancel", {160, 60, 210, 74}},
          {3, u"Not Initialized", {7, 7, 210, 40}},
          {4, u"Do not show again.", {7, 45, 100, 55}}}},
        {20003,
         {{1, u"OK", {100, 97, 150, 111}},
          {2, u"Cancel", {160, 97, 210, 111}},
          {3, u"Save Settings:", {7, 9, 70, 17}},
          {4, u"Settings Name:", {7, 27, 70, 35}},
          {5, u"", {80, 7, 210, 20}},
          {11, u"Skip plugin's dialog when using these settings.", {7, 64, 210, 74}},
          {12, u"Use submenu for the Saved Settings of this plugin.", {7, 78, 210, 88}}}},
        {22000,
         {{1003, u"", {31, 36, 104, 66}},
          {1005, u"", {147, 36, 220, 66}},
          {1, u"Go", {114, 85, 164, 99}},
          {2, u"Close", {171, 85, 221, 99}}}},
    };
    return templates;
}

void Put(std::set<u16>& controls, u16 control, bool isIn) {
    if (isIn) {
        controls.insert(control);
    } else {
        controls.erase(control);
    }
}

}  // namespace

i16 DialogDesk::OpenDialog::Send(u32 message, u64 eventWord, i64 eventLong) {
    return callback(&window, message, eventWord, eventLong, object);
}

i16 DialogDesk::OpenDialog::Press(u16 control) {
    if (disabled.contains(control) || hidden.contains(control)) {
        return 0;
    }
    return Send(kCommand, control);
}

void DialogDesk::OpenDialog::Choose(u16 list, u32 position) {
    positions[list] = position;
    Send(kCommand, (kSelectionEndOk << 16U) | list);
}

std::vector<std::u16string> DialogDesk::OpenDialog::Items(u16 list) const {
    std::vector<std::u16string> items;
    for (const HWND__::ListItem& item : window.controls.at(list).items) {
        items.push_back(item.text);
    }
    return items;
}

std::u16string DialogDesk::OpenDialog::SelectedItem(u16 list) const {
    const auto position = positions.find(list);
    const std::vector<std::u16string> items = Items(list);
    const bool selected =
        position != positions.end() && position->second >= 1 && position->second <= items.size();
    return selected ? items[position->second - 1] : u"(none)";
}

DialogDesk::DialogDesk() : m_previous{App().dialogs} {
    App().dialogs = this;
}

DialogDesk::~DialogDesk() {
    App().dialogs = m_previous;
}

DialogDesk::OpenDialog* DialogDesk::Newest() {
    return m_open.empty() ? nullptr : &m_open.back();
}

DialogDesk::OpenDialog* DialogDesk::Find(WindowHandle window) {
    const auto found = std::find_if(m_open.begin(), m_open.end(), [window](const OpenDialog& open) {
        return &open.window == window;
    });
    return found == m_open.end() ? nullptr : &*found;
}

i16 DialogDesk::Dialog(u16 dialogNumber, DialogEventCallback callback, WindowHandle owner,
                       u16 flags, void* dialogObject) {
    m_shown.push_back(dialogNumber);
    OpenDialog& open = m_open.emplace_back();
    open.number = dialogNumber;
    open.flags = flags;
    open.owner = owner;
    open.callback = callback;
    open.object = dialogObject;
    open.window.rectangle = newWindow;
    open.window.client = {newWindow.Width() - 10, newWindow.Height() - 30};
    open.window.caption = dialogNumber == 20003 ? u"Save Settings" : u"Plyweld";
    for (const TemplateControl& control : Templates().at(dialogNumber)) {
        open.window.controls[control.id].rectangle = control.rectangle;
        open.texts[control.id] = control.text;
    }
    open.Send(kInitDialog);
    if ((flags & 1U) == 0) {
        return 1;
    }
    if (!m_scripts.empty()) {
        const Script script = m_scripts.front();
        m_scripts.pop_front();
        script(open);
    }
    if (!open.ended) {
        open.Send(kClose);
    }
    open.Send(kDestroy);
    m_open.remove_if([&open](const OpenDialog& other) { return &other == &open; });
    return 1;
}

i16 DialogDesk::EndDialog(WindowHandle window) {
    OpenDialog* open = Find(window);
    if (open == nullptr || open->ended) {
        return 0;
    }
    open->ended = true;
    if ((open->flags & 1U) == 0) {
        open->Send(kDestroy);
        m_open.remove_if([open](const OpenDialog& other) { return &other == open; });
    }
    return 1;
}

// Calls the routine with the dialog of the window, when there is one.
template <typename Routine>
i16 DialogDesk::With(WindowHandle window, Routine routine) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    routine(*open);
    return 1;
}

u32 DialogDesk::GetItemVal(WindowHandle window, u16 control, i16 /*kind*/) {
    u32 value = 0;
    With(window, [&](OpenDialog& open) { value = open.values[control]; });
    return value;
}

i16 DialogDesk::SetItemVal(WindowHandle window, u16 control, i16 /*kind*/, u32 value) {
    return With(window, [&](OpenDialog& open) { open.values[control] = value; });
}

u32 DialogDesk::GetCntlVal(WindowHandle window, u16 control) {
    u32 position = 0;
    With(window, [&](OpenDialog& open) { position = open.positions[control]; });
    return position;
}

i16 DialogDesk::SetCntlVal(WindowHandle window, u16 control, u32 value) {
    return With(window, [&](OpenDialog& open) { open.positions[control] = value; });
}

std::u16string DialogDesk::GetString(WindowHandle window, u16 control) {
    std::u16string text;
    With(window, [&](OpenDialog& open) { text = open.texts[control]; });
    return text;
}

i16 DialogDesk::SetString(WindowHandle window, u16 control, const std::u16string& text) {
    return With(window, [&](OpenDialog& open) { open.texts[control] = text; });
}

i16 DialogDesk::Enable(WindowHandle window, u16 control, bool enabled) {
    return With(window, [&](OpenDialog& open) { Put(open.disabled, control, !enabled); });
}

i16 DialogDesk::Show(WindowHandle window, u16 control, bool shown) {
    return With(window, [&](OpenDialog& open) { Put(open.hidden, control, !shown); });
}

i16 DialogDesk::SetFocus(WindowHandle window, u16 control) {
    return With(window, [&](OpenDialog& open) { open.focus = control; });
}

i16 DialogDesk::GetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double* out) {
    return With(window, [&](OpenDialog& open) { *out = open.userValues[control]; });
}

i16 DialogDesk::SetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double value) {
    return With(window, [&](OpenDialog& open) { open.userValues[control] = value; });
}

i16 DialogDesk::SetTimer(WindowHandle window, u64 timer, u32 milliseconds) {
    return With(window, [&](OpenDialog& open) { open.timers[timer] = milliseconds; });
}

i16 DialogDesk::KillTimer(WindowHandle window, u64 timer) {
    return With(window, [&](OpenDialog& open) { open.timers.erase(timer); });
}

}  // namespace standin
