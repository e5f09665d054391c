#include "host/desktop/plugin_session.h"

#include <algorithm>
#include <utility>

#include "host/score/application.h"

namespace standin::desktop {

namespace {

std::u16string TextIn(const char16 (&field)[128]) {
    return {field, std::find(field, field + 128, u'\0')};
}

}  // namespace

PluginSession::PluginSession(std::unique_ptr<cli::Library> library)
    : m_library{std::move(library)} {}

PluginSession::~PluginSession() {
    if (m_started) {
        m_terminate();
    }
}

std::unique_ptr<PluginSession> PluginSession::Start(WindowHandle mainWindow, std::string& problem) {
    auto library = cli::Library::Open(cli::ProgramFolder() / cli::kPluginFile, problem);
    if (library == nullptr) {
        return nullptr;
    }
    std::unique_ptr<PluginSession> session{new PluginSession{std::move(library)}};
    problem = session->FindExports();
    if (!problem.empty()) {
        return nullptr;
    }
    u32 flags = 0;
    session->m_version(kInterfaceVersion);
    if (session->m_init(mainWindow, &flags) == 0) {
        problem = "it refuses to start";
        return nullptr;
    }
    session->m_started = true;
    session->ListItems(mainWindow);
    return session;
}

std::string PluginSession::FindExports() {
    std::string problem;
    const auto find = [this, &problem]<typename Function>(Function*& function, const char* name) {
        function = reinterpret_cast<Function*>(m_library->FindExport(name));
        if (function == nullptr && problem.empty()) {
            problem = std::string{"it exports no "} + name;
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

void PluginSession::ListItems(WindowHandle mainWindow) {
    MenuItemDescriptor item{};
    for (i16 index = 0; m_enumerate(mainWindow, index, &item) != 0; ++index) {
        m_items.push_back({TextIn(item.text), TextIn(item.description)});
        item = {};
    }
}

bool PluginSession::IsEnabled(int item) const {
    return m_menuStatus(static_cast<i16>(item)) != 0;
}

void PluginSession::Invoke(WindowHandle owner, int item) const {
    const Document* document = App().CurrentDocument();
    const EREGION whole = document != nullptr ? document->WholeRegion() : EREGION{};
    const auto selection = document != nullptr ? document->selection : std::nullopt;
    m_invoke(owner, static_cast<u16>(item), selection ? &*selection : nullptr, &whole);
}

}  // namespace standin::desktop
