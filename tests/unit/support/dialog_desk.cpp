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

struct Template {
    u16 number;
    const char16* caption;
    std::vector<TemplateControl> controls;
};

// Control ids and texts as the plug-in's templates have them; places as tests need them.
const std::vector<Template>& Templates() {
    static const std::vector<Template> templates = {
        {20001,
         u"Finale",
         {{1, u"OK", {100, 60, 150, 74}},
          {2, u"Cancel", {160, 60, 210, 74}},
          {3, u"Not Initialized", {7, 7, 210, 40}},
          {4, u"Do not show again.", {7, 45, 100, 55}}}},
        {20003,
         u"Save Settings",
         {{1, u"OK", {100, 97, 150, 111}},
          {2, u"Cancel", {160, 97, 210, 111}},
          {3, u"Save Settings:", {7, 9, 70, 17}},
          {4, u"Settings Name:", {7, 27, 70, 35}},
          {5, u"", {80, 7, 210, 20}},
          {7, u"", {80, 25, 210, 37}},
          {8, u"Add", {80, 43, 120, 57}},
          {9, u"Delete", {125, 43, 165, 57}},
          {10, u"Delete All", {170, 43, 210, 57}},
          {11, u"Skip plugin's dialog when using these settings.", {7, 64, 210, 74}},
          {12, u"Use submenu for the Saved Settings of this plugin.", {7, 78, 210, 88}}}},
        {22000,
         u"Plyweld",
         {{1001, u"Current Selection", {7, 7, 221, 29}},
          {1003, u"", {31, 36, 104, 66}},
          {1005, u"", {147, 36, 220, 66}},
          {1006, u"Merge Into Target", {15, 54, 91, 64}},
          {1007, u"Replace In Target", {15, 67, 90, 77}},
          {1009, u"Rebeam", {135, 54, 178, 64}},
          {1010, u"Hide Added Rests", {135, 67, 209, 77}},
          {1008, u"Save Settings...", {7, 85, 79, 99}},
          {1, u"Go", {114, 85, 164, 99}},
          {2, u"Close", {171, 85, 221, 99}}}},
    };
    return templates;
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
    for (const Template& known : Templates()) {
        if (known.number == dialogNumber) {
            open.window.caption = known.caption;
            for (const TemplateControl& control : known.controls) {
                open.window.controls[control.id].rectangle = control.rectangle;
                open.texts[control.id] = control.text;
            }
        }
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

u32 DialogDesk::GetItemVal(WindowHandle window, u16 control, i16 /*kind*/) {
    OpenDialog* open = Find(window);
    return open == nullptr ? 0 : open->values[control];
}

i16 DialogDesk::SetItemVal(WindowHandle window, u16 control, i16 /*kind*/, u32 value) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->values[control] = value;
    return 1;
}

u32 DialogDesk::GetCntlVal(WindowHandle window, u16 control) {
    OpenDialog* open = Find(window);
    return open == nullptr ? 0 : open->positions[control];
}

i16 DialogDesk::SetCntlVal(WindowHandle window, u16 control, u32 value) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->positions[control] = value;
    return 1;
}

std::u16string DialogDesk::GetString(WindowHandle window, u16 control) {
    OpenDialog* open = Find(window);
    return open == nullptr ? std::u16string{} : open->texts[control];
}

i16 DialogDesk::SetString(WindowHandle window, u16 control, const std::u16string& text) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->texts[control] = text;
    return 1;
}

i16 DialogDesk::Enable(WindowHandle window, u16 control, bool enabled) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    if (enabled) {
        open->disabled.erase(control);
    } else {
        open->disabled.insert(control);
    }
    return 1;
}

i16 DialogDesk::Show(WindowHandle window, u16 control, bool shown) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    if (shown) {
        open->hidden.erase(control);
    } else {
        open->hidden.insert(control);
    }
    return 1;
}

i16 DialogDesk::SetFocus(WindowHandle window, u16 control) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->focus = control;
    return 1;
}

i16 DialogDesk::GetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double* out) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    *out = open->userValues[control];
    return 1;
}

i16 DialogDesk::SetItemUser(WindowHandle window, u16 control, i16 /*kind*/, double value) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->userValues[control] = value;
    return 1;
}

i16 DialogDesk::SetTimer(WindowHandle window, u64 timer, u32 milliseconds) {
    OpenDialog* open = Find(window);
    if (open == nullptr) {
        return 0;
    }
    open->timers[timer] = milliseconds;
    return 1;
}

i16 DialogDesk::KillTimer(WindowHandle window, u64 timer) {
    OpenDialog* open = Find(window);
    return open != nullptr && open->timers.erase(timer) != 0 ? i16{1} : i16{0};
}

}  // namespace standin
