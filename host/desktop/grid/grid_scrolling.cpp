// How the grid scrolls.
#include <algorithm>

#include "host/desktop/grid/grid_window.h"

namespace standin::desktop {

void GridWindow::UpdateScrollBars() {
    RECT client;
    GetClientRect(m_window, &client);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_PAGE | SIF_RANGE;
    info.nMax = std::max(m_layout.Width() - 1, 0);
    info.nPage = static_cast<UINT>(client.right);
    SetScrollInfo(m_window, SB_HORZ, &info, TRUE);
    info.nMax = std::max(m_layout.Height() - 1, 0);
    info.nPage = static_cast<UINT>(client.bottom);
    SetScrollInfo(m_window, SB_VERT, &info, TRUE);
    ScrollTo(m_scrollX, m_scrollY);
}

void GridWindow::ScrollTo(int x, int y) {
    RECT client;
    GetClientRect(m_window, &client);
    m_scrollX = std::clamp<int>(x, 0, std::max<int>(m_layout.Width() - client.right, 0));
    m_scrollY = std::clamp<int>(y, 0, std::max<int>(m_layout.Height() - client.bottom, 0));
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = m_scrollX;
    SetScrollInfo(m_window, SB_HORZ, &info, TRUE);
    info.nPos = m_scrollY;
    SetScrollInfo(m_window, SB_VERT, &info, TRUE);
    Redraw();
}

void GridWindow::Scroll(int bar, WORD request) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(m_window, bar, &info);
    const int line = bar == SB_HORZ ? 60 : GridLayout::kRowHeight;
    const int page = static_cast<int>(info.nPage);
    int position = info.nPos;
    switch (request) {
        case SB_LINEUP:
            position -= line;
            break;
        case SB_LINEDOWN:
            position += line;
            break;
        case SB_PAGEUP:
            position -= page;
            break;
        case SB_PAGEDOWN:
            position += page;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            position = info.nTrackPos;
            break;
        case SB_TOP:
            position = 0;
            break;
        case SB_BOTTOM:
            position = info.nMax;
            break;
        default:
            return;
    }
    if (bar == SB_HORZ) {
        ScrollTo(position, m_scrollY);
    } else {
        ScrollTo(m_scrollX, position);
    }
}

void GridWindow::ScrollIntoView(const GridPoint& point) {
    RECT client;
    GetClientRect(m_window, &client);
    const PixelRect cell = m_layout.Cell(point.slot, point.measure);
    int x = m_scrollX;
    int y = m_scrollY;
    x = std::max<int>(x, cell.right - client.right);
    x = std::min(x, cell.left - GridLayout::kNameWidth);
    y = std::max<int>(y, cell.bottom - client.bottom);
    y = std::min(y, cell.top - GridLayout::kNumberHeight);
    if (x != m_scrollX || y != m_scrollY) {
        ScrollTo(x, y);
    }
}

void GridWindow::ScrollToMeasure(int measure) {
    ScrollIntoView({1, measure, 0});
}

POINT GridWindow::ScreenPoint(const GridPoint& point) {
    ScrollIntoView(point);
    const PixelRect cell = m_layout.Cell(point.slot, point.measure);
    POINT place{m_layout.XOf(point.measure, point.position) + 3 - m_scrollX,
                (cell.top + cell.bottom) / 2 - m_scrollY};
    ClientToScreen(m_window, &place);
    return place;
}

}  // namespace standin::desktop
