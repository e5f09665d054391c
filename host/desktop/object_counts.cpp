#include "host/desktop/object_counts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace standin::desktop {

namespace {

BOOL CALLBACK CountWindow(HWND /*window*/, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWithControls(HWND window, LPARAM count) {
    EnumChildWindows(window, CountWindow, count);
    return CountWindow(window, count);
}

int WindowCount(HWND mainWindow) {
    int count = 0;
    EnumThreadWindows(GetWindowThreadProcessId(mainWindow, nullptr), CountWithControls,
                      reinterpret_cast<LPARAM>(&count));
    return count;
}

// Menus cannot be listed; a handle's lower half alone is taken for the handle.
int MenuCount() {
    constexpr std::uintptr_t kFirstHandle = 0x20;
    constexpr std::uintptr_t kEnd = 0x10000;
    int count = 0;
    for (std::uintptr_t handle = kFirstHandle; handle < kEnd; handle += 2) {
        count += IsMenu(reinterpret_cast<HMENU>(handle)) != 0 ? 1 : 0;
    }
    return count;
}

// A place in the table of drawing objects. Wine keeps one for each process.
struct DrawingObject {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(DrawingObject) == 24);

// Device contexts, bitmaps and regions come and go with what is painted when; fonts do not.
int FontCount() {
    constexpr std::size_t kTableOffset = 0xF8;  // in the process's environment block, 64 bits
    constexpr std::size_t kTableLength = 0x10000;
    constexpr std::uint8_t kFont = 10;
    using EnvironmentBlock = const std::byte*();
    auto* currentBlock = reinterpret_cast<EnvironmentBlock*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    const DrawingObject* table = nullptr;
    if (currentBlock != nullptr) {
        table = *reinterpret_cast<const DrawingObject* const*>(currentBlock() + kTableOffset);
    }
    const std::span objects{table, table != nullptr ? kTableLength : 0};
    return static_cast<int>(
        std::count_if(objects.begin(), objects.end(),
                      [](const DrawingObject& place) { return place.type == kFont; }));
}

}  // namespace

std::string ObjectCounts(HWND mainWindow) {
    return std::to_string(WindowCount(mainWindow)) + " windows, " + std::to_string(MenuCount()) +
           " menus, " + std::to_string(FontCount()) + " fonts";
}

}  // namespace standin::desktop
