// Which key and time signatures a measure shows in a staff.
#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/document/FinPIMeas.h"
#include "shell/host/callbacks.h"

namespace {

constexpr char kVisibleTimeSig[] =
    "void __cdecl FinPIMeas::VisibleTimeSig(const short,class FinPITimeSig &) const";
constexpr char kVisibleKeySig[] =
    "short __cdecl FinPIMeas::InstHasVisibleKeySig(const short) const";
constexpr char kKeylessAttributes[] = "FinPIMeas::GetKeylessAttributes";

constexpr u16 kFirstMeasure = 1;

// A record that does not load is posted, and counts as all zero.
template <typename Record>
Record LoadOrPost(Record record, const char* operation) {
    if (record.Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>(operation, record.Tag());
    }
    return record;
}

u16 FlagsOfStaff(u16 staff, const char* operation) {
    return LoadOrPost(StaffRecord{staff}, operation).flags;
}

bool HidesSignatures(u16 measure, const char* operation) {
    return measure == kFirstMeasure &&
           LoadOrPost(BarlinePrefsRecord{}, operation).hidesFirstSignatures != 0;
}

// In the staff's own time where it has one. 0 beats = no such measure.
FinPITimeSig TimeSigInStaff(u16 measure, u16 staff, bool isOfStaff) {
    FinPIMeas record(measure);
    if (record.IsLoaded() == 0) {
        return {};
    }
    if (isOfStaff) {
        const FinPIMeasFloat own = LoadOrPost(FinPIMeasFloat{staff, measure}, kVisibleTimeSig);
        if (own.IsLoaded() != 0) {
            record.beats = own.beats;
            record.beatDuration = own.beatDuration;
            record.flags = own.flags;
        }
    }
    return record.GetTimeSig();
}

i16 KeyInStaff(u16 measure, u16 staff) {
    return Host::GetKeySig(static_cast<i16>(measure), staff, i16{0}, i16{0});
}

}  // namespace

void FinPIMeas::VisibleTimeSig(i16 staff, FinPITimeSig& signature) const {
    signature = {};
    const DocumentScope document(m_docID);
    if (!document) {
        return;
    }
    const auto number = static_cast<u16>(staff);
    const u16 staffFlags = FlagsOfStaff(number, kVisibleTimeSig);
    if ((staffFlags & StaffFlag::kNoTimeSig) != 0 || HidesSignatures(m_cmper1, kVisibleTimeSig)) {
        return;
    }
    const bool isOfStaff = (staffFlags & StaffFlag::kOwnTimeSig) != 0;
    const FinPITimeSig here = TimeSigInStaff(m_cmper1, number, isOfStaff);
    if (m_cmper1 == kFirstMeasure ||
        !(here == TimeSigInStaff(static_cast<u16>(m_cmper1 - 1), number, isOfStaff))) {
        signature = here;
    }
}

i16 FinPIMeas::InstHasVisibleKeySig(i16 staff) const {
    const DocumentScope document(m_docID);
    const auto number = static_cast<u16>(staff);
    if (!document || (FlagsOfStaff(number, kVisibleKeySig) & StaffFlag::kNoKeySig) != 0 ||
        HidesSignatures(m_cmper1, kVisibleKeySig)) {
        return 0;
    }
    const i16 before =
        m_cmper1 == kFirstMeasure ? i16{0} : KeyInStaff(static_cast<u16>(m_cmper1 - 1), number);
    return KeyInStaff(m_cmper1, number) != before;
}

i16 FinPIMeas::GetKeylessAttributes(i16 staff, FinPIKeyAttributes& attributes) const {
    const DocumentScope document(m_docID);
    const auto number = static_cast<u16>(staff);
    if (!document || (FlagsOfStaff(number, kKeylessAttributes) & StaffFlag::kNoKeySig) == 0) {
        return 0;
    }
    attributes.SetCmpers(static_cast<u16>(KeyInStaff(m_cmper1, number)));
    attributes.Reset(0);
    attributes.Load();
    return 1;
}
