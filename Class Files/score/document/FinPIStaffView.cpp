#include "Class Files/score/document/FinPIStaffView.h"

#include "shell/host/callbacks.h"

FinPIStaffView::FinPIStaffView(u16 staff) : FinPIPartView{0} {
    i32 previous = -1;  // a host may return the same part forever
    while (LoadNext() != 0 && GetCmper1() > previous && Host::InstToSlot(staff, staffList) == 0) {
        previous = GetCmper1();
    }
}
