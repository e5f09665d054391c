#include "host/desktop/script/script_expectations.h"

#include <algorithm>
#include <span>

#include "host/desktop/grid/layer_strip.h"
#include "host/desktop/grid/selection_text.h"
#include "host/desktop/script/byte_pattern.h"
#include "host/desktop/script/script_screen.h"
#include "host/desktop/script/script_settings.h"
#include "host/desktop/toolkit/enumerate_windows.h"
#include "host/desktop/toolkit/wide_text.h"

namespace standin::desktop {

namespace {

using Words = std::span<const std::string>;
using Check = std::string (*)(ScriptScene& scene, Words words);

std::string Compare(const std::string& found, const std::string& expected) {
    return found == expected ? std::string{} : "found \"" + found + "\"";
}

std::string Found(bool asExpected, const char* otherwise) {
    return asExpected ? std::string{} : std::string{"it is "} + otherwise;
}

std::string Join(const std::vector<std::wstring>& items) {
    std::string text;
    for (const std::wstring& item : items) {
        if (!text.empty()) {
            text += '|';
        }
        text += Utf8(item);
    }
    return text;
}

// Calls the check with the control, when there is one.
template <typename Body>
std::string WithControl(const ScriptScene& scene, const std::string& number, Body body) {
    HWND control = scene.Control(number);
    return control == nullptr ? "there is no control " + number : body(control);
}

std::string Dialog(ScriptScene& scene, Words words) {
    const std::wstring title = WideFromUtf8(words[0]);
    if (DialogTitled(scene.window.Window(), title) != nullptr) {
        return {};
    }
    HWND front = FrontDialog(scene.window.Window());
    return front == nullptr ? "there is no dialog" : "found \"" + Utf8(TextOf(front)) + "\"";
}

std::string NoDialog(ScriptScene& scene, Words words) {
    HWND dialog = words.empty() ? FrontDialog(scene.window.Window())
                                : DialogTitled(scene.window.Window(), WideFromUtf8(words[0]));
    return dialog == nullptr ? std::string{} : "found \"" + Utf8(TextOf(dialog)) + "\"";
}

std::string Message(ScriptScene& scene, Words words) {
    std::vector<std::wstring> texts;
    ForEachInside(FrontDialog(scene.window.Window()),
                  [&texts](HWND child) { texts.push_back(TextOf(child)); });
    const bool found = std::ranges::find(texts, WideFromUtf8(words[0])) != texts.end();
    return found ? std::string{} : "found " + Join(texts);
}

std::string Text(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [&](HWND control) { return Compare(Utf8(TextOf(control)), words[1]); });
}

std::string Checked(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [](HWND control) { return Found(IsChecked(control), "not checked"); });
}

std::string Unchecked(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [](HWND control) { return Found(!IsChecked(control), "checked"); });
}

std::string Enabled(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0], [](HWND control) {
        return Found(IsWindowEnabled(control) != 0, "disabled");
    });
}

std::string Disabled(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0], [](HWND control) {
        return Found(IsWindowEnabled(control) == 0, "enabled");
    });
}

std::string Shown(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [](HWND control) { return Found(IsWindowVisible(control) != 0, "hidden"); });
}

std::string Hidden(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [](HWND control) { return Found(IsWindowVisible(control) == 0, "shown"); });
}

std::string Focused(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0], [&](HWND control) {
        HWND focus = nullptr;
        scene.window.InWindowThread([&focus] { focus = GetFocus(); });
        return focus == control ? std::string{}
                                : "the focus is on " + std::to_string(GetDlgCtrlID(focus));
    });
}

std::string Choice(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0], [&](HWND control) {
        return Compare(Utf8(ChosenItem(control).value_or(L"(none)")), words[1]);
    });
}

std::string Choices(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0],
                       [&](HWND control) { return Compare(Join(ItemsOf(control)), words[1]); });
}

std::string Count(ScriptScene& scene, Words words) {
    return WithControl(scene, words[0], [&](HWND control) {
        return Compare(std::to_string(ItemsOf(control).size()), words[1]);
    });
}

std::string Place(ScriptScene& scene, Words words) {
    RECT rect{};
    GetWindowRect(scene.Target(), &rect);
    return Compare(std::to_string(rect.left) + " " + std::to_string(rect.top),
                   words[0] + " " + words[1]);
}

std::string StateOf(const MenuPlace& place) {
    if (GetSubMenu(place.menu, place.position) != nullptr) {
        return "submenu";
    }
    const UINT state = GetMenuState(place.menu, static_cast<UINT>(place.position), MF_BYPOSITION);
    if ((state & (MF_GRAYED | MF_DISABLED)) != 0) {
        return "greyed";
    }
    return (state & MF_CHECKED) != 0 ? "checked" : "enabled";
}

std::string Menu(ScriptScene& scene, Words words) {
    std::string state = "absent";
    scene.window.InWindowThread([&] {
        SendMessageW(scene.window.Window(), WM_INITMENUPOPUP, 0, 0);
        if (const auto place = FindMenuPath(scene.window.Window(), SplitText(words[0], '>'))) {
            state = StateOf(*place);
        }
    });
    return Compare(state, words[1]);
}

