// Which measures of a document differ from the import.
#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {
namespace {

using Place = std::pair<u16, u16>;  // staff and measure
using Shapes = std::set<u16>;       // by number

u16 ShapeOf(const Bytes& mark) {
    return FromBytes<EDTSmartShapeEntMark>(mark).shapeNumber;
}

// The shapes that mark an entry.
Shapes MarksNow(const Document& document, u32 entry) {
    Shapes shapes;
    const RecordStore::Table& marks = document.Records().OfTag(Tag::kShapeOnEntry);
    for (auto at = marks.lower_bound(RecordKey::OfEntry(entry));
         at != marks.end() && at->first.Entry() == entry; ++at) {
        shapes.insert(ShapeOf(at->second));
    }
    return shapes;
}

// Those that marked it in the import.
Shapes ImportedMarks(const Document& document, u32 entry) {
    Shapes shapes;
    for (u16 inci = 0;; ++inci) {
        const Bytes* mark =
            document.ImportedRecord(Tag::kShapeOnEntry, RecordKey::OfEntry(entry, inci));
        if (mark == nullptr) {
            return shapes;
        }
        shapes.insert(ShapeOf(*mark));
    }
}

// Reads the marks of each entry once.
class Marks {
public:
    using Read = Shapes (*)(const Document&, u32 entry);
    Marks(const Document& document, Read read) : m_document{document}, m_read{read} {}

    bool AreAtBothEnds(const EDTSmartShape& shape, u16 number) {
        return Has(shape.start.entryNumber, number) && Has(shape.end.entryNumber, number);
    }

private:
    bool Has(u32 entry, u16 shape) {
        const auto [marks, isNew] = m_marks.try_emplace(entry);
        if (isNew) {
            marks->second = m_read(m_document, entry);
        }
        return marks->second.contains(shape);
    }

    const Document& m_document;
    Read m_read;
    std::unordered_map<u32, Shapes> m_marks;
};

// Collects the places where changed records are visible.
class ChangedPlaces {
public:
    explicit ChangedPlaces(const Document& document)
        : m_document{document}, m_before{document, ImportedMarks}, m_now{document, MarksNow} {}

    // Nothing for records without a particular place.
    void AddRecord(u32 tag, RecordKey key, const Bytes& bytes) {
        if (tag == Tag::kExpression) {
            const i16 staff = FromBytes<MyExpressionAssign>(bytes).staff;
            places.emplace(static_cast<u16>(std::max<i16>(staff, 0)), key.OtherItem());
        } else if (tag == Tag::kSmartShape) {
            AddChangedEnds(key.OtherItem());
        } else if (FamilyOf(tag) == RecordFamily::kEntryDetail) {
            const FrameKey home = m_document.HomeOf(key.Entry());
            if (home.staff != 0) {  // a deleted entry has changed its frame
                places.emplace(home.staff, home.measure);
            }
            if (tag == Tag::kShapeOnEntry) {
                AddChangedEnds(ShapeOf(bytes));
            }
        }
    }

    std::set<Place> places;

private:
    // The ends that moved; both if the line appeared or disappeared, because a line without one of
    // its marks is not drawn.
    void AddChangedEnds(u16 number) {
        const RecordKey key = RecordKey::Other(number);
        const Bytes* before = m_document.ImportedRecord(Tag::kSmartShape, key);
        const Bytes* now = m_document.Records().Find(Tag::kSmartShape, key);
        const auto was = before == nullptr ? EDTSmartShape{} : FromBytes<EDTSmartShape>(*before);
        const auto is = now == nullptr ? EDTSmartShape{} : FromBytes<EDTSmartShape>(*now);
        const bool wasDrawn = m_before.AreAtBothEnds(was, number);
        const bool isDrawn = m_now.AreAtBothEnds(is, number);
        for (const auto end : {&EDTSmartShape::start, &EDTSmartShape::end}) {
            if (wasDrawn != isDrawn || BytesOf(was.*end) != BytesOf(is.*end)) {
                AddEnd(was.*end);
                AddEnd(is.*end);
            }
        }
    }

    void AddEnd(const EDTSmartShapeEnd& end) {
        if (end.staff != 0) {
            places.emplace(u16{end.staff}, u16{end.measure});
        }
    }

    const Document& m_document;
    Marks m_before;
    Marks m_now;
};

}  // namespace

std::set<std::pair<u16, u16>> Document::ChangedMeasures() const {
    if (!m_baseline) {
        return {};
    }
    ChangedPlaces changed{*this};
    for (const auto& [key, before] : m_baseline->Frames()) {
        const Frame* now = FindFrame(key);
        if (now == nullptr ? !before.entries.empty() : !(*now == before)) {
            changed.places.emplace(key.staff, key.measure);
        }
    }
    for (const auto& [name, before] : m_baseline->Records()) {
        const auto& [tag, key] = name;
        const Bytes* now = m_records.Find(tag, key);
        if (now == nullptr ? !before : before && *now == *before) {
            continue;
        }
        if (before) {
            changed.AddRecord(tag, key, *before);
        }
        if (now != nullptr) {
            changed.AddRecord(tag, key, *now);
        }
    }
    return std::move(changed.places);
}

}  // namespace standin
