// The six functions that the host calls. Each forwards the call and lets no exception out.
#include "platform/guarded.h"
#include "shell/entry/invoke.h"
#include "shell/entry/menu_items.h"
#include "shell/entry/startup.h"
#include "shell/host/host_functions.h"

// On Windows the module definition file names the exports.
#if defined(_WIN32)
#define PLYWELD_EXPORT
#else
#define PLYWELD_EXPORT __attribute__((visibility("default")))
#endif

using platform::Guarded;

extern "C" {

PLYWELD_EXPORT u32 FinaleExtensionVersion(u32 hostVersion) {
    return NegotiateVersion(hostVersion);
}

PLYWELD_EXPORT i16 FinaleExtensionInit(WindowHandle hostMainWindow, u32* flags) {
    return Guarded(i16{0}, [&] { return Initialize(hostMainWindow, flags); });
}

PLYWELD_EXPORT i16 FinaleExtensionEnumerate_UTF16(WindowHandle /*hostMainWindow*/, i16 item,
                                                  MenuItemDescriptor* out) {
    return Guarded(i16{0}, [&] { return DescribeMenuItem(item, out); });
}

PLYWELD_EXPORT i16 FinaleExtensionGetMenuStatus(i16 item) {
    return Guarded(i16{1}, [&] { return MenuItemStatus(item); });
}

PLYWELD_EXPORT i16 FinaleExtensionInvoke(WindowHandle owner, u16 item, const EREGION* selection,
                                         const EREGION* wholeDocument) {
    return Guarded(i16{0}, [&] { return InvokeMenuItem(owner, item, selection, wholeDocument); });
}

// Open dialogs and saved data are not touched: there is nothing to release.
PLYWELD_EXPORT void FinaleExtensionTerminate() {}

}  // extern "C"
