// Registers the plug-in's module with the platform as soon as the library is attached.
#include <windows.h>

#include "platform/module.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        platform::SetPluginModule(module);
    }
    return TRUE;
}
