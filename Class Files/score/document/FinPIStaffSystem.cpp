#include "Class Files/score/document/FinPIStaffSystem.h"

#include <algorithm>

#include "Class Files/foundation/FinPIException.h"
#include "shell/host/callbacks.h"

FinPIStaffSystem::FinPIStaffSystem(i16 measure, u16 startSystem)
    : StaffSystemRecord{FindSystemForMeasure(measure, startSystem)},
      m_partView{static_cast<u16>(Host::GetCurrentPartID())} {
    if (m_cmper1 != kNoSystem && Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>("FinPIStaffSystem::FinPIStaffSystem", m_tag);
    }
}

u16 FinPIStaffSystem::FindSystemForMeasure(i16 measure, u16 startSystem) {
    u16 system = startSystem;
    for (StaffSystemRecord record(system); record.Load() != 0; record.Reset(0)) {
        if (record.firstMeasure == 0 || record.nextSystemFirstMeasure == 0) {
            Host::UpdateLayout(std::max<i16>(record.firstMeasure, 1));
            record.Reset(0);
            if (record.Load() == 0) {
                break;
            }
        }
        if (record.firstMeasure <= measure && measure < record.nextSystemFirstMeasure) {
            break;
        }
        if (++system == kNoSystem) {
            break;  // the host may always return another one
        }
        record.SetCmpers(system);
    }
    return system;
}
