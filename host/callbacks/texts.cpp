// Measure numbers as printed, and the window's state.
#include "host/callbacks/serve.h"
#include "shell/host/host_functions.h"

using namespace standin;

i16 FX_GetMeasureNumberString(i16 measure, char16* buffer, u32 units, i16 one, i16 zero,
                              u32 version) {
    return ServeDocument(
        HostCall::kGetMeasureNumberString, version, i16{0},
        [&](Application& app, Document& document) -> i16 {
            if (one != 1 || zero != 0) {
                return RefuseByRule(app, i16{0});
            }
            if (!document.HasMeasure(measure)) {
                return 0;
            }
            const std::u16string text = document.MeasureNumberText(static_cast<u16>(measure));
            return CopyText(text, buffer, units) ? i16{1} : RefuseByRule(app, i16{0});
        });
}

i16 FX_GetCurrentWindowInfo(WINDOWINFO* out, u32 version) {
    return ServeDocument(HostCall::kGetCurrentWindowInfo, version, i16{0},
                         [&](Application& app, Document& document) -> i16 {
                             if (out == nullptr) {
                                 return RefuseByRule(app, i16{0});
                             }
                             *out = WINDOWINFO{};
                             out->document = document.Number();
                             out->view = app.view;
                             WriteOn(app, out + 1);
                             return 1;
                         });
}
