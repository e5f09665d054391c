#include "host/cli/commands/plugin.h"

#include <algorithm>
#include <utility>

#include "host/cli/io/installation.h"
#include "host/cli/io/output_file.h"
#include "host/score/application.h"

namespace standin::cli {

namespace {

std::u16string TextIn(const char16 (&field)[128]) {
    return {field, std::find(field, field + 128, u'\0')};
}

}  // namespace

Plugin::Plugin(std::unique_ptr<machine::Library> library) : m_library{std::move(library)} {}

Plugin::~Plugin() {
    if (m_started) {
        m_terminate();
    }
}

std::unique_ptr<Plugin> Plugin::Start(std::string& problem, WindowHandle mainWindow,
                                      const std::string& file) {
    auto library = machine::Library::Open(PathOf(file.empty() ? PluginFile() : file), problem);
    if (library == nullptr) {
        return nullptr;
    }
    std::unique_ptr<Plugin> plugin{new Plugin{std::move(library)}};
    problem = plugin->FindExports();
    if (problem.empty()) {
        problem = plugin->Handshake(mainWindow);
    }
    return problem.empty() ? std::move(plugin) : nullptr;
}

std::string Plugin::FindExports() {
    std::string problem;
    const auto find = [this, &problem]<typename Function>(Function*& function, const char* name) {
        function = reinterpret_cast<Function*>(m_library->FindExport(name));
        if (function == nullptr && problem.empty()) {
            problem = Say(Text::kNoExport, {name});
        }
    };
    find(m_version, "FinaleExtensionVersion");
    find(m_init, "FinaleExtensionInit");
    find(m_enumerate, "FinaleExtensionEnumerate_UTF16");
    find(m_menuStatus, "FinaleExtensionGetMenuStatus");
    find(m_invoke, "FinaleExtensionInvoke");
    find(m_terminate, "FinaleExtensionTerminate");
    return problem;
}

std::string Plugin::Handshake(WindowHandle mainWindow) {
    for (std::size_t i = 0; App().manners.shy && i < kHostCallCount; ++i) {
        const auto call = static_cast<HostCall>(i);
        if (IsDispensable(call) && !machine::HideExport(NameOf(call))) {
            return Say(Text::kHostNeeds, {NameOf(call)});
        }
    }
    if (m_version(kInterfaceVersion) != kInterfaceVersion) {
        return Say(Text::kOtherInterface, {});
    }
    u32 flags = 0;
    if (m_init(mainWindow, &flags) == 0) {
        return Say(Text::kRefusesToStart, {});
    }
    m_started = true;
    if (mainWindow == nullptr) {
        machine::RunTimers();
    }
    ListItems(mainWindow);
    return m_items.empty() || !IsEnabled(0) ? Say(Text::kNoCommandThere, {}) : std::string{};
}

void Plugin::ListItems(WindowHandle mainWindow) {
    MenuItemDescriptor item{};
    for (i16 index = 0; m_enumerate(mainWindow, index, &item) != 0; ++index) {
        m_items.push_back({TextIn(item.text), TextIn(item.description)});
        item = {};
    }
}

bool Plugin::IsEnabled(int item) const {
    return m_menuStatus(static_cast<i16>(item)) != 0;
}

void Plugin::Invoke(WindowHandle owner, int item, const EREGION* selection,
                    const EREGION& wholeDocument) const {
    m_invoke(owner, static_cast<u16>(item), selection, &wholeDocument);
}

void Plugin::RunCommand(int item, const EREGION* selection, const EREGION& wholeDocument) const {
    const machine::ShiftHeld shift;
    Invoke(nullptr, item, selection, wholeDocument);
}

}  // namespace standin::cli
