// The Windows interface, for files that also know the host interface: both have a record
// named WINDOWINFO, and Windows' one serves nothing here.
#pragma once

#define WINDOWINFO SystemWINDOWINFO
#include <windows.h>
#undef WINDOWINFO
