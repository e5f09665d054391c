#include "tests/unit/support/dialog_desk.h"

#include "host/score/application.h"

namespace standin {

namespace {

constexpr u32 kInitDialog = 272;
constexpr u32 kCommand = 273;
constexpr u64 kSelectionEndOk = 9;

// The parts of the templates that the plug-in reads, with places for the tests.
const struct {
    u16 dialog;
    u16 id;
    const char16* text;
    platform::Rectangle rectangle;
} kControls[] = {
    {20001, 1, u"OK", {100, 60, 150, 74}},
    {20001, 2, u"Cancel", {160, 60, 210, 74}},
    {20001, 3, u"Not Initialized", {7, 7, 210, 40}},
    {20001, 4, u"Do not show again.", {7, 45, 100, 55}},
    {20003, 1, u"OK", {100, 97, 150, 111}},
    {20003, 2, u"Cancel", {160, 97, 210, 111}},
    {20003, 3, u"Save Settings:", {7, 9, 70, 17}},
    {20003, 4, u"Settings Name:", {7, 27, 70, 35}},
    {20003, 5, u"", {80, 7, 210, 20}},
    {20003, 11, u"Skip plugin's dialog when using these settings.", {7, 64, 210, 74}},
    {20003, 12, u"Use submenu for the Saved Settings of this plugin.", {7, 78, 210, 88}},
    {22000, 1003, u"", {31, 36, 104, 66}},
    {22000, 1005, u"", {147, 36, 220, 66}},
    {22000, 1, u"Go", {114, 85, 164, 99}},
    {22000, 2, u"Close", {171, 85, 221, 99}},
    {22200, 1004, u"", {20, 71, 80, 101}},
    {22200, 2, u"Close", {203, 71, 253, 85}},
};

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
    const std::size_t index = position == positions.end() ? 0 : position->second;
    const std::vector<std::u16string> items = Items(list);
    return index >= 1 && index <= items.size() ? items[index - 1] : u"(none)";
}

DialogDesk::DialogDesk() : m_previous{App().dialogs} {
    App().dialogs = this;
}

DialogDesk::~DialogDesk() {
    App().dialogs = m_previous;
}

void DialogDesk::ThenSaveAs(const std::u16string& name) {
    Then([this, name](OpenDialog& save) {
        Then([](OpenDialog& question) { question.Press(1); });
        save.Type(7, name);
        save.Press(1);
    });
}

DialogDesk::OpenDialog* DialogDesk::Newest() {
    return m_open.empty() ? nullptr : &m_open.back();
}

DialogDesk::OpenDialog* DialogDesk::Find(WindowHandle window) {
    for (OpenDialog& open : m_open) {
        if (&open.window == window) {
            return &open;
        }
    }
    return nullptr;
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
    for (const auto& control : kControls) {
        if (control.dialog == dialogNumber) {
            open.window.controls[control.id].rectangle = control.rectangle;
            open.texts[control.id] = control.text;
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
        open.Send(kCloseMessage);
    }
    open.Send(kDestroyMessage);
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
        open->Send(kDestroyMessage);
        m_open.remove_if([open](const OpenDialog& other) { return &other == open; });
    }
    return 1;
}

void DialogDesk::Put(std::set<u16>& controls, u16 control, bool isIn) {
    if (isIn) {
        controls.insert(control);
    } else {
        controls.erase(control);
    }
}

}  // namespace standin
