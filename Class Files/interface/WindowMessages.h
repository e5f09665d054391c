// The window events that dialogs answer, by the windowing system's own numbers.
#pragma once

#include "shell/host/host_types.h"

namespace WindowMessage {
inline constexpr u32 kDestroy = 2;
inline constexpr u32 kActivate = 6;
inline constexpr u32 kPaint = 15;
inline constexpr u32 kClose = 16;
inline constexpr u32 kSetCursor = 32;
inline constexpr u32 kPositionChanged = 71;
inline constexpr u32 kNotify = 78;  // the event long points to a NotificationHeader
inline constexpr u32 kCharacter = 258;
inline constexpr u32 kInitDialog = 272;
// Event word: notification code in the high word, control id in the low word.
inline constexpr u32 kCommand = 273;
inline constexpr u32 kSystemCommand = 274;
inline constexpr u32 kTimer = 275;
// Event word: device context; event long: the control's window.
inline constexpr u32 kControlColorEdit = 307;
inline constexpr u32 kControlColorButton = 309;
inline constexpr u32 kControlColorStatic = 312;
}  // namespace WindowMessage

namespace SystemCommand {
inline constexpr u64 kMinimize = 0xF020;
inline constexpr u64 kMaximize = 0xF030;
inline constexpr u64 kClose = 0xF060;
inline constexpr u64 kRestore = 0xF120;
inline constexpr u64 kMask = 0xFFF0;  // the low four bits are the system's own
}  // namespace SystemCommand

struct NotificationHeader {
    WindowHandle sender;
    u64 senderId;
    u32 code;
};

// The selection of a tab control has changed; as the sender says it, and as handlers see it.
inline constexpr u32 kTabSelectionChanged = 0xFFFFFDD9;
inline constexpr u32 kTabSelectionNotification = 0xFFFFFDD8;

// A list's selection is final.
inline constexpr u16 kSelectionEndOk = 9;
