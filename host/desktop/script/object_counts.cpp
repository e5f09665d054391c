#include "host/desktop/script/object_counts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <psapi.h>
#include <span>

#include "host/desktop/script/script_settings.h"
#include "host/desktop/toolkit/enumerate_windows.h"

namespace standin::desktop {

namespace {

int WindowCount(HWND mainWindow) {
    int count = 0;
    ForEachWindowOf(GetWindowThreadProcessId(mainWindow, nullptr), [&count](HWND window) {
        ++count;
        ForEachInside(window, [&count](HWND /*control*/) { ++count; });
    });
    return count;
}

// Menus cannot be listed, but a handle's lower half works as the handle.
int MenuCount() {
    constexpr std::uintptr_t kFirstHandle = 0x20;
    constexpr std::uintptr_t kEnd = 0x10000;
    int count = 0;
    for (std::uintptr_t handle = kFirstHandle; handle < kEnd; handle += 2) {
        count += IsMenu(reinterpret_cast<HMENU>(handle)) != 0 ? 1 : 0;
    }
    return count;
}

// An entry in the table of drawing objects. Wine has one table per process.
struct DrawingObject {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(DrawingObject) == 24);

std::span<const DrawingObject> DrawingObjects() {
    constexpr std::size_t kTableOffset = 0xF8;  // in the process's environment block, 64 bits
    constexpr std::size_t kTableLength = 0x10000;
    using EnvironmentBlock = const std::byte*();
    auto* currentBlock = reinterpret_cast<EnvironmentBlock*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    const DrawingObject* table = nullptr;
    if (currentBlock != nullptr) {
        table = *reinterpret_cast<const DrawingObject* const*>(currentBlock() + kTableOffset);
    }
    return {table, table != nullptr ? kTableLength : 0};
}

// Handles cannot be listed, and Wine does not count them.
int HandleCount() {
    constexpr std::uintptr_t kEnd = 0x8000;
    int count = 0;
    for (std::uintptr_t handle = 4; handle < kEnd; handle += 4) {
        DWORD flags = 0;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != 0 ? 1 : 0;
    }
    return count;
}

std::size_t OwnMemory() {
    constexpr std::size_t kKibibyte = 1024;
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage / kKibibyte;
}

template <typename Number>
std::string MoreThan(Number before, Number now, Number slack, const char* what) {
    return now <= before + slack
               ? std::string{}
               : std::to_string(before) + " -> " + std::to_string(now) + " " + what + " ";
}

}  // namespace

ObjectCounts CountObjects(HWND mainWindow) {
    constexpr std::uint8_t kFont = 10;
    ObjectCounts counts;
    counts.windows = WindowCount(mainWindow);
    counts.menus = MenuCount();
    for (const DrawingObject& place : DrawingObjects()) {
        counts.fonts += place.type == kFont ? 1 : 0;
        counts.drawings += place.type != 0 ? 1 : 0;
    }
    counts.handles = HandleCount();
    counts.memory = OwnMemory();
    counts.registry = StoredBytes();
    return counts;
}

std::string Growth(const ObjectCounts& before, const ObjectCounts& now) {
    constexpr int kPaintedAtOnce = 100;
    constexpr int kThreadsWork = 20;
    constexpr std::size_t kKept = 2048;
    return MoreThan(before.windows, now.windows, 0, "windows") +
           MoreThan(before.menus, now.menus, 0, "menus") +
           MoreThan(before.fonts, now.fonts, 0, "fonts") +
           MoreThan(before.drawings, now.drawings, kPaintedAtOnce, "drawing objects") +
           MoreThan(before.handles, now.handles, kThreadsWork, "handles") +
           MoreThan(before.memory, now.memory, kKept, "KiB") +
           MoreThan<std::size_t>(before.registry, now.registry, 0, "bytes stored");
}

}  // namespace standin::desktop
