// How the grid is drawn: a strip for each layer, a block for each entry.
#include <algorithm>
#include <array>
#include <string>

#include "host/desktop/grid/grid_window.h"
#include "host/desktop/grid/layer_strip.h"
#include "host/desktop/toolkit/gdi_handles.h"
#include "host/desktop/toolkit/wide_text.h"
#include "host/score/application.h"

namespace standin::desktop {

namespace {

constexpr std::array<COLORREF, GridLayout::kLayers> kLayerColors = {
    RGB(40, 40, 48), RGB(196, 40, 40), RGB(28, 128, 52), RGB(36, 72, 200)};
constexpr COLORREF kHiddenColor = RGB(176, 176, 176);
constexpr COLORREF kNotShownColor = RGB(214, 214, 214);
constexpr COLORREF kLineColor = RGB(170, 170, 180);
constexpr COLORREF kHeadColor = RGB(240, 240, 244);
constexpr COLORREF kSelectionColor = RGB(40, 120, 220);
constexpr BYTE kSelectionStrength = 56;

void Outline(HDC context, const RECT& rect, COLORREF color) {
    const Brush brush{CreateSolidBrush(color)};
    FrameRect(context, &rect, brush.get());
}

void Fill(HDC context, const RECT& rect, COLORREF color) {
    const Brush brush{CreateSolidBrush(color)};
    FillRect(context, &rect, brush.get());
}

void Write(HDC context, RECT rect, const std::wstring& text, UINT format) {
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &rect,
              format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void DrawBlock(HDC context, const RECT& block, const StripItem& item, COLORREF color) {
    if (item.kind == StripKind::kRest) {
        Outline(context, block, color);
        return;
    }
    if (item.kind == StripKind::kHidden) {
        Outline(context, block, kHiddenColor);
        return;
    }
    Fill(context, block, color);
    if (item.notes > 1 && block.right - block.left >= 8) {
        SetTextColor(context, RGB(255, 255, 255));
        Write(context, block, std::to_wstring(item.notes), DT_CENTER);
    }
}

}  // namespace

RECT GridWindow::OnScreen(const PixelRect& rect) const {
    return {rect.left - m_scrollX, rect.top - m_scrollY, rect.right - m_scrollX,
            rect.bottom - m_scrollY};
}

void GridWindow::Paint() {
    PAINTSTRUCT paint;
    HDC screen = BeginPaint(m_window, &paint);
    RECT client;
    GetClientRect(m_window, &client);
    {
        const MemoryContext memory{CreateCompatibleDC(screen)};
        const Bitmap bitmap{CreateCompatibleBitmap(screen, client.right, client.bottom)};
        const Selected chosen{memory.get(), bitmap.get()};
        const Selected font{memory.get(), GetStockObject(DEFAULT_GUI_FONT)};
        SetBkMode(memory.get(), TRANSPARENT);
        PaintContent(memory.get(), client);
        BitBlt(screen, 0, 0, client.right, client.bottom, memory.get(), 0, 0, SRCCOPY);
    }
    EndPaint(m_window, &paint);
}

void GridWindow::PaintContent(HDC context, const RECT& area) {
    const Document* document = App().CurrentDocument();
    Fill(context, area, document == nullptr ? GetSysColor(COLOR_APPWORKSPACE) : RGB(255, 255, 255));
    if (document == nullptr) {
        return;
    }
    const int staves = static_cast<int>(document->StaffList(0).size());
    const int measures = document->MeasureCount();
    for (int slot = 1; slot <= staves; ++slot) {
        for (int measure = 1; measure <= measures; ++measure) {
            const RECT cell = OnScreen(m_layout.Cell(slot, measure));
            RECT visible;
            if (IntersectRect(&visible, &cell, &area) != 0) {
                PaintCell(context, slot, measure);
            }
        }
    }
    PaintSelection(context);
    PaintNames(context, area);
}

void GridWindow::PaintCell(HDC context, int slot, int measure) {
    RECT cell = OnScreen(m_layout.Cell(slot, measure));
    ++cell.right;
    ++cell.bottom;
    Outline(context, cell, kLineColor);
    for (i16 layer = 0; layer < GridLayout::kLayers; ++layer) {
        PaintStrip(context, slot, measure, layer);
    }
}

void GridWindow::PaintStrip(HDC context, int slot, int measure, i16 layer) {
    const Document& document = *App().CurrentDocument();
    const u16 staff = document.StaffInSlot(static_cast<i16>(slot), 0);
    const auto* frame =
        document.FindFrame({staff, static_cast<u16>(measure), static_cast<u16>(layer)});
    if (frame == nullptr) {
        return;
    }
    const RECT strip = OnScreen(m_layout.LayerStrip(slot, measure, layer));
    const double width = strip.right - strip.left - 4;
    const COLORREF color =
        App().ShowsLayer(layer) ? kLayerColors[static_cast<std::size_t>(layer)] : kNotShownColor;
    for (const StripItem& item : StripOf(*frame, document.MeasureDuration(staff, measure))) {
        RECT block = strip;
        block.left = strip.left + 3 + static_cast<LONG>(item.begin * width);
        block.right =
            std::max<LONG>(strip.left + 2 + static_cast<LONG>(item.end * width), block.left + 2);
        block.top += item.kind == StripKind::kGrace ? strip.bottom - strip.top - 7 : 2;
        block.bottom -= 2;
        DrawBlock(context, block, item, color);
    }
}

void GridWindow::PaintNames(HDC context, const RECT& area) {
    const Document& document = *App().CurrentDocument();
    SetTextColor(context, RGB(30, 30, 40));
    RECT head = area;
    head.bottom = GridLayout::kNumberHeight;
    Fill(context, head, kHeadColor);
    for (int measure = 1; measure <= document.MeasureCount(); ++measure) {
        RECT box = OnScreen(m_layout.Cell(1, measure));
        box.top = 0;
        box.bottom = GridLayout::kNumberHeight;
        Write(context, box, Wide(document.MeasureNumberText(static_cast<u16>(measure))), DT_CENTER);
    }
    RECT names = area;
    names.right = GridLayout::kNameWidth;
    Fill(context, names, kHeadColor);
    const int staves = static_cast<int>(document.StaffList(0).size());
    for (int slot = 1; slot <= staves; ++slot) {
        RECT box = OnScreen(m_layout.Cell(slot, 1));
        box.left = 8;
        box.right = GridLayout::kNameWidth - 4;
        const u16 staff = document.StaffInSlot(static_cast<i16>(slot), 0);
        const std::u16string name = document.AutoNumberedName(staff);
        Write(context, box,
              name.empty() ? WideText(Text::kStaffOfScore, {std::to_string(slot)}) : Wide(name),
              DT_LEFT | DT_END_ELLIPSIS);
    }
    head.right = GridLayout::kNameWidth;
    Fill(context, head, kHeadColor);
    PaintLegend(context, head);
}

// Which color a layer has, in the corner above the names.
void GridWindow::PaintLegend(HDC context, const RECT& corner) {
    RECT words = corner;
    words.left += 8;
    Write(context, words, WideText(Text::kLayersLegend), DT_LEFT);
    constexpr int kStep = 20;
    RECT box = corner;
    box.left = corner.right - GridLayout::kLayers * kStep - 2;
    box.top += 4;
    box.bottom -= 4;
    SetTextColor(context, RGB(255, 255, 255));
    for (std::size_t layer = 0; layer < kLayerColors.size(); ++layer, box.left += kStep) {
        box.right = box.left + kStep - 4;
        Fill(context, box, kLayerColors[layer]);
        Write(context, box, std::to_wstring(layer + 1), DT_CENTER);
    }
}

std::optional<RECT> GridWindow::SelectionBox() const {
    const auto region = m_editor.Region();
    if (!region) {
        return std::nullopt;
    }
    const PixelRect first = m_layout.Cell(region->startSlot, region->startMeasure);
    const PixelRect last = m_layout.Cell(region->endSlot, region->endMeasure);
    const int left = m_layout.XOf(region->startMeasure, region->startPosition);
    const int right = region->endPosition == kEndOfMeasure
                          ? last.right
                          : m_layout.XOf(region->endMeasure, region->endPosition + 1);
    return OnScreen({left, first.top, right, last.bottom});
}

std::optional<RECT> GridWindow::SelectionOnScreen() const {
    const auto selected = SelectionBox();
    RECT seen{};
    GetClientRect(m_window, &seen);
    if (!selected || IntersectRect(&seen, &seen, &*selected) == 0) {
        return std::nullopt;
    }
    MapWindowPoints(m_window, nullptr, reinterpret_cast<POINT*>(&seen), 2);
    return seen;
}

void GridWindow::PaintSelection(HDC context) {
    const auto selected = SelectionBox();
    if (!selected) {
        return;
    }
    const RECT& box = *selected;
    const MemoryContext memory{CreateCompatibleDC(context)};
    const Bitmap color{CreateCompatibleBitmap(context, 1, 1)};
    const Selected chosen{memory.get(), color.get()};
    SetPixel(memory.get(), 0, 0, kSelectionColor);
    AlphaBlend(context, box.left, box.top, box.right - box.left, box.bottom - box.top, memory.get(),
               0, 0, 1, 1, BLENDFUNCTION{AC_SRC_OVER, 0, kSelectionStrength, 0});
    Outline(context, box, kSelectionColor);
}

}  // namespace standin::desktop
