#include "Class Files/score/records/FinPIPseudoPref.h"

i16 FinPIPseudoPref::Load() {
    if (m_loaded == 0 && CopyFromHost() != 0) {
        m_loaded = 1;
        SetToCurrentDocument();
    }
    return IsLoaded();
}
