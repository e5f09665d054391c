#include "host/score/application.h"

#include <algorithm>

#include "host/score/records/tags.h"

namespace standin {

Document& Application::OpenDocument(std::u16string path) {
    m_documents.push_back(std::make_unique<Document>(++m_lastNumber, std::move(path)));
    if (m_current == 0) {
        m_current = m_lastNumber;
    }
    return *m_documents.back();
}

bool Application::CloseDocument(u16 number) {
    const auto found = std::ranges::find_if(
        m_documents, [number](const auto& document) { return document->Number() == number; });
    if (found == m_documents.end()) {
        return false;
    }
    m_documents.erase(found);
    if (m_current == number) {
        m_current = m_documents.empty() ? u16{0} : m_documents.front()->Number();
    }
    return true;
}

Document* Application::FindDocument(u16 number) const {
    const auto found = std::ranges::find_if(
        m_documents, [number](const auto& document) { return document->Number() == number; });
    return found == m_documents.end() ? nullptr : found->get();
}

bool Application::SetCurrentDocument(u16 number) {
    if (FindDocument(number) == nullptr) {
        return false;
    }
    m_current = number;
    return true;
}

u16 Application::NextDocument(u16 number) const {
    const auto found = std::ranges::find_if(
        m_documents, [number](const auto& document) { return document->Number() > number; });
    return found == m_documents.end() ? u16{0} : (*found)->Number();
}

bool Application::ShowsActiveLayerOnly() const {
    const Document* document = CurrentDocument();
    const Bytes* prefs = document == nullptr
                             ? nullptr
                             : document->Records().Find(Tag::kMiscPrefs, RecordKey::Other(0));
    return prefs != nullptr && FromBytes<CurrEDTMiscPrefs>(*prefs).showActiveLayerOnly != 0;
}

bool Application::ShowsLayer(i16 layer) const {
    return layer >= 0 && layer < maxLayers && (layer == activeLayer || !ShowsActiveLayerOnly());
}

EntryMemory& Application::EntryMemoryForFrames() const {
    return faults.guardFrames ? GuardedEntryMemory() : HeapEntryMemory();
}

void Application::ResetCounts() {
    calls = {};
    faults = {};
    alerts.clear();
    progress.clear();
    redrawn.clear();
    menuCommands.clear();
}

void Application::Reset() {
    const Manners kept = manners;
    *this = Application{};
    manners = kept;
}

Application& App() {
    static Application application;
    return application;
}

}  // namespace standin
