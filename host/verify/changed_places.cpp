#include "host/verify/changed_places.h"

#include <vector>

#include "host/score/records/tags.h"

namespace standin {
namespace {

// Calls visit(key, one, other) for each key whose values differ; null where there is none.
template <typename Map, typename Visit>
void ForEachDifference(const Map& some, const Map& others, Visit visit) {
    auto one = some.begin();
    auto other = others.begin();
    while (one != some.end() || other != others.end()) {
        if (other == others.end() || (one != some.end() && one->first < other->first)) {
            visit(one->first, &one->second, nullptr);
            ++one;
        } else if (one == some.end() || other->first < one->first) {
            visit(other->first, nullptr, &other->second);
            ++other;
        } else {
            if (!(one->second == other->second)) {
                visit(one->first, &one->second, &other->second);
            }
            ++one;
            ++other;
        }
    }
}

class Places {
public:
    Places(const DocumentContent& before, const DocumentContent& after) {
        FindHomes(before, m_homesBefore);
        FindHomes(after, m_homesAfter);
        ForEachDifference(
            before.frames, after.frames,
            [this](FrameKey key, const Frame*, const Frame*) { m_changed.insert(MeasureOf(key)); });
        using Table = RecordStore::Table;
        ForEachDifference(
            before.records, after.records, [this](u32 tag, const Table* was, const Table* is) {
                static const Table kNone;
                AddRecords(tag, was == nullptr ? kNone : *was, is == nullptr ? kNone : *is);
            });
    }

    StaffMeasures Take() { return std::move(m_changed); }

private:
    using Homes = std::vector<StaffMeasure>;  // by entry number

    void FindHomes(const DocumentContent& content, Homes& homes) {
        for (const auto& [key, frame] : content.frames) {
            for (const EXENTRY& entry : frame.entries) {
                if (entry.entryNumber >= homes.size()) {
                    homes.resize(entry.entryNumber + std::size_t{1});
                }
                StaffMeasure& home = homes[entry.entryNumber];
                if (home != StaffMeasure{}) {
                    m_changed.insert({home, MeasureOf(key)});
                }
                home = MeasureOf(key);
            }
        }
    }

    void AddHomesOf(u32 entry) {
        for (const Homes* homes : {&m_homesBefore, &m_homesAfter}) {
            if (entry < homes->size() && (*homes)[entry] != StaffMeasure{}) {
                m_changed.insert((*homes)[entry]);
            }
        }
    }

    void AddRecords(u32 tag, const RecordStore::Table& before, const RecordStore::Table& after) {
        ForEachDifference(before, after, [&](RecordKey key, const Bytes* was, const Bytes* is) {
            if (FamilyOf(tag) == RecordFamily::kEntryDetail) {
                AddHomesOf(key.Entry());
            }
            for (const Bytes* bytes : {was, is}) {
                if (bytes != nullptr) {
                    AddPlacesOf(tag, key, *bytes);
                }
            }
        });
    }

    void AddPlacesOf(u32 tag, RecordKey key, const Bytes& bytes) {
        if (tag == Tag::kSmartShape) {
            const auto shape = FromBytes<EDTSmartShape>(bytes);
            AddHomesOf(shape.start.entryNumber);
            AddHomesOf(shape.end.entryNumber);
        } else if (tag == Tag::kExpression) {
            const i16 staff = FromBytes<MyExpressionAssign>(bytes).staff;
            m_changed.insert({static_cast<u16>(staff), key.OtherItem()});
        }
    }

    Homes m_homesBefore;
    Homes m_homesAfter;
    StaffMeasures m_changed;
};

}  // namespace

StaffMeasures ChangedPlaces(const DocumentContent& before, const DocumentContent& after) {
    return Places{before, after}.Take();
}

}  // namespace standin
