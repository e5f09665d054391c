#include "Class Files/interface/DialogLayout.h"

#include <algorithm>
#include <optional>

#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "platform/resources.h"
#include "platform/window.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kOkButton = 1;
constexpr u16 kCancelButton = 2;

constexpr int kSmallestWidth = 10;

// What a control shows beside its text: a check box's box, a label's margin.
constexpr int kCheckBoxExtra = 35;
constexpr int kLabelExtra = 2;

void FitToText(WindowHandle dialog, u16 control, int extra) {
    char16 text[1024]{};
    Host::GetDlgString(dialog, control, text, static_cast<u32>(std::size(text)) - 1);
    SizeControl(dialog, control, -1, GetTextWidth(dialog, control, text) + extra);
}

}  // namespace

int GetTextWidth(WindowHandle dialog, u16 control, const char16* text) {
    return platform::TextWidth(dialog, control, text);
}

void SizeControl(WindowHandle dialog, u16 control, int height, int width) {
    std::optional<platform::Rectangle> place = platform::ControlRectangle(dialog, control);
    if (!place) {
        return;
    }
    if (height >= 0) {
        place->bottom = place->top + height;
    }
    if (width >= 0) {
        place->right = place->left + width;
    }
    platform::SetControlRectangle(dialog, control, *place);
}

void PlaceControl(WindowHandle dialog, u16 control, int top, int left, bool keepRightEdge) {
    std::optional<platform::Rectangle> place = platform::ControlRectangle(dialog, control);
    if (!place) {
        return;
    }
    if (top >= 0) {
        place->bottom = top + place->Height();
        place->top = top;
    }
    if (left >= 0) {
        const int width =
            keepRightEdge ? std::max(place->right - left, kSmallestWidth) : place->Width();
        place->left = left;
        place->right = left + width;
    }
    platform::SetControlRectangle(dialog, control, *place);
}

void ShiftControlEdges(WindowHandle dialog, u16 control, int topShift, int bottomShift) {
    std::optional<platform::Rectangle> place = platform::ControlRectangle(dialog, control);
    if (!place) {
        return;
    }
    place->top += topShift;
    place->bottom += bottomShift;
    platform::SetControlRectangle(dialog, control, *place);
}

void SetClientSize(WindowHandle window, int width, int height) {
    platform::SetClientSize(window, {width, height});
}

void ShrinkDialogHeight(WindowHandle dialog, int amount) {
    ShiftControlEdges(dialog, kCancelButton, amount, amount);
    ShiftControlEdges(dialog, kOkButton, amount, amount);
    const platform::Size client = platform::ClientSize(dialog);
    SetClientSize(dialog, client.width, client.height + amount);
}

void ShowHideControl(WindowHandle dialog, u16 control, i32 stringId, bool hide) {
    Host::ShowHideDlgItem(dialog, control, static_cast<i16>(hide ? 0 : 1));
    if (stringId >= 0) {
        char16 text[256];
        platform::LoadResourceString(static_cast<u32>(stringId), text,
                                     static_cast<u32>(std::size(text)));
        Host::SetDlgString(dialog, control, text);
    }
}

void SetControlTextUtf8(WindowHandle dialog, u16 control, const char* text) {
    const FinPIVarStringUtf16 utf16{text};
    Host::SetDlgString(dialog, control, utf16.Text());
}

void FitCheckBox(WindowHandle dialog, u16 control) {
    FitToText(dialog, control, kCheckBoxExtra);
}

void FitLabel(WindowHandle dialog, u16 control) {
    FitToText(dialog, control, kLabelExtra);
}
