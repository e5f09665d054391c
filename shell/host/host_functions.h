// Every function that passes between the host and the plug-in, as prototypes: the callbacks
// the host exports, from host_callbacks.inc, and the six functions the plug-in exports. A host
// defines the callbacks; the plug-in takes only their types from here and looks each up by name
// at run time. All calls use the platform's C calling convention.
#pragma once

#include "shell/host/host_frames.h"
#include "shell/host/host_types.h"

#if defined(PLYWELD_HOST)
#if defined(_WIN32)
#define PLYWELD_HOST_FUNCTION __declspec(dllexport)
#else
#define PLYWELD_HOST_FUNCTION __attribute__((visibility("default")))
#endif
#else
#define PLYWELD_HOST_FUNCTION
#endif

extern "C" {

// Called for every event of a dialog's window; the result goes back as the window
// procedure's result, sign-extended. dialogObject is what FX_Dialog was given.
typedef i16 (*DialogEventCallback)(WindowHandle window, u32 message, u64 eventWord, i64 eventLong,
                                   void* dialogObject);

#define HOST_CALLBACK(name, function, result, missing, meaning, parameters) \
    PLYWELD_HOST_FUNCTION result function parameters;
#include "shell/host/host_callbacks.inc"
#undef HOST_CALLBACK

}  // extern "C"

// The types of the plug-in's exports, for whoever looks them up.
using FinaleExtensionVersionFunction = u32(u32 hostVersion);
using FinaleExtensionInitFunction = i16(WindowHandle hostMainWindow, u32* flags);
using FinaleExtensionEnumerateFunction = i16(WindowHandle hostMainWindow, i16 item,
                                             MenuItemDescriptor* out);
using FinaleExtensionGetMenuStatusFunction = i16(i16 item);
using FinaleExtensionInvokeFunction = i16(WindowHandle owner, u16 item, const EREGION* selection,
                                          const EREGION* wholeDocument);
using FinaleExtensionTerminateFunction = void();
