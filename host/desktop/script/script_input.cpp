#include "host/desktop/script/script_input.h"

#include <algorithm>
#include <array>

#include "host/desktop/script/script_line.h"
#include "host/desktop/toolkit/program_messages.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

// Milliseconds.
constexpr DWORD kBetweenInputs = 20;
constexpr DWORD kLongestWork = 5000;
constexpr int kTries = 20;

struct KeyName {
    std::string_view name;
    WORD key;
};

constexpr KeyName kKeys[] = {
    {"Tab", VK_TAB},       {"Enter", VK_RETURN},   {"Esc", VK_ESCAPE},  {"Space", VK_SPACE},
    {"Up", VK_UP},         {"Down", VK_DOWN},      {"Left", VK_LEFT},   {"Right", VK_RIGHT},
    {"Home", VK_HOME},     {"End", VK_END},        {"F4", VK_F4},       {"F6", VK_F6},
    {"Delete", VK_DELETE}, {"Backspace", VK_BACK}, {"Shift", VK_SHIFT}, {"Ctrl", VK_CONTROL},
    {"Alt", VK_MENU},
};

std::optional<WORD> KeyNamed(std::string_view name) {
    if (name.size() == 1) {
        const char letter = name[0];
        const bool isPlain = (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
        return isPlain ? std::optional<WORD>{static_cast<WORD>(letter)} : std::nullopt;
    }
    const auto* found = std::ranges::find(kKeys, name, &KeyName::name);
    return found == std::end(kKeys) ? std::nullopt : std::optional<WORD>{found->key};
}

void Send(INPUT input) {
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    const bool isArrow = key >= VK_PRIOR && key <= VK_DELETE;
    input.ki.dwFlags = flags | (isArrow ? KEYEVENTF_EXTENDEDKEY : 0U);
    Send(input);
}

void SendCharacter(wchar_t character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    Send(input);
}

void SendMouse(POINT place, DWORD flags) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (place.x * 65536 + width - 1) / width;
    input.mi.dy = (place.y * 65536 + height - 1) / height;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    Send(input);
}

// Waits until the program has taken and processed all mouse and keyboard input, unless it opened a
// dialog or a menu, and has painted its windows.
void LetProgramWork(HWND mainWindow) {
    for (DWORD waited = 0; waited < kLongestWork; waited += kBetweenInputs) {
        Sleep(kBetweenInputs);
        if (SendMessageW(mainWindow, kWorkIsWaiting, 0, 0) == 0) {
            return;
        }
    }
}

// Keys that are down until the scope ends.
class KeysHeld {
public:
    KeysHeld(HWND mainWindow, const std::vector<WORD>& keys)
        : m_mainWindow{mainWindow}, m_keys{keys} {
        // When the mouse or the focus moves to another window, the window system compares the keys
        // with its own keyboard and releases those that are not held there.
        LetProgramWork(m_mainWindow);
        for (int i = 0; i < kTries && !AreDown(); ++i) {
            for (const WORD key : m_keys) {
                SendKey(key, 0);
            }
            LetProgramWork(m_mainWindow);
        }
    }
    ~KeysHeld() {
        LetProgramWork(m_mainWindow);
        if (!m_keys.empty()) {
            std::for_each(m_keys.rbegin(), m_keys.rend(),
                          [](WORD key) { SendKey(key, KEYEVENTF_KEYUP); });
            LetProgramWork(m_mainWindow);
        }
    }
    KeysHeld(const KeysHeld&) = delete;
    KeysHeld& operator=(const KeysHeld&) = delete;

private:
    bool AreDown() const {
        return std::ranges::all_of(m_keys, [](WORD key) { return GetAsyncKeyState(key) < 0; });
    }

    HWND m_mainWindow;
    const std::vector<WORD>& m_keys;
};

}  // namespace

std::optional<KeyStroke> ReadKeyStroke(std::string_view name) {
    KeyStroke stroke;
    for (const std::string& part : SplitText(name, '+')) {
        const auto key = KeyNamed(part);
        if (!key) {
            return std::nullopt;
        }
        if (stroke.key != 0) {
            stroke.held.push_back(stroke.key);
        }
        stroke.key = *key;
    }
    return stroke;
}

void PressKeys(HWND mainWindow, const KeyStroke& stroke) {
    const KeysHeld held{mainWindow, stroke.held};
    SendKey(stroke.key, 0);
    SendKey(stroke.key, KEYEVENTF_KEYUP);
}

void TypeText(HWND mainWindow, std::wstring_view text) {
    for (const wchar_t character : text) {
        SendCharacter(character, 0);
        SendCharacter(character, KEYEVENTF_KEYUP);
    }
    LetProgramWork(mainWindow);
}

void ClickAt(HWND mainWindow, POINT place, const std::vector<WORD>& held) {
    DragFromTo(mainWindow, place, place, held);
}

void DragFromTo(HWND mainWindow, POINT from, POINT to, const std::vector<WORD>& held) {
    SendMouse(from, 0);
    const KeysHeld keys{mainWindow, held};
    SendMouse(from, MOUSEEVENTF_LEFTDOWN);
    LetProgramWork(mainWindow);
    if (from.x != to.x || from.y != to.y) {
        SendMouse(to, 0);
        LetProgramWork(mainWindow);
    }
    SendMouse(to, MOUSEEVENTF_LEFTUP);
    LetProgramWork(mainWindow);
}

}  // namespace standin::desktop
