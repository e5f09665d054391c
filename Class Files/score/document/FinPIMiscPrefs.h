// The document's miscellaneous preferences, the same record for all of them.
#pragma once

#include "Class Files/score/records/EnigmaRecords.h"

class FinPIMiscPrefs final : public MiscPrefsRecord {
public:
    // The tag follows the host's version.
    FinPIMiscPrefs();
};
