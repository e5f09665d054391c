#include "Class Files/score/FinPIStaffView.h"

#include "shell/host/callbacks.h"

FinPIStaffView::FinPIStaffView(u16 staff) : FinPIPartView{0} {
    while (LoadNext() != 0 && Host::InstToSlot(staff, staffList) == 0) {
    }
}
