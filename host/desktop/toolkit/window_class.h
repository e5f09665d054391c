// The common part of the program's own window classes: an object for each window.
#pragma once

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

// Registers a class once. False: the system refused it.
bool RegisterWindowClass(const wchar_t* name, WNDPROC procedure);

// The object that was given to CreateWindowEx, for a window procedure. Null before creation.
template <typename Object>
Object* ObjectOf(HWND window, UINT message, LPARAM data) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(data);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    return reinterpret_cast<Object*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

}  // namespace standin::desktop
