#include "platform/window.h"

#include <map>

#include "platform/headless/state.h"
#include "platform/headless/window_model.h"

namespace platform {

std::optional<Rectangle> WindowRectangle(Window window) {
    return window == nullptr ? std::nullopt : std::optional{window->rectangle};
}

void MoveWindowTo(Window window, int left, int top) {
    Rectangle& rectangle = window->rectangle;
    rectangle = {left, top, left + rectangle.Width(), top + rectangle.Height()};
}

Rectangle DesktopRectangle() {
    return headless::CurrentState().desktop;
}

std::u16string WindowCaption(Window window) {
    return window->caption.substr(0, 1023);
}

void SetWindowCaption(Window window, const std::u16string& caption) {
    window->caption = caption;
}

Size ClientSize(Window window) {
    return window->client;
}

void SetClientSize(Window window, Size size) {
    window->rectangle.right += size.width - window->client.width;
    window->rectangle.bottom += size.height - window->client.height;
    window->client = size;
}

std::optional<Rectangle> ControlRectangle(Window dialog, std::uint16_t control) {
    const auto found = dialog->controls.find(control);
    return found == dialog->controls.end() ? std::nullopt : std::optional{found->second.rectangle};
}

void SetControlRectangle(Window dialog, std::uint16_t control, const Rectangle& rectangle) {
    const auto found = dialog->controls.find(control);
    if (found != dialog->controls.end()) {
        found->second.rectangle = rectangle;
    }
}

std::uint16_t ControlId(Window controlWindow) {
    return controlWindow == nullptr ? std::uint16_t{0} : controlWindow->controlId;
}

int TextWidth(Window /*dialog*/, std::uint16_t /*control*/, std::u16string_view text) {
    return static_cast<int>(text.size()) * headless::kCharacterWidth;
}

bool FocusWindow(Window window) {
    headless::CurrentState().focus = window;
    return window != nullptr;
}

std::uint32_t RegisterMessage(const char* name) {
    // As on Windows, registered messages are numbered from 0xC000, and last.
    static std::map<std::string, std::uint32_t> messages;
    const auto next = static_cast<std::uint32_t>(0xC000 + messages.size());
    return messages.emplace(name, next).first->second;
}

namespace headless {

void SetDesktop(const Rectangle& desktop) {
    CurrentState().desktop = desktop;
}

Window FocusedWindow() {
    return CurrentState().focus;
}

}  // namespace headless

}  // namespace platform
