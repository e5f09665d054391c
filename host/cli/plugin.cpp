#include "host/cli/plugin.h"

#include <utility>

#include "platform/text.h"

namespace standin::cli {

namespace {

template <typename Function>
Function* Export(const Library& library, const char* name, std::string& problem) {
    void* address = library.FindExport(name);
    if (address == nullptr && problem.empty()) {
        problem = std::string{"it exports no "} + name;
    }
    return reinterpret_cast<Function*>(address);
}

}  // namespace

Plugin::Plugin(std::unique_ptr<Library> library) : m_library{std::move(library)} {}

std::unique_ptr<Plugin> Plugin::Start(std::string& problem) {
    auto library = Library::Open(ProgramFolder() / kPluginFile, problem);
    if (library == nullptr) {
        return nullptr;
    }
    std::unique_ptr<Plugin> plugin{new Plugin{std::move(library)}};
    problem = plugin->Handshake();
    return problem.empty() ? std::move(plugin) : nullptr;
}

std::string Plugin::Handshake() {
    std::string problem;
    auto* version =
        Export<FinaleExtensionVersionFunction>(*m_library, "FinaleExtensionVersion", problem);
    auto* init = Export<FinaleExtensionInitFunction>(*m_library, "FinaleExtensionInit", problem);
    auto* enumerate = Export<FinaleExtensionEnumerateFunction>(
        *m_library, "FinaleExtensionEnumerate_UTF16", problem);
    auto* status = Export<FinaleExtensionGetMenuStatusFunction>(
        *m_library, "FinaleExtensionGetMenuStatus", problem);
    m_invoke = Export<FinaleExtensionInvokeFunction>(*m_library, "FinaleExtensionInvoke", problem);
    auto* terminate =
        Export<FinaleExtensionTerminateFunction>(*m_library, "FinaleExtensionTerminate", problem);
    if (!problem.empty()) {
        return problem;
    }
    if (version(kInterfaceVersion) != kInterfaceVersion) {
        return "it speaks another version of the interface";
    }
    u32 flags = 0;
    if (init(nullptr, &flags) == 0) {
        return "it refuses to start";
    }
    m_terminate = terminate;
    RunTimers();
    MenuItemDescriptor item{};
    if (enumerate(nullptr, 0, &item) == 0 || status(0) == 0) {
        return "its command is not available";
    }
    return {};
}

Plugin::~Plugin() {
    if (m_terminate != nullptr) {
        m_terminate();
    }
}

void Plugin::RunCommand(const EREGION* selection, const EREGION& wholeDocument) {
    const ShiftHeld shift;
    m_invoke(nullptr, 0, selection, &wholeDocument);
}

}  // namespace standin::cli
