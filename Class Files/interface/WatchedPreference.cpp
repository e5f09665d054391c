#include "Class Files/interface/WatchedPreference.h"

#include "Class Files/score/records/EnigmaRecords.h"

u16 WatchedPreference() {
    FinPIGeneralPrefs preferences;
    return preferences.Load() != 0 ? preferences.watchedByDialogs : u16{0};
}
