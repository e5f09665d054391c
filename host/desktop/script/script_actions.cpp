#include "host/desktop/script/script_actions.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <span>

#include "host/desktop/script/patience.h"
#include "host/desktop/script/screenshot.h"
#include "host/desktop/script/script_input.h"
#include "host/desktop/script/script_screen.h"
#include "host/desktop/script/script_settings.h"
#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/window/commands.h"

namespace standin::desktop {

namespace {

using Words = std::span<const std::string>;
using Action = std::string (*)(ScriptScene& scene, Words words);

constexpr int kRedrawn = 120;  // milliseconds until a change can be seen

std::optional<int> Number(const std::string& text) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc{} ? std::optional{number} : std::nullopt;
}

std::string Done(bool done, const char* otherwise) {
    return done ? std::string{} : std::string{otherwise};
}

// False: it did not become true within a person's patience.
template <typename Condition>
bool Await(Condition holds) {
    bool held = holds();
    for (int waited = 0; !held && waited < kPatience; waited += kLook) {
        Sleep(kLook);
        held = holds();
    }
    return held;
}

// The window that the script uses, once it exists. Null if it does not appear.
HWND AwaitTarget(const ScriptScene& scene) {
    HWND target = nullptr;
    Await([&] { return (target = scene.Target()) != nullptr; });
    return target;
}

// Brings a window to the front, as a click on its title would.
void Activate(const ScriptScene& scene, HWND window) {
    scene.window.InWindowThread([window] {
        SetForegroundWindow(window);
        SetActiveWindow(window);
    });
}

std::string Open(ScriptScene& scene, Words words) {
    const std::filesystem::path file = scene.folder / WideFromUtf8(words[0]);
    bool opened = false;
    scene.window.InWindowThread([&] { opened = scene.window.Open(file); });
    return Done(opened, "the file was not opened");
}

// A file from a folder window, dropped on the program's window.
std::string Drop(ScriptScene& scene, Words words) {
    const std::wstring path = (scene.folder / WideFromUtf8(words[0])).wstring();
    const std::size_t bytes = sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GHND, bytes);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    if (drop == nullptr) {
        return "there is no memory";
    }
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, path.c_str(), path.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    PostMessageW(scene.window.Window(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    return {};
}

// Clicks in the grid where the score has ended: "below" the last staff, or "behind" its last
// measure.
std::string ClickBeyond(ScriptScene& scene, Words words) {
    const bool isBelow = words[0] == "below";
    POINT place{};
    scene.window.InWindowThread([&] {
        const Document& document = *App().CurrentDocument();
        const int slot = static_cast<int>(document.StaffList(0).size());
        const u16 measure = document.MeasureCount();
        const i32 end = document.MeasureDuration(document.StaffInSlot(1, 0), measure);
        place = scene.window.Grid().ScreenPoint({slot, measure, isBelow ? 0 : end});
    });
    (isBelow ? place.y : place.x) += GridLayout::kRowHeight;
    ClickAt(scene.window.Window(), place);
    return {};
}

// Drags the mouse from the first measure or beat to the last.
std::string Select(ScriptScene& scene, Words words) {
    const auto staves = ReadRange(words[0]);
    const auto measures = ReadRange(words[1]);
    const auto beats = words.size() > 2 ? ReadRange(words[2]) : ScriptRange{};
    if (!staves || !measures || !beats) {
        return "staves, measures and beats are numbers from 1 or ranges such as 2-4";
    }
    Activate(scene, scene.window.Window());
    POINT from{};
    POINT to{};
    scene.window.InWindowThread([&] {
        const Document& document = *App().CurrentDocument();
        const auto place = [&](int slot, int measure, int beat) {
            const i32 length = document.Measure(static_cast<u16>(measure)).beatDuration;
            return scene.window.Grid().ScreenPoint({slot, measure, (beat - 1) * length});
        };
        scene.window.Grid().ScrollToMeasure(measures->last);
        from = place(staves->first, measures->first, beats->first);
        to = place(staves->last, measures->last, beats->last);
    });
    const std::vector<WORD> held(words.size() > 2 ? 1 : 0, VK_CONTROL);
    DragFromTo(scene.window.Window(), from, to, held);
    return {};
}

std::string Menu(ScriptScene& scene, Words words) {
    std::vector<WORD> held;
    if (words.size() > 1 && words[1] == "shift") {
        held.push_back(VK_SHIFT);
    }
    return ChooseMenuItem(scene.window.Window(), SplitText(words[0], '>'), held);
}

std::string ShowMenu(ScriptScene& scene, Words words) {
    return OpenMenu(scene.window.Window(), SplitText(words[0], '>'));
}

std::string CloseMenus(ScriptScene& scene, Words) {
    SendMessageW(scene.window.Window(), WM_CANCELMODE, 0, 0);
    Sleep(kRedrawn);
    return {};
}

std::string In(ScriptScene& scene, Words words) {
    scene.title.reset();
    if (words[0] == "front") {
        return {};
    }
    if (words[0] == "main") {
        Activate(scene, scene.window.Window());
        return {};
    }
    scene.title = WideFromUtf8(words[0]);
    HWND target = AwaitTarget(scene);
    if (target == nullptr) {
        return "the window does not exist";
    }
    Activate(scene, target);
    return {};
}

// Whether a click would hit the control itself, not a window above it.
bool CanBeHit(HWND control) {
    HWND hit = WindowFromPoint(MiddleOf(control));
    return hit == control || IsChild(control, hit) != 0 || hit == GetParent(control);
}

std::string Click(ScriptScene& scene, Words words) {
    AwaitTarget(scene);
    HWND control = scene.Control(words[0]);
    if (control == nullptr) {
        return "the control does not exist";
    }
    if (IsWindowVisible(control) == 0 || IsWindowEnabled(control) == 0) {
        return "it is hidden or disabled";
    }
    // A closed window may not have disappeared yet.
    if (!Await([control] { return CanBeHit(control); })) {
        return "another window covers it";
    }
    ClickAt(scene.window.Window(), MiddleOf(control));
    return {};
}

// Like a click, but at once and without the mouse.
std::string Press(ScriptScene& scene, Words words) {
    HWND control = scene.Control(words[0]);
    if (control != nullptr) {
        SendMessageW(control, BM_CLICK, 0, 0);
    }
    return Done(control != nullptr, "the control does not exist");
}

std::string Undo(ScriptScene& scene, Words) {
    SendMessageW(scene.window.Window(), WM_COMMAND, Command::kUndo, 0);
    return {};
}

std::string Choose(ScriptScene& scene, Words words) {
    if (std::string problem = Click(scene, words); !problem.empty()) {
        return problem;
    }
    HWND control = scene.Control(words[0]);
    const std::vector<std::wstring> items = ItemsOf(control);
    const auto item = std::ranges::find(items, WideFromUtf8(words[1]));
    if (item == items.end()) {
        PressKeys(scene.window.Window(), {VK_ESCAPE, {}});
        return "the list has no such item";
    }
    for (int waited = 0; waited < kPatience; waited += kLook) {
        if (const auto place = ItemPlace(control, static_cast<int>(item - items.begin()))) {
            ClickAt(scene.window.Window(), *place);
            return {};
        }
        Sleep(kLook);
    }
    return "the item is not in view";
}

std::string Type(ScriptScene& scene, Words words) {
    TypeText(scene.window.Window(), WideFromUtf8(words[0]));
    return {};
}

std::string Key(ScriptScene& scene, Words words) {
    const auto stroke = ReadKeyStroke(words[0]);
    const int times = words.size() > 1 ? Number(words[1]).value_or(1) : 1;
    if (!stroke) {
        return "unknown key";
    }
    for (int i = 0; i < times; ++i) {
        PressKeys(scene.window.Window(), *stroke);
    }
    return {};
}

std::string Wait(ScriptScene&, Words words) {
    Sleep(static_cast<DWORD>(Number(words[0]).value_or(0)));
    return {};
}

std::string Slow(ScriptScene& scene, Words words) {
    const auto delay = static_cast<DWORD>(Number(words[0]).value_or(0));
    scene.window.InWindowThread([&] { scene.window.Progress().SlowDown(delay); });
    return {};
}

std::string System(ScriptScene& scene, WPARAM command) {
    HWND target = AwaitTarget(scene);
    PostMessageW(target, WM_SYSCOMMAND, command, 0);
    Sleep(kRedrawn);
    return Done(target != nullptr, "there is no window");
}

std::string Minimize(ScriptScene& scene, Words) {
    return System(scene, SC_MINIMIZE);
}

std::string Restore(ScriptScene& scene, Words) {
    return System(scene, SC_RESTORE);
}

std::string Close(ScriptScene& scene, Words) {
    return System(scene, SC_CLOSE);
}

std::string Move(ScriptScene& scene, Words words) {
    const auto left = Number(words[0]);
    const auto top = Number(words[1]);
    HWND target = AwaitTarget(scene);
    if (!left || !top || target == nullptr) {
        return "there is no window, or no place";
    }
    SetWindowPos(target, nullptr, *left, *top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return {};
}

// Another program's message to the plug-in's dialogs about a menu event.
std::string MenuEvent(ScriptScene& scene, Words words) {
    const UINT message = RegisterWindowMessageA("FinaleMenuEventForOrvandelPlugins");
    PostMessageW(scene.Target(), message, 0, Number(words[0]).value_or(0));
    return {};
}

std::string Protect(ScriptScene&, Words words) {
    return Done(ProtectSettings(words[0], true), "the settings cannot be protected");
}

std::string Unprotect(ScriptScene&, Words words) {
    return Done(ProtectSettings(words[0], false), "the settings cannot be freed");
}

// Of the window the script works in, or with "all" of everything the program shows.
std::string Screenshot(ScriptScene& scene, Words words) {
    Sleep(kRedrawn);
    RECT area{};
    if (words.size() > 1 && words[1] == "all") {
        for (HWND window : VisibleWindows(scene.window.Window())) {
            RECT rect{};
            GetWindowRect(window, &rect);
            UnionRect(&area, &area, &rect);
        }
    } else {
        HWND target = scene.Target();
        GetWindowRect(target != nullptr ? target : scene.window.Window(), &area);
    }
    const char* language = scene.language == ScriptLanguage::kSpanish ? ".es.png" : ".en.png";
    return Done(SaveScreenshot(area, scene.pictures / (words[0] + language)),
                "the picture was not saved");
}

std::string RememberCounts(ScriptScene& scene, Words) {
    scene.objects = CountObjects(scene.window.Window());
    return {};
}

std::string RememberDocument(ScriptScene& scene, Words) {
    scene.digest = scene.DocumentDigest();
    return {};
}

struct Step {
    std::string_view name;
    std::size_t words;
    Action action;
};

constexpr Step kSteps[] = {
    {"open", 1, Open},
    {"drop", 1, Drop},
    {"select", 2, Select},
    {"click-beyond", 1, ClickBeyond},
    {"menu", 1, Menu},
    {"show-menu", 1, ShowMenu},
    {"close-menus", 0, CloseMenus},
    {"in", 1, In},
    {"click", 1, Click},
    {"press", 1, Press},
    {"undo", 0, Undo},
    {"choose", 2, Choose},
    {"type", 1, Type},
    {"key", 1, Key},
    {"wait", 1, Wait},
    {"slow", 1, Slow},
    {"minimize", 0, Minimize},
    {"restore", 0, Restore},
    {"close", 0, Close},
    {"move", 2, Move},
    {"menu-event", 1, MenuEvent},
    {"protect", 1, Protect},
    {"unprotect", 1, Unprotect},
    {"screenshot", 1, Screenshot},
    {"count-objects", 0, RememberCounts},
    {"remember-document", 0, RememberDocument},
};

}  // namespace

std::string TakeStep(ScriptScene& scene, const std::vector<std::string>& words) {
    if (words[0] == "forget" || words[0] == "setting") {
        return Done(PrepareSetting(words), "the setting was not written");
    }
    const auto* found = std::ranges::find(kSteps, words[0], &Step::name);
    if (found == std::end(kSteps) || words.size() < found->words + 1) {
        return "not a command, or words are missing";
    }
    return found->action(scene, Words{words}.subspan(1));
}

}  // namespace standin::desktop
