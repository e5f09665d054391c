// The Windows interface, for files that also include the host interface: both have a record named
// WINDOWINFO, and Windows' one is not used here.
#pragma once

#define WINDOWINFO SystemWINDOWINFO
#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <objidl.h>
#include <sddl.h>
#include <shellapi.h>
#include <shlobj.h>
#undef WINDOWINFO
