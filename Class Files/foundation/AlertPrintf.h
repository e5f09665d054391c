// A formatted text in a host alert.
#pragma once

#include "shell/host/host_types.h"

// printf-style, in UTF-8. Shown with FX_AlertMessage_UTF16, whose result it gives: 0 also when
// the host lacks the call.
u16 AlertPrintf(const char* format, ...);
