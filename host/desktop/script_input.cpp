#include "host/desktop/script_input.h"

#include <algorithm>
#include <array>

#include "host/desktop/script_line.h"
#include "host/desktop/wide_text.h"

namespace standin::desktop {

namespace {

// Milliseconds between two inputs: as fast as a program can be used, slow enough for it to
// have handled the one before.
constexpr DWORD kBetweenInputs = 40;

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
    const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                     [name](const KeyName& key) { return key.name == name; });
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

class KeysHeld {
public:
    explicit KeysHeld(const std::vector<WORD>& keys) : m_keys{keys} {
        for (const WORD key : m_keys) {
            SendKey(key, 0);
        }
    }
    ~KeysHeld() {
        std::for_each(m_keys.rbegin(), m_keys.rend(),
                      [](WORD key) { SendKey(key, KEYEVENTF_KEYUP); });
        Sleep(kBetweenInputs);
    }
    KeysHeld(const KeysHeld&) = delete;
    KeysHeld& operator=(const KeysHeld&) = delete;

private:
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

void PressKeys(const KeyStroke& stroke) {
    const KeysHeld held{stroke.held};
    SendKey(stroke.key, 0);
    SendKey(stroke.key, KEYEVENTF_KEYUP);
}

void TypeText(std::wstring_view text) {
    for (const wchar_t character : text) {
        SendCharacter(character, 0);
        SendCharacter(character, KEYEVENTF_KEYUP);
    }
    Sleep(kBetweenInputs);
}

void ClickAt(POINT place, const std::vector<WORD>& held) {
    DragFromTo(place, place, held);
}

void DragFromTo(POINT from, POINT to, const std::vector<WORD>& held) {
    const KeysHeld keys{held};
    SendMouse(from, 0);
    Sleep(kBetweenInputs);
    SendMouse(from, MOUSEEVENTF_LEFTDOWN);
    if (from.x != to.x || from.y != to.y) {
        Sleep(kBetweenInputs);
        SendMouse(to, 0);
        Sleep(kBetweenInputs);
    }
    SendMouse(to, MOUSEEVENTF_LEFTUP);
    Sleep(kBetweenInputs);
}

}  // namespace standin::desktop
