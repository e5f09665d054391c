// Registers the plug-in's module with the platform as soon as the library is attached.
#include "platform/module.h"
#include "shell/module/ModuleState.h"

namespace {

const struct Attach {
    Attach() { platform::SetPluginModule(&g_module); }
} g_attach;

}  // namespace
