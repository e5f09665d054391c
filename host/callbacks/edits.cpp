// Undoable edits, the progress display, beaming, layout and menu commands.
#include "host/callbacks/serve.h"
#include "shell/host/host_functions.h"

using namespace standin;

namespace {

i16 ServeEdit(HostCall call, u32 version, bool (Document::*finish)()) {
    return ServeDocument(call, version, i16{0}, [&](Application& app, Document& document) -> i16 {
        const std::size_t steps = document.UndoTexts().size();
        if (!(document.*finish)()) {
            return RefuseByRule(app, i16{0});
        }
        if (app.editListener) {
            app.editListener(document.UndoTexts().size() > steps);
        }
        return 1;
    });
}

bool UserGoesOn(Application& app, const ProgressReport& report) {
    ++app.calls.progressReports;
    if (app.calls.progressReports == app.faults.stopAtProgress) {
        return false;
    }
    return !app.progressListener || app.progressListener(report);
}

}  // namespace

i16 FX_StartFinaleEdit_UTF16(const char16* undoText, u32 version) {
    return ServeDocument(HostCall::kStartFinaleEdit, version, i16{0},
                         [&](Application& app, Document& document) -> i16 {
                             const bool started =
                                 undoText != nullptr && document.BeginEdit(undoText);
                             return started ? i16{1} : RefuseByRule(app, i16{0});
                         });
}

i16 FX_EndFinaleEdit(u32 version) {
    return ServeEdit(HostCall::kEndFinaleEdit, version, &Document::EndEdit);
}

i16 FX_CancelFinaleEdit(u32 version) {
    return ServeEdit(HostCall::kCancelFinaleEdit, version, &Document::CancelEdit);
}

u64 FX_StartMassEdit(const EREGION* region, i16 zero, u32 version) {
    return ServeDocument(HostCall::kStartMassEdit, version, u64{0},
                         [&](Application& app, Document&) -> u64 {
                             if (region == nullptr || zero != 0) {
                                 return RefuseByRule(app, u64{0});
                             }
                             const u64 handle = ++app.progressDisplaysOpened;
                             app.progressDisplays.insert(handle);
                             return handle;
                         });
}

i16 FX_MassEditProgress(u64 handle, i16 steps, u16 staff, i16 measure, i16 layer, u32 version) {
    return Serve(HostCall::kMassEditProgress, version, i16{0}, [&](Application& app) -> i16 {
        if (!app.progressDisplays.contains(handle)) {
            return RefuseByRule(app, i16{0});
        }
        app.progress.push_back({handle, steps, staff, measure, layer});
        return UserGoesOn(app, app.progress.back()) ? i16{1} : i16{0};
    });
}

i16 FX_EndMassEdit(u64 handle, i16 stopped, u32 version) {
    return Serve(HostCall::kEndMassEdit, version, i16{0}, [&](Application& app) -> i16 {
        if (app.progressDisplays.erase(handle) == 0) {
            return RefuseByRule(app, i16{0});
        }
        app.lastProgressStopped = stopped;
        return 1;
    });
}

i16 FX_RebeamRegion(const EREGION* region, i16 zero, u32 version) {
    return ServeDocument(HostCall::kRebeamRegion, version, i16{0},
                         [&](Application& app, Document& document) -> i16 {
                             if (region == nullptr || zero != 0) {
                                 return RefuseByRule(app, i16{0});
                             }
                             app.lastRebeamed = *region;
                             app.calls.framesBeamed += static_cast<u64>(document.Rebeam(*region));
                             return 1;
                         });
}

i16 FX_UpdateLayout(i16 page, u32 version) {
    return ServeDocument(HostCall::kUpdateLayout, version, i16{0},
                         [page](Application& app, Document& document) -> i16 {
                             app.lastLayoutPage = page;
                             document.UpdateLayout();
                             return 1;
                         });
}

i16 FX_RedrawMusic(const EREGION* region, u32 version) {
    return ServeDocument(HostCall::kRedrawMusic, version, i16{0},
                         [&](Application& app, Document&) -> i16 {
                             if (region == nullptr) {
                                 return RefuseByRule(app, i16{0});
                             }
                             app.redrawn.push_back(*region);
                             return 1;
                         });
}

i16 FX_ExecuteMenuItem(u16 command, u32 version) {
    return ServeDocument(HostCall::kExecuteMenuItem, version, i16{0},
                         [&](Application& app, Document&) -> i16 {
                             app.menuCommands.push_back(command);
                             return RunMenuCommand(command) ? i16{1} : i16{0};
                         });
}
