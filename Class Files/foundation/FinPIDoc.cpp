#include "Class Files/foundation/FinPIDoc.h"

#include "Class Files/foundation/DocumentScope.h"

FinPIDoc::FinPIDoc() : m_docID{CurrentDocument()} {}

void FinPIDoc::SetToCurrentDocument() {
    m_docID = CurrentDocument();
}
