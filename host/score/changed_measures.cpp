// Which measures of a document differ from the import.
#include <algorithm>
#include <set>
#include <utility>

#include "host/score/document.h"
#include "host/score/records/tags.h"
#include "host/score/smart_shape.h"

namespace standin {
namespace {

using Place = std::pair<u16, u16>;  // staff and measure

// Collects the places where changed records are visible.
class ChangedPlaces {
public:
    explicit ChangedPlaces(const Document& document)
        : m_document{document},
          m_before{document, ShapeMarks::State::kImported},
          m_now{document, ShapeMarks::State::kNow} {}

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
                AddChangedEnds(FromBytes<EDTSmartShapeEntMark>(bytes).shapeNumber);
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
    ShapeMarks m_before;
    ShapeMarks m_now;
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
