// The classes of the kinds of details: each binds a host record, its tag and the flag of its
// entries. EntryDetailKinds.inc lists them.
#pragma once

#include "Class Files/score/details/FinPINoteDetail.h"
#include "Class Files/score/details/FinPINullEntryDetail.h"
#include "shell/host/detail_flags.h"
#include "shell/host/host_details.h"
#include "shell/host/host_records.h"

// secondTag: the down-stem variant's; 0 = the kind has one tag.
template <typename Record, u32 tag, u32 secondTag, u32 entryFlags>
class FinPIEntDetTemplate : public FinPIEntryDetail {
public:
    static constexpr u32 kTag = tag;
    static constexpr u32 kSecondTag = secondTag;
    static constexpr u32 kEntryFlags = entryFlags;

    explicit FinPIEntDetTemplate(const FinPIEntryPtr& entry)
        : FinPIEntryDetail{entry, tag, secondTag, entryFlags} {}

    const void* GetData() const override { return &m_record; }
    u32 GetDataSize() const override { return sizeof(m_record); }

protected:
    Record m_record{};
};

// noteFlags: only notes with this flag have such details; 0 = all can.
template <typename Record, u32 tag, u32 entryFlags, u32 noteFlags = 0>
class FinPINoteDetTemplate final : public FinPINoteDetail {
public:
    static constexpr u32 kTag = tag;
    static constexpr u32 kEntryFlags = entryFlags;
    static constexpr u32 kNoteFlags = noteFlags;

    explicit FinPINoteDetTemplate(const FinPIEntryPtr& entry)
        : FinPINoteDetail{entry, tag, entryFlags, noteFlags} {}

    const void* GetData() const override { return &m_record; }
    u32 GetDataSize() const override { return sizeof(m_record); }

private:
    Record m_record{};
};

// A record that only alters what would be drawn anyway: without a value it is not worth storing.
template <typename Record, u32 tag, u32 entryFlags>
class FinPIAlteration final : public FinPIEntDetTemplate<Record, tag, 0, entryFlags> {
public:
    using FinPIEntDetTemplate<Record, tag, 0, entryFlags>::FinPIEntDetTemplate;

    i16 IsEmpty() const override {
        for (const u8 byte : this->Identity()) {
            if (byte != 0) {
                return 0;
            }
        }
        return 1;
    }
};

// A tuplet counts the entry it starts on in its own units, so that the entry's duration goes
// with it.
class FinPITuplet final
    : public FinPIEntDetTemplate<EDTTuplet2005, HostTag("E\003TP"), 0, DetailFlag::kTuplet> {
public:
    using FinPIEntDetTemplate::FinPIEntDetTemplate;

    void OnCopied(const FinPIEntryDetail& source) override {
        m_entry->duration = source.Entry()->duration;
    }
};

// Equal syllables of the same verse are the same lyric.
template <u32 tag>
class FinPILyricAssign final
    : public FinPIEntDetTemplate<EDTLyric2011, tag, 0, DetailFlag::kLyric> {
public:
    using FinPIEntDetTemplate<EDTLyric2011, tag, 0, DetailFlag::kLyric>::FinPIEntDetTemplate;

    std::span<const u8> Identity() const override {
        return FinPIEntryDetail::Identity().first(offsetof(EDTLyric2011, opaque4));
    }
};

using FinPIVerseAssign = FinPILyricAssign<HostTag("SdvE")>;
using FinPIChorusAssign = FinPILyricAssign<HostTag("SdcH")>;
using FinPISectionAssign = FinPILyricAssign<HostTag("SdsE")>;
using FinPILyricEntryInfo =
    FinPIEntDetTemplate<EDTLyricEntryInfo, HostTag("edLE"), 0, DetailFlag::kLyric>;

using FinPIArticulation =
    FinPIEntDetTemplate<EDTArticulation25_6, HostTag("edIM"), 0, DetailFlag::kArticulation>;

using FinPIPrimaryBeamBreak = FinPINullEntryDetail<DetailFlag::kPrimaryBeamBreak>;
using FinPISecondaryBeamBreak =
    FinPIEntDetTemplate<EDTSecondaryBeamBreak, HostTag("edsB"), 0, DetailFlag::kSecondaryBeamBreak>;
template <u32 tag>
using FinPIBeamAlt = FinPIAlteration<EDTBeamAltRecord, tag, DetailFlag::kStemOrBeamMods>;
using FinPIBeamAltLow = FinPIBeamAlt<HostTag("E\002BL")>;
using FinPIBeamAltHigh = FinPIBeamAlt<HostTag("E\002BH")>;
using FinPISecondBeamAltLow = FinPIBeamAlt<HostTag("E\002bL")>;
using FinPISecondBeamAltHigh = FinPIBeamAlt<HostTag("E\002bH")>;
using FinPIBeamExtension = FinPIEntDetTemplate<EDTBeamExtension, HostTag("edUE"), HostTag("edDE"),
                                               DetailFlag::kBeamExtension>;
using FinPIBeamStubDirection =
    FinPIEntDetTemplate<BEAMSTUB, HostTag("edub"), 0, DetailFlag::kStemOrBeamMods>;

template <u32 tag>
using FinPIStemAlt = FinPIAlteration<STHG, tag, DetailFlag::kStemOrBeamMods>;
using FinPIFirstStemAlt = FinPIStemAlt<HostTag("edST")>;
using FinPISecondStemAlt = FinPIStemAlt<HostTag("edSt")>;
using FinPICustomStem = FinPIEntDetTemplate<EDTCustomStemMods, HostTag("edSU"), HostTag("edsl"),
                                            DetailFlag::kStemOrBeamMods>;
using FinPIFrozenStem = FinPINullEntryDetail<DetailFlag::kFrozenStemUp, DetailFlag::kFrozenStem>;

using FinPINoteAlts = FinPIEntDetTemplate<EDTAlter, HostTag("edAS"), 0, DetailFlag::kNoteMods>;

using FinPICrossStaff = FinPINoteDetTemplate<EDTCrossStaff, HostTag("edCD"),
                                             DetailFlag::kCrossStaff, NoteFlag::kCrossStaff>;
using FinPIAccidentalMods =
    FinPINoteDetTemplate<EDTAccidentalMods2012, HostTag("E\002Ah"), DetailFlag::kNoteMods>;
using FinPINoteheadMods =
    FinPINoteDetTemplate<EDTNoteheadMods2012, HostTag("E\002cn"), DetailFlag::kNoteMods>;
using FinPITieStartRaw = FinPINoteDetTemplate<EDTTieMods, HostTag("E\003Ts"),
                                              DetailFlag::kTieOrDotMods, NoteFlag::kTieStart>;
using FinPITieEndRaw = FinPINoteDetTemplate<EDTTieMods, HostTag("E\003Te"),
                                            DetailFlag::kTieOrDotMods, NoteFlag::kTieEnd>;
using FinPIDotAlts = FinPINoteDetTemplate<EDTDotMods, HostTag("eddo"), DetailFlag::kTieOrDotMods>;
using FinPIPercNoteCode =
    FinPINoteDetTemplate<EDTPercNoteCode, HostTag("ednC"), DetailFlag::kNoteMods>;
