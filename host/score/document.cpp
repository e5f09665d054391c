#include "host/score/document.h"

#include <algorithm>

#include "host/score/records/tags.h"

namespace standin {
namespace {

constexpr u16 kLayersWithPreferences = 16;

constexpr u32 DurationKey(u16 staff, u16 measure) noexcept {
    return (u32{staff} << 16U) | measure;
}

std::u16string Decimal(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

template <typename Map, typename Key>
const typename Map::mapped_type& FindOr(const Map& map, const Key& key,
                                        const typename Map::mapped_type& otherwise) {
    const auto found = map.find(key);
    return found == map.end() ? otherwise : found->second;
}

}  // namespace

Document::Document(u16 number, std::u16string path)
    : m_number{number}, m_path{std::move(path)}, m_homes(1) {
    m_staffLists[0] = {};
    m_records.Create(Tag::kMiscPrefs, RecordKey::Other(0), BytesOf(CurrEDTMiscPrefs{}));
    m_records.Create(Tag::kPage, RecordKey::Other(1), BytesOf(EDTPageSpec{}));
    for (u16 layer = 0; layer < kLayersWithPreferences; ++layer) {
        m_records.Save(Tag::kLayerPrefs, RecordKey::Preference(layer), BytesOf(EDTLayerPrefs{}));
    }
    m_records.SetListener(this);
}

Document::~Document() = default;

bool Document::AddStaff(u16 staff, std::u16string name) {
    if (staff == 0 || HasStaff(staff)) {
        return false;
    }
    m_staffNames[staff] = std::move(name);
    m_staffLists[0].push_back(staff);
    m_records.Create(Tag::kStaff, RecordKey::Other(staff), BytesOf(EDTStaffSpec2014{}));
    return true;
}

const std::u16string& Document::StaffName(u16 staff) const {
    static const std::u16string kNone;
    return FindOr(m_staffNames, staff, kNone);
}

std::u16string Document::AutoNumberedName(u16 staff) const {
    const std::u16string& name = StaffName(staff);
    int position = 0;
    int sharing = 0;
    for (const u16 other : StaffList(0)) {
        if (StaffName(other) == name) {
            ++sharing;
            position = other == staff ? sharing : position;
        }
    }
    return sharing > 1 && !name.empty() ? name + u' ' + Decimal(position) : name;
}

const std::vector<u16>& Document::StaffList(u16 list) const {
    static const std::vector<u16> kNone;
    return FindOr(m_staffLists, list, kNone);
}

void Document::SetStaffList(u16 list, std::vector<u16> staves) {
    m_staffLists[list] = std::move(staves);
}

u16 Document::StaffInSlot(i16 slot, u16 list) const {
    const std::vector<u16>& staves = StaffList(list);
    const bool isSlot = slot >= 1 && static_cast<std::size_t>(slot) <= staves.size();
    return isSlot ? staves[static_cast<std::size_t>(slot - 1)] : u16{0};
}

i16 Document::SlotOfStaff(u16 staff, u16 list) const {
    const std::vector<u16>& staves = StaffList(list);
    const auto found = std::ranges::find(staves, staff);
    return found == staves.end() ? i16{0} : static_cast<i16>(found - staves.begin() + 1);
}

u16 Document::AddMeasure(i16 beats, i16 beatDuration, u16 key) {
    EDTMeasureSpec2014 measure{};
    measure.beats = beats;
    measure.beatDuration = beatDuration;
    measure.key = key;
    ++m_measureCount;
    m_records.Create(Tag::kMeasure, RecordKey::Other(m_measureCount), BytesOf(measure));
    return m_measureCount;
}

EDTMeasureSpec2014 Document::Measure(u16 measure) const {
    const Bytes* bytes = m_records.Find(Tag::kMeasure, RecordKey::Other(measure));
    return bytes == nullptr ? EDTMeasureSpec2014{} : FromBytes<EDTMeasureSpec2014>(*bytes);
}

i32 Document::MeasureDuration(u16 staff, i32 measure) const {
    if (!HasMeasure(measure) || (staff != 0 && !HasStaff(staff))) {
        return 0;
    }
    const u16 number = static_cast<u16>(measure);
    for (const u16 owner : {staff, u16{0}}) {
        const auto found = m_durations.find(DurationKey(owner, number));
        if (found != m_durations.end()) {
            return found->second;
        }
    }
    const EDTMeasureSpec2014 record = Measure(number);
    return i32{record.beats} * record.beatDuration;
}

void Document::SetMeasureDuration(u16 staff, u16 measure, i32 duration) {
    m_durations[DurationKey(staff, measure)] = duration;
}

std::u16string Document::MeasureNumberText(u16 measure) const {
    return FindOr(m_measureNumbers, measure, Decimal(measure));
}

void Document::SetMeasureNumberText(u16 measure, std::u16string text) {
    m_measureNumbers[measure] = std::move(text);
}

u16 Document::PageOfMeasure(u16 measure) const {
    return FindOr(m_pages, measure, u16{1});
}

void Document::SetPageOfMeasure(u16 measure, u16 page) {
    m_pages[measure] = page;
}

void Document::AddPart(i16 id, std::u16string name) {
    m_parts.push_back({id, std::move(name)});
    m_records.Create(Tag::kPartDefinition, RecordKey::Other(static_cast<u16>(id)), Bytes(12, '\0'));
}

const Part* Document::FindPart(i16 id) const {
    const auto found = std::ranges::find(m_parts, id, &Part::id);
    return found == m_parts.end() ? nullptr : &*found;
}

EREGION Document::WholeRegion() const {
    EREGION region{};
    region.startSlot = 1;
    region.startMeasure = 1;
    region.endSlot = static_cast<i16>(StaffList(0).size());
    region.endMeasure = static_cast<i16>(m_measureCount);
    region.endPosition = kEndOfMeasure;
    return region;
}

}  // namespace standin
