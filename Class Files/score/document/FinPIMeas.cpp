#include "Class Files/score/document/FinPIMeas.h"

#include <algorithm>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/foundation/FinPIUniStringUtil.h"
#include "Class Files/foundation/FinPIVarString.h"
#include "shell/host/callbacks.h"

namespace {

constexpr u16 kNoMeasure = 0xFFFF;
constexpr u32 kNumerators = HostTag("otTU");
constexpr u32 kDenominators = HostTag("otTL");

// The values of a composite list, over as many records as it takes, up to the first 0.
std::vector<i16> LoadGroups(u32 tag, u16 item) {
    std::vector<i16> values;
    for (u16 inci = 0; inci != kNoInci; ++inci) {
        CompositeTimeSigRecord record(tag, item, inci);
        if (record.Load() == 0) {
            break;
        }
        const auto* const end = std::ranges::find(record.groups, 0);
        values.insert(values.end(), std::cbegin(record.groups), end);
        if (end != std::end(record.groups)) {
            break;
        }
    }
    return values;
}

// Numerators and denominators go in pairs; the shorter list keeps its last value.
std::vector<i32> GroupDurations(const FinPITimeSig& signature) {
    std::vector<i16> beats{signature.beats};
    std::vector<i16> durations{signature.beatDuration};
    if ((signature.displayFlags & FinPITimeSig::kComposite) != 0) {
        beats = LoadGroups(kNumerators, static_cast<u16>(signature.beats));
    }
    if ((signature.displayFlags & FinPITimeSig::kCompositeDenominator) != 0) {
        durations = LoadGroups(kDenominators, static_cast<u16>(signature.beatDuration));
    }
    std::vector<i32> groups;
    if (!beats.empty() && !durations.empty()) {
        for (std::size_t i = 0; i < std::max(beats.size(), durations.size()); ++i) {
            groups.push_back(i32{beats[std::min(i, beats.size() - 1)]} *
                             durations[std::min(i, durations.size() - 1)]);
        }
    }
    return groups;
}

bool IsAbbreviated(i16 beats, i16 beatDuration) {
    const bool isCommonTime = beats == 4 && beatDuration == kQuarterNote;
    const bool isCutTime = beats == 2 && beatDuration == 2 * kQuarterNote;
    if (!isCommonTime && !isCutTime) {
        return false;
    }
    FinPIMiscDocPrefs prefs;
    prefs.Load();
    return (isCommonTime ? prefs.commonTime : prefs.cutTime) != 0;
}

}  // namespace

FinPIMeas::FinPIMeas(u16 measure) : MeasureRecord{measure} {
    if (measure < kNoMeasure && Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>("FinPIMeas::FinPIMeas", m_tag);
    }
}

FinPITimeSig FinPIMeas::GetTimeSig() const {
    constexpr u16 kComposite =
        MeasureFlag::kCompositeNumerator | MeasureFlag::kCompositeDenominator;
    static_assert(FinPITimeSig::kComposite == MeasureFlag::kCompositeNumerator);
    static_assert(FinPITimeSig::kCompositeDenominator == MeasureFlag::kCompositeDenominator);

    FinPITimeSig signature{beats, beatDuration, static_cast<u16>(flags & kComposite), {}};
    const DocumentScope document(m_docID);
    if (!document) {
        return signature;
    }
    if (signature.displayFlags != 0) {
        signature.groupDurations = GroupDurations(signature);
    } else if (IsAbbreviated(beats, beatDuration)) {
        signature.displayFlags |= FinPITimeSig::kAbbreviated;
    }
    return signature;
}

i32 FinPIMeas::MeasureDuration(const FinPIDoc& record, u16 staff, i16 measure) {
    const DocumentScope document(record.DocumentID());
    return document ? ::MeasureDuration(staff, measure) : 0;
}

void FinPIMeas::MeasureNumberString(i16 measure, char16* buffer, u32 size) {
    buffer[0] = u'\0';
    if (Host::GetMeasureNumberString(measure, buffer, size, i16{1}, i16{0}) == 0) {
        const FinPIVarString number("#%d", int{measure});
        FinPIUniStringUtil::UniChar_strncpyUtf8(buffer, number.Text(), size);
    }
    buffer[size - 1] = u'\0';  // whatever the host wrote
}
