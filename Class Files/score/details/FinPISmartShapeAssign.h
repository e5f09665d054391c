// A mark of an entry together with its smart shape: copying it copies the shape.
#pragma once

#include <optional>

#include "Class Files/score/details/FinPISmartShapeMark.h"
#include "Class Files/score/records/EnigmaRecords.h"

// A shape is copied with the entry at its start; the mark at its end is skipped and created with
// the shape. The copy ends where the shape ends, or at the entry it was copied to when both ends
// are at one entry. Copying needs the region of both entries, in which the shape has to lie.
// Commit, Create and Delete fail, and post, when the entry's document is not the current one.
class FinPISmartShapeAssign : public FinPISmartShapeMark {
public:
    explicit FinPISmartShapeAssign(const FinPIEntryPtr& entry)
        : FinPISmartShapeAssign{entry, EntryDetailTag::kSmartShapeAssign} {}

    // The mark and its shape; a mark without a shape is skipped.
    i16 Load() override;
    // Fails, and posts, if the shape is missing or its end is not at an entry.
    i16 Commit() override;
    // Deletes the shape with its start. Fails, and posts, if the shape is missing.
    i16 Delete() override;
    i16 CopyAttributes(const FinPIEntryDetail& source) override;
    i16 IsSkipped() const override;
    i16 IsApplicable(const FinPIEntryDetail& source) const override;
    i16 Save() override;
    // Creates the shape under the next free number, and the marks of both its ends. Fails, and
    // posts, when loaded already or when the shape is missing.
    i16 Create() override;

    // Whether there is a shape with both ends in the entry's region. Posts when it has none.
    i16 IsShapeInEntryRegion() const;

protected:
    FinPISmartShapeAssign(const FinPIEntryPtr& entry, u32 tag) : FinPISmartShapeMark{entry, tag} {}

private:
    class Shape final : public FinPISmartShape {
    public:
        using FinPISmartShape::FinPISmartShape;
    };

    bool EndsHere() const { return m_shape->end.entryNumber == m_entry.Number(); }
    // The stored entry at the shape's end, owning its frame; invalid when there is none.
    FinPIEntryPtr FindEndEntry() const;
    bool DeleteEndMark();
    bool CreateEndMark();

    std::optional<Shape> m_shape;
};

class FinPISmartShapeLyricAssign final : public FinPISmartShapeAssign {
public:
    explicit FinPISmartShapeLyricAssign(const FinPIEntryPtr& entry)
        : FinPISmartShapeAssign{entry, EntryDetailTag::kSmartShapeLyricAssign} {}
};
