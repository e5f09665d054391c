#include "Class Files/foundation/FinPITrace.h"

void FinPITrace(const char* /*sourceFile*/, int /*line*/, const char* /*format*/, ...) {}
