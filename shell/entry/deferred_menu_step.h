// The reshaping of the host's plug-in menu, once the host has listed every plug-in.
#pragma once

// Runs once, from a timer of the user-interface thread.
void DeferredMenuStep();
