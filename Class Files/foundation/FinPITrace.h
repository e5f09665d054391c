// The library's trace hook.
#pragma once

// Called at fixed points of the library with a printf format; traces nothing.
void FinPITrace(const char* sourceFile, int line, const char* format, ...);
