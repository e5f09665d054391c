// Documents, parts, selection, layers and staves.
#include "host/callbacks/serve.h"
#include "shell/host/host_functions.h"

using namespace standin;

namespace {

constexpr u32 kStaffNameUnits = 511;

i16 GoToPart(HostCall call, i16 part, u32 version, i16 Document::*which) {
    return ServeDocument(call, version, i16{0}, [&](Application&, Document& document) -> i16 {
        if (part != 0 && document.FindPart(part) == nullptr) {
            return 0;
        }
        document.*which = part;
        return 1;
    });
}

}  // namespace

u16 FX_GetCurrentEnigmaDocument(u32 version) {
    return Serve(HostCall::kGetCurrentEnigmaDocument, version, u16{0},
                 [](Application& app) { return app.CurrentNumber(); });
}

i16 FX_SetCurrentEnigmaDocument(u16 document, u32 version) {
    return Serve(HostCall::kSetCurrentEnigmaDocument, version, i16{0},
                 [&](Application& app) -> i16 {
                     return app.SetCurrentDocument(document) ? i16{1} : RefuseByRule(app, i16{0});
                 });
}

u16 FX_GetNextEnigmaDocument(u16 document, u32 version) {
    return Serve(HostCall::kGetNextEnigmaDocument, version, u16{0},
                 [&](Application& app) { return app.NextDocument(document); });
}

i16 FX_GetDocumentPath(u16 document, char16* buffer, u32 units, u32 version) {
    return Serve(HostCall::kGetDocumentPath, version, i16{0}, [&](Application& app) -> i16 {
        const Document* found = app.FindDocument(document);
        const bool copied = found != nullptr && CopyText(found->Path(), buffer, units);
        if (!copied) {
            return RefuseByRule(app, i16{0});
        }
        WriteOn(app, buffer + units);
        return 1;
    });
}

i16 FX_GetCurrentPartID(u32 version) {
    return ServeDocument(HostCall::kGetCurrentPartID, version, i16{-1},
                         [](Application&, Document& document) { return document.currentPart; });
}

i16 FX_GetNextPartID(i16 part, u32 version) {
    return ServeDocument(HostCall::kGetNextPartID, version, i16{-1},
                         [&](Application&, Document& document) -> i16 {
                             for (const Part& candidate : document.Parts()) {
                                 if (candidate.id > part) {
                                     return candidate.id;
                                 }
                             }
                             return -1;
                         });
}

i16 FX_SetCurrentPartID(i16 part, u32 version) {
    return GoToPart(HostCall::kSetCurrentPartID, part, version, &Document::currentPart);
}

i16 FX_SetCurrentPartInView(i16 part, u32 version) {
    return GoToPart(HostCall::kSetCurrentPartInView, part, version, &Document::partInView);
}

i16 FX_GetPartName_UTF16(i16 part, char16* buffer, u32 units, u32 version) {
    return ServeDocument(HostCall::kGetPartName, version, i16{0},
                         [&](Application& app, Document& document) -> i16 {
                             const Part* found = document.FindPart(part);
                             if (found == nullptr) {
                                 return 0;
                             }
                             if (!CopyText(found->name, buffer, units)) {
                                 return RefuseByRule(app, i16{0});
                             }
                             WriteOn(app, buffer + units);
                             return 1;
                         });
}

i16 FX_AutoNumberedName_UTF16(u16 staff, i16 measure, i32 position, char16* buffer, u32 version) {
    return ServeDocument(HostCall::kAutoNumberedName, version, i16{0},
                         [&](Application& app, Document& document) -> i16 {
                             if (!document.HasStaff(staff) || measure < 0 || position < 0) {
                                 return 0;
                             }
                             return CopyText(document.AutoNumberedName(staff), buffer,
                                             kStaffNameUnits)
                                        ? i16{1}
                                        : RefuseByRule(app, i16{0});
                         });
}

i16 FX_GetCurERegions(u64* result, EREGION* selection, EREGION* wholeDocument, u32 version) {
    return ServeDocument(
        HostCall::kGetCurERegions, version, i16{0},
        [&](Application& app, Document& document) -> i16 {
            if (result == nullptr || selection == nullptr || wholeDocument == nullptr) {
                return RefuseByRule(app, i16{0});
            }
            *selection = document.selection.value_or(EREGION{});
            *wholeDocument = document.WholeRegion();
            *result = document.selection ? 1 : 0;
            return document.selection ? i16{1} : i16{0};
        });
}

i16 FX_GetMaxLayers(u32 version) {
    return Serve(HostCall::kGetMaxLayers, version, i16{0},
                 [](Application& app) { return app.maxLayers; });
}

i16 FX_GetShowLayer(i16 layer, u32 version) {
    return Serve(HostCall::kGetShowLayer, version, i16{0},
                 [&](Application& app) -> i16 { return app.ShowsLayer(layer) ? i16{1} : i16{0}; });
}

u16 FX_SlotToInst(i16 slot, u16 staffList, u32 version) {
    return ServeDocument(
        HostCall::kSlotToInst, version, u16{0},
        [&](Application&, Document& document) { return document.StaffInSlot(slot, staffList); });
}

i16 FX_InstToSlot(u16 staff, u16 staffList, u32 version) {
    return ServeDocument(
        HostCall::kInstToSlot, version, i16{0},
        [&](Application&, Document& document) { return document.SlotOfStaff(staff, staffList); });
}
