#include "Class Files/foundation/FinPIDoc.h"

#include "shell/host/callbacks.h"

FinPIDoc::FinPIDoc() : m_docID{Host::GetCurrentEnigmaDocument()} {}

void FinPIDoc::SetToCurrentDocument() {
    m_docID = Host::GetCurrentEnigmaDocument();
}
