#include "host/desktop/toolkit/window_class.h"

namespace standin::desktop {

bool RegisterWindowClass(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = name;
    return RegisterClassExW(&description) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace standin::desktop
