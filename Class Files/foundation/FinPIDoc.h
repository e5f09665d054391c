// A host document, by number, and the document options.
#pragma once

#include "shell/host/host_types.h"

class FinPIStaff;

// Base class of everything that belongs to a document. The options read the records of the host's
// current document; if a record does not load, they post an error and return 0.
class FinPIDoc {
public:
    FinPIDoc();  // the host's current document
    explicit FinPIDoc(u16 document) noexcept : m_docID{document} {}

    u16 DocumentID() const noexcept { return m_docID; }
    void SetToCurrentDocument();

    // Nonzero: only the active layer is shown. Rest on FX_LoadEData and FX_SaveEData.
    i16 ShowActiveLayerOnlyOption() const;
    i16 SetShowActiveLayerOnlyOption(i16 on) const;  // 0 = the record was not saved

    // The size of a clef change, in percent of a clef at the beginning of a system.
    i16 ClefChangePercent() const;
    // Bit 0 of the beaming preferences' flag word.
    i16 BeamFlagOption() const;
    // 1: the staff sounds at its octave in concert pitch too.
    i16 KeepOctaveTranspositionInConcertPitchOption(const FinPIStaff& staff) const;

protected:
    u16 m_docID;  // 0 = none
};
