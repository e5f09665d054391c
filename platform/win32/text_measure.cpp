#include "platform/win32/text_measure.h"

#include <memory>
#include <type_traits>

namespace platform {

namespace {

struct DeleteFont {
    void operator()(HFONT font) const noexcept { DeleteObject(font); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

class WindowContext {
public:
    explicit WindowContext(HWND window) noexcept : m_window{window}, m_context{GetDC(window)} {}
    ~WindowContext() { ReleaseDC(m_window, m_context); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;

    HDC Get() const noexcept { return m_context; }

private:
    HWND m_window;
    HDC m_context;
};

int Measure(HDC context, HGDIOBJ font, std::u16string_view text) {
    const HGDIOBJ previous = SelectObject(context, font);
    SIZE size{};
    GetTextExtentPoint32W(context, reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), &size);
    SelectObject(context, previous);
    return size.cx;
}

OwnedFont CreateMessageFont(HDC context) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) != 0) {
        return OwnedFont{CreateFontIndirectW(&metrics.lfMessageFont)};
    }
    constexpr int kPoints = 8;
    constexpr int kPointsPerInch = 72;
    LOGFONTW font{};
    font.lfHeight = -MulDiv(kPoints, GetDeviceCaps(context, LOGPIXELSY), kPointsPerInch);
    font.lfWeight = FW_NORMAL;
    lstrcpynW(font.lfFaceName, L"MS Shell Dlg", LF_FACESIZE);
    return OwnedFont{CreateFontIndirectW(&font)};
}

}  // namespace

int WindowFontTextWidth(HWND window, std::u16string_view text) {
    const WindowContext context{window};
    auto* font = reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
    return Measure(context.Get(), font != nullptr ? font : GetStockObject(SYSTEM_FONT), text);
}

int MessageFontTextWidth(HWND window, std::u16string_view text) {
    const WindowContext context{window};
    const OwnedFont font = CreateMessageFont(context.Get());
    return Measure(context.Get(), font.get(), text);
}

}  // namespace platform
