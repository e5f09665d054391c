// The tags of the records that this host itself reads or writes.
#pragma once

#include "shell/host/entry_detail_tags.h"

namespace standin {

namespace Tag {
inline constexpr u32 kMeasure = HostTag("SOMS");
inline constexpr u32 kStaff = HostTag("SOIS");
inline constexpr u32 kStaffAt = HostTag("SOSC");
inline constexpr u32 kStaffInMeasure = HostTag("SDFL");
inline constexpr u32 kStaffSystem = HostTag("SOSS");
inline constexpr u32 kPage = HostTag("SOPS");
inline constexpr u32 kPartDefinition = HostTag("otpD");
inline constexpr u32 kMiscPrefs = HostTag("O\x03OM");
inline constexpr u32 kMiscPrefsBefore27 = HostTag("O\x02OM");
inline constexpr u32 kLayerPrefs = HostTag("pfLA");
inline constexpr u32 kExpression = HostTag("SODY");
inline constexpr u32 kTextExpression = HostTag("SODT");
inline constexpr u32 kSmartShape = HostTag("O\x08Sx");
inline constexpr u32 kShapeOnEntry = EntryDetailTag::kSmartShapeAssign;
inline constexpr u32 kShapeOnLyric = EntryDetailTag::kSmartShapeLyricAssign;
inline constexpr u32 kTuplet = EntryDetailTag::kTuplet;
}  // namespace Tag

}  // namespace standin
