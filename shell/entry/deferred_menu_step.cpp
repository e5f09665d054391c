#include "shell/entry/deferred_menu_step.h"

#include "shell/module/ModuleState.h"

void DeferredMenuStep() {
    g_module.menuStepPending = 0;
}
