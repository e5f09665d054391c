// The place of a dialog's window when it closed, kept in the settings store.
#include <optional>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/FinPIDialog.h"
#include "platform/text.h"
#include "platform/window.h"

namespace {

constexpr char kSettingName[] = "WPOS";

// As stored.
struct WindowPositionRecord {
    i16 left;  // screen pixels, as top
    i16 top;
    u8 reserved[24];
};
static_assert(sizeof(WindowPositionRecord) == 28);

bool IsOnDesktop(i16 left, i16 top) {
    const platform::Rectangle desktop = platform::DesktopRectangle();
    return left >= static_cast<i16>(desktop.left) && left <= static_cast<i16>(desktop.right - 1) &&
           top >= static_cast<i16>(desktop.top) && top <= static_cast<i16>(desktop.bottom - 1);
}

}  // namespace

i16 FinPIDialog::PositionNumber(u16 keyOffset) const noexcept {
    // The numbers of a dialog's offsets never equal the numbers of dialogs.
    const int number = keyOffset == 0 ? m_dialogNumber : m_dialogNumber + keyOffset - 10000;
    return static_cast<i16>(number);
}

std::string FinPIDialog::PositionOwner() const {
    return platform::Utf8Of(m_positionKey);
}

i16 FinPIDialog::LoadWindowPosition(u16 keyOffset) {
    WindowPositionRecord record{};
    if (ZKFX_GetSettings(kSettingName, PositionNumber(keyOffset), &record, sizeof(record),
                         PositionOwner().c_str()) == 0) {
        return 0;
    }
    SetPlace(record.left, record.top);
    return 1;
}

void FinPIDialog::SetPlace(i16 left, i16 top) noexcept {
    m_left = left;
    m_top = top;
}

void FinPIDialog::PlaceWindow(WindowHandle window, u64 eventWord, i64 eventLong) {
    LoadWindowPosition(GetPositionKeyOffset(window, eventWord, eventLong));
    const bool known = m_left != kUnknownPlace || m_top != kUnknownPlace;
    if (known && IsOnDesktop(m_left, m_top)) {
        platform::MoveWindowTo(window, m_left, m_top);
    }
}

bool FinPIDialog::RememberWindowPlace(WindowHandle window) {
    const std::optional<platform::Rectangle> rectangle = platform::WindowRectangle(window);
    if (rectangle) {
        SetPlace(static_cast<i16>(rectangle->left), static_cast<i16>(rectangle->top));
    }
    return rectangle.has_value();
}

void FinPIDialog::SaveWindowPosition(WindowHandle window, u64 eventWord, i64 eventLong) {
    if (!RememberWindowPlace(window)) {
        return;
    }
    const WindowPositionRecord record{m_left, m_top, {}};
    const u16 keyOffset = GetPositionKeyOffset(window, eventWord, eventLong);
    ZKFX_PutSettings(kSettingName, PositionNumber(keyOffset), &record, sizeof(record),
                     PositionOwner().c_str());
}

void FinPIDialog::ForgetStoredPosition(u16 keyOffset) const {
    const i16 number = PositionNumber(keyOffset);
    if (number >= 0) {  // a negative one means every number
        ZKFX_DeleteSettings(kSettingName, number, PositionOwner().c_str());
    }
}
