#include "Class Files/score/details/FinPISmartShapeAssign.h"

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/details/SmartShapeEnds.h"
#include "Class Files/score/records/HostRecordCalls.h"
#include "Class Files/score/region/FinPIRegion.h"
#include "shell/host/callbacks.h"
#include "shell/host/detail_flags.h"

namespace {

constexpr char kCommit[] = "FinPISmartShapeAssign::Commit";

FinPIAppError NoEndEntry() {
    return {"FinPISmartShapeAssign::Create", "Can't get end entry."};
}

u16 NextShapeNumber() {
    FinPISmartShape last{0};
    return last.LoadLast() != 0 ? static_cast<u16>(last.GetCmper1() + 1) : u16{1};
}

bool IsInRegion(const EDTSmartShapeEnd& end, const FinPIRegion& region) {
    return region.ContainsStaff(end.staff) &&
           region.ContainsTime(static_cast<i16>(end.measure), end.position);
}

}  // namespace

i16 FinPISmartShapeAssign::Load() {
    if (m_loaded == 0 && FinPISmartShapeMark::Load() != 0) {
        const DocumentScope scope{m_entry.Document()};
        m_shape.emplace(m_mark.shapeNumber);
        if (!scope || m_shape->Load() == 0) {
            m_shape.reset();
        }
    }
    return m_loaded;
}

i16 FinPISmartShapeAssign::IsSkipped() const {
    return !m_shape || m_shape->start.entryNumber != m_entry.Number();
}

i16 FinPISmartShapeAssign::IsShapeInEntryRegion() const {
    const FinPIRegion* const region = m_entry.Region();
    if (region == nullptr) {
        PostError(
            FinPIAppError{"FinPISmartShapeAssign::IsShapeInEntryRegion", "Entry has no region."});
        return 0;
    }
    return m_shape && IsInRegion(m_shape->start, *region) && IsInRegion(m_shape->end, *region);
}

i16 FinPISmartShapeAssign::IsApplicable(const FinPIEntryDetail& source) const {
    return static_cast<const FinPISmartShapeAssign&>(source).IsShapeInEntryRegion();
}

i16 FinPISmartShapeAssign::CopyAttributes(const FinPIEntryDetail& source) {
    if (m_entry.Region() == nullptr) {
        PostError(
            FinPIAppError{"FinPISmartShapeAssign::CopyAttributes", "Entry has no region pointer."});
        return 0;
    }
    if (FinPISmartShapeMark::CopyAttributes(source) == 0) {
        return 0;
    }
    m_shape = static_cast<const FinPISmartShapeAssign&>(source).m_shape;
    if (!m_shape) {
        return 0;
    }
    MoveSmartShapeEnds(*m_shape, source.Entry(), m_entry);
    return 1;
}

FinPIEntryPtr FinPISmartShapeAssign::FindEndEntry() const {
    const EDTSmartShapeEnd& end = m_shape->end;
    const i16 layers = Host::GetMaxLayers();
    for (i16 layer = 0; layer < layers; ++layer) {
        FinPITGFPtr frame{end.staff, end.measure, static_cast<u16>(layer), m_entry.Document()};
        const i16 index = frame.FindEntryByNumber(end.entryNumber);
        if (index >= 0) {
            return {std::move(frame), index};
        }
    }
    return {};
}

i16 FinPISmartShapeAssign::Commit() {
    if (!m_entry.CheckDocumentIsCurrent(kCommit)) {
        return 0;
    }
    if (!m_shape || (!EndsHere() && !FindEndEntry())) {
        PostError(FinPIAppError{kCommit, !m_shape || m_shape->end.entryNumber == 0
                                             ? "End entry for shape does not exist"
                                             : "Can't find entnum in this TGF"});
        return 0;
    }
    if (m_loaded == 0) {
        return Create();
    }
    EnigmaKey key{};
    m_shape->GetKey(key);
    if (SaveHostRecord(m_shape->Tag(), key.data(), m_shape->GetData(), m_shape->GetDataSize(),
                       m_shape->Version()) == 0) {
        PostRecordError<FinPISaveEDataFailed>(kCommit, m_shape->Tag());
        return 0;
    }
    return Save();
}

i16 FinPISmartShapeAssign::Save() {
    if (m_shape && m_shape->GetCmper1() != m_mark.shapeNumber) {
        PostError(
            FinPIAppError{"FinPISmartShapeAssign::Save", "Attempted to Save with wrong Shape ID."});
        return 0;
    }
    return FinPISmartShapeMark::Save();
}

i16 FinPISmartShapeAssign::Create() {
    if (m_loaded != 0) {
        return FinPISmartShapeMark::Create();  // refuses
    }
    if (!m_shape) {
        PostError(NoEndEntry());
        return 0;
    }
    if (!m_entry.CheckDocumentIsCurrent("FinPISmartShapeAssign::Create")) {
        return 0;
    }
    Shape created{NextShapeNumber()};
    created.SetData(m_shape->GetData(), m_shape->GetDataSize());
    if (created.Create() == 0) {
        return 0;
    }
    m_shape = created;
    m_mark.shapeNumber = created.GetCmper1();
    return FinPISmartShapeMark::Create() != 0 && (EndsHere() || CreateEndMark());
}

bool FinPISmartShapeAssign::CreateEndMark() {
    const FinPIEntryPtr end = FindEndEntry();
    if (!end) {
        PostError(NoEndEntry());
        return false;
    }
    if (end.CreateEntryDetail(Tag(), GetData(), GetDataSize(), kNewRecord, m_version) == 0) {
        PostRecordError<FinPICreateEDataFailed>("FinPISmartShapeAssign::Create (endpoint)", Tag());
        return false;
    }
    if (const FinPIEntryPtr held = m_entry.EntryAt(m_entry.FindEntryByNumber(end.Number()))) {
        held->flags |= DetailFlag::kSmartShape;
    }
    return true;
}

bool FinPISmartShapeAssign::DeleteEndMark() {
    const FinPIEntryPtr end = FindEndEntry();
    FinPISmartShapeMark mark{end, Tag()};
    Walk marks{mark};
    while (marks.Next()) {
        if (mark.ShapeNumber() == ShapeNumber()) {
            return mark.Delete() != 0;
        }
    }
    return !marks.HasFailed();
}

i16 FinPISmartShapeAssign::Delete() {
    if (!m_entry.CheckDocumentIsCurrent("FinPISmartShapeAssign::Delete")) {
        return 0;
    }
    if (m_shape && !EndsHere() && !DeleteEndMark()) {
        return 0;
    }
    FinPISmartShape shape{ShapeNumber()};
    if (!m_shape || shape.Delete() == 0) {
        PostRecordError<FinPIDeleteEDataFailed>("FinPISmartShapeAssign::Delete", shape.Tag());
        return 0;
    }
    return FinPISmartShapeMark::Delete();
}
