// Smart shapes: lines between two entries, such as slurs and wedges.
#pragma once

#include "host/score/document.h"
#include "host/score/records/tags.h"

namespace standin {

// Creates the shape under the next free number, with the entry numbers, staves and measures of its
// ends, and marks both end entries, once when they are the same. Returns its number; 0 when no
// number is left, or an entry has no room for one more mark. A shape keeps its record when an end's
// entry is deleted: that end then refers to no stored entry, and the shape is not drawn.
u16 AddSmartShape(Document& document, EDTSmartShape shape, u32 markTag = Tag::kShapeOnEntry);

}  // namespace standin
