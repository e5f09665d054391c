// A measure, by its number from 1.
#pragma once

#include "Class Files/score/document/FinPITimeSig.h"
#include "Class Files/score/records/EnigmaRecords.h"

class FinPIMeas final : public MeasureRecord {
public:
    // Loads the record of a number below 0xFFFF; posts the failure.
    explicit FinPIMeas(u16 measure);

    // Loads the abbreviation preferences and, of a composite signature, its group lists, from
    // the measure's document; what does not load counts as 0.
    FinPITimeSig GetTimeSig() const;

    // What this measure shows in a staff. They use FX_GetKeySig and the records of the staff, of
    // the staff in the measure, and of the barline preferences. A record that does not load is
    // posted and counts as all zero. None if the document cannot be made current. The time
    // signature, of 0 beats when it shows none, as after a measure with the same.
    void VisibleTimeSig(i16 staff, FinPITimeSig& signature) const;
    // Whether it shows a key signature: one that differs from the previous measure's, or from no
    // accidentals.
    i16 InstHasVisibleKeySig(i16 staff) const;
    // 1: the staff is written without key signatures; attributes are then those of the key that
    // holds there, if it has any.
    i16 GetKeylessAttributes(i16 staff, FinPIKeyAttributes& attributes) const;

    // FX_GetMeasureDuration in the record's document: duration units in the time of the staff;
    // staff 0: the measure's own. 0 = no such measure.
    static i32 MeasureDuration(const FinPIDoc& record, u16 staff, i16 measure);

    // The number as the document shows it (FX_GetMeasureNumberString), or "#" and the number
    // when the host gives none. size in units, at least 1; cut to it and terminated.
    static void MeasureNumberString(i16 measure, char16* buffer, u32 size);
};