std::string MenuItems(ScriptScene& scene, Words words) {
    std::vector<std::wstring> items;
    scene.window.InWindowThread([&] {
        if (const auto place = FindMenuPath(scene.window.Window(), SplitText(words[0], '>'))) {
            HMENU menu = GetSubMenu(place->menu, place->position);
            for (int i = 0; i < GetMenuItemCount(menu); ++i) {
                items.push_back(MenuItemText(menu, i));
            }
        }
    });
    return Compare(Join(items), words[1]);
}

std::string Layer(ScriptScene& scene, Words words) {
    const auto staff = ReadRange(words[0]);
    const auto measure = ReadRange(words[1]);
    const auto layer = ReadRange(words[2]);
    if (!staff || !measure || !layer) {
        return "staff, measure and layer are numbers from 1";
    }
    std::string text;
    scene.window.InWindowThread([&] {
        const Document* document = App().CurrentDocument();
        if (document == nullptr) {
            return;
        }
        const u16 number = document->StaffInSlot(static_cast<i16>(staff->first), 0);
        const Frame* frame = document->FindFrame(
            {number, static_cast<u16>(measure->first), static_cast<u16>(layer->first - 1)});
        text = frame != nullptr ? StripText(*frame) : "";
    });
    return Compare(text, words[3]);
}

std::string Undo(ScriptScene& scene, Words words) {
    std::vector<std::u16string> texts;
    scene.window.InWindowThread([&] {
        if (const Document* document = App().CurrentDocument()) {
            texts = document->UndoTexts();
        }
    });
    return Compare(texts.empty() ? "none" : Utf8(Wide(texts.back())), words[0]);
}

std::string Selection(ScriptScene& scene, Words words) {
    std::string text = "no document";
    scene.window.InWindowThread([&] {
        if (const Document* document = App().CurrentDocument()) {
            text = SelectionText(*document);
        }
    });
    return Compare(text, words[0]);
}

// One part of the status line.
std::string Status(ScriptScene& scene, Words words) {
    std::string text;
    scene.window.InWindowThread([&] { text = scene.window.StatusText(); });
    return Compare(text, words[0]);
}

// The dialog in front leaves the selected music in view.
std::string SelectionInView(ScriptScene& scene, Words) {
    RECT dialog{};
    RECT both{};
    std::optional<RECT> selection;
    GetWindowRect(scene.Target(), &dialog);
    scene.window.InWindowThread([&] { selection = scene.window.Grid().SelectionOnScreen(); });
    return Found(selection && IntersectRect(&both, &dialog, &*selection) == 0, "covered");
}

std::string Setting(ScriptScene&, Words words) {
    const auto bytes = ReadSetting(words[0], words[1]);
    const bool asExpected = bytes ? Matches(words[2], *bytes) : words[2] == "absent";
    return asExpected ? std::string{}
                      : "found " + (bytes ? DigitsOf(*bytes) : std::string{"no such value"});
}

// The document's whole content is as it was remembered.
std::string Unchanged(ScriptScene& scene, Words) {
    return Found(scene.DocumentDigest() == scene.digest, "changed");
}

// No more of the system's objects than when they were counted.
std::string Objects(ScriptScene& scene, Words) {
    return Growth(scene.objects, CountObjects(scene.window.Window()));
}

struct Expectation {
    std::string_view name;
    std::size_t words;
    Check check;
};

constexpr Expectation kExpectations[] = {
    {"dialog", 1, Dialog},
    {"no-dialog", 0, NoDialog},
    {"message", 1, Message},
    {"text", 2, Text},
    {"checked", 1, Checked},
    {"unchecked", 1, Unchecked},
    {"enabled", 1, Enabled},
    {"disabled", 1, Disabled},
    {"shown", 1, Shown},
    {"hidden", 1, Hidden},
    {"focused", 1, Focused},
    {"choice", 2, Choice},
    {"choices", 2, Choices},
    {"count", 2, Count},
    {"place", 2, Place},
    {"menu", 2, Menu},
    {"menu-items", 2, MenuItems},
    {"layer", 4, Layer},
    {"undo", 1, Undo},
    {"selection", 1, Selection},
    {"setting", 3, Setting},
    {"status", 1, Status},
    {"selection-in-view", 0, SelectionInView},
    {"objects", 0, Objects},
    {"unchanged", 0, Unchanged},
};

}  // namespace

std::string CheckExpectation(ScriptScene& scene, const std::vector<std::string>& words) {
    const auto* found = std::ranges::find_if(kExpectations, [&](const Expectation& known) {
        return !words.empty() && known.name == words[0];
    });
    if (found == std::end(kExpectations) || words.size() < found->words + 1) {
        return "not an expectation, or words are missing";
    }
    return found->check(scene, Words{words}.subspan(1));
}

}  // namespace standin::desktop
