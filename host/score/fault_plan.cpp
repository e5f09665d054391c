#include "host/score/fault_plan.h"

namespace standin {

bool Refuses(const FaultPlan& plan, const CallCounts& counts, HostCall call) noexcept {
    if (!HasResult(call)) {
        return false;
    }
    const u64 number = counts.Total();
    if (number == plan.refuseCall || (plan.refuseFrom != 0 && number >= plan.refuseFrom)) {
        return true;
    }
    if (!plan.refuseKind || plan.refuseKind->call != call) {
        return false;
    }
    const u64 ofKind = counts.Of(call);
    return ofKind >= plan.refuseKind->first && ofKind <= plan.refuseKind->last;
}

}  // namespace standin
