#include "Class Files/score/document/FinPIMiscPrefs.h"

#include "shell/module/ModuleState.h"

namespace {

u32 TagOfHost() {
    return HostVersion() < kInterfaceVersion ? HostTag("O\x02OM") : HostTag("O\x03OM");
}

}  // namespace

FinPIMiscPrefs::FinPIMiscPrefs() : MiscPrefsRecord{TagOfHost(), 0, 0} {}
