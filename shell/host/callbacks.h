// The host callbacks as the plug-in calls them, from host_callbacks.inc: Host::LoadTGF is
// FX_LoadTGF. Calls add the interface version word, except the record calls, which are given the
// version of their record class.
#pragma once

#include "shell/host/callback.h"
#include "shell/host/host_functions.h"

namespace Host {

#define HOST_CALLBACK(name, function, result, missing, meaning, parameters) \
    inline constinit auto name = Callback<decltype(function)>{#function, missing};
#include "shell/host/host_callbacks.inc"
#undef HOST_CALLBACK

}  // namespace Host
