// The window that shows the score and lets the user select music.
#pragma once

#include <functional>
#include <optional>

#include "host/desktop/grid/grid_layout.h"
#include "host/desktop/grid/selection_editor.h"
#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

class GridWindow {
public:
    // The listener is called for each change of the selection that the user makes here.
    GridWindow(HWND parent, std::function<void()> selectionListener);
    GridWindow(const GridWindow&) = delete;
    GridWindow& operator=(const GridWindow&) = delete;

    HWND Window() const noexcept { return m_window; }
    // Shows the application's current document, with its selection.
    void ShowDocument();
    void Redraw() const { InvalidateRect(m_window, nullptr, FALSE); }

    // The menu's commands, same as their keys.
    void SelectAll();
    void SelectNone();
    void WidenToMeasures();
    void WidenToStaves();
    void ScrollToMeasure(int measure);

    std::optional<GridPoint> Focus() const { return m_editor.Focus(); }
    // What is selected, in screen coordinates, as far as it is in view. Nothing without a
    // selection.
    std::optional<RECT> SelectionOnScreen() const;
    // A place of the score in screen coordinates, scrolled into view first.
    POINT ScreenPoint(const GridPoint& point);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
    LRESULT Handle(UINT message, WPARAM word, LPARAM data);
    void Paint();
    void PaintContent(HDC context, const RECT& area);
    void PaintCell(HDC context, int slot, int measure);
    void PaintStrip(HDC context, int slot, int measure, i16 layer);
    void PaintNames(HDC context, const RECT& area);
    static void PaintLegend(HDC context, const RECT& corner);
    void PaintSelection(HDC context);
    RECT OnScreen(const PixelRect& rect) const;
    std::optional<RECT> SelectionBox() const;  // in the window

    void Press(int x, int y);
    void Drag(int x, int y);
    bool Key(WPARAM key);
    void SelectionChanged();
    void ScrollIntoView(const GridPoint& point);

    void Scroll(int bar, WORD request);
    void ScrollTo(int x, int y);
    void UpdateScrollBars();

    HWND m_window = nullptr;
    std::function<void()> m_selectionListener;
    GridLayout m_layout;
    SelectionEditor m_editor;
    int m_scrollX = 0;
    int m_scrollY = 0;
    bool m_dragging = false;
    SelectionUnit m_dragUnit = SelectionUnit::kMeasure;  // at the start of the drag
};

}  // namespace standin::desktop
