#include "Class Files/foundation/AlertPrintf.h"

#include <cstdarg>

#include "Class Files/foundation/FinPIVarString.h"
#include "Class Files/foundation/FinPIVarStringUtf16.h"
#include "shell/host/callbacks.h"

u16 AlertPrintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FinPIVarString text;
    text.SetFormatted(format, arguments);
    va_end(arguments);
    const FinPIVarStringUtf16 alert(text.Text());
    return static_cast<u16>(Host::AlertMessage(nullptr, i16{0}, u16{0}, alert.Text()));
}
