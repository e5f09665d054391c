#include "host/desktop/grid/score_shape.h"

namespace standin::desktop {

ScoreShape ShapeOf(const Document& document) {
    ScoreShape shape;
    shape.staves = static_cast<int>(document.StaffList(0).size());
    for (u16 measure = 1; measure <= document.MeasureCount(); ++measure) {
        MeasureShape next;
        if (const i32 duration = document.MeasureDuration(0, measure); duration > 0) {
            next.duration = duration;
        }
        if (const i32 beat = document.Measure(measure).beatDuration; beat > 0) {
            next.beat = beat;
        }
        shape.measures.push_back(next);
    }
    return shape;
}

}  // namespace standin::desktop
