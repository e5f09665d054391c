// The plug-in, loaded from beside the program and driven through its six exports.
#pragma once

#include <memory>
#include <string>

#include "host/cli/desktop.h"
#include "shell/host/host_functions.h"

namespace standin::cli {

class Plugin {
public:
    // Loads and initialises it. Null when it is not there, lacks an export, speaks another
    // version of the interface or refuses to start; problem then says which.
    static std::unique_ptr<Plugin> Start(std::string& problem);
    // Terminates and unloads it.
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    // Chooses the command's menu item, with Shift held, so that no dialog comes up. The
    // selection may be null.
    void RunCommand(const EREGION* selection, const EREGION& wholeDocument);

private:
    explicit Plugin(std::unique_ptr<Library> library);
    std::string Handshake();  // empty when all went well, else what is wrong

    std::unique_ptr<Library> m_library;
    FinaleExtensionInvokeFunction* m_invoke = nullptr;
    FinaleExtensionTerminateFunction* m_terminate = nullptr;  // set once it was initialised
};

}  // namespace standin::cli
