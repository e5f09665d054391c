#include "host/desktop/grid/grid_window.h"

#include <algorithm>
#include <utility>

#include "host/desktop/toolkit/window_class.h"
#include "host/score/application.h"
#include "platform/guarded.h"

namespace standin::desktop {

namespace {

constexpr wchar_t kClassName[] = L"PlyweldStandInGrid";

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

SelectionUnit UnitOfKeys() {
    return IsDown(VK_CONTROL) ? SelectionUnit::kBeat : SelectionUnit::kMeasure;
}

}  // namespace

GridWindow::GridWindow(HWND parent, std::function<void()> selectionListener)
    : m_selectionListener{std::move(selectionListener)} {
    RegisterWindowClass(kClassName, Procedure);
    m_window = CreateWindowExW(WS_EX_CLIENTEDGE, kClassName, L"",
                               WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL, 0, 0,
                               0, 0, parent, nullptr, GetModuleHandleW(nullptr), this);
}

LRESULT CALLBACK GridWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
    auto* self = ObjectOf<GridWindow>(window, message, data);
    if (self == nullptr) {
        return DefWindowProcW(window, message, word, data);
    }
    self->m_window = window;
    return platform::Guarded(LRESULT{0}, [&] { return self->Handle(message, word, data); });
}

LRESULT GridWindow::Handle(UINT message, WPARAM word, LPARAM data) {
    const int x = static_cast<short>(LOWORD(data));
    const int y = static_cast<short>(HIWORD(data));
    switch (message) {
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SIZE:
            UpdateScrollBars();
            return 0;
        case WM_LBUTTONDOWN:
            ::SetFocus(m_window);
            Press(x, y);
            return 0;
        case WM_MOUSEMOVE:
            if (m_dragging) {
                Drag(x, y);
            }
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            m_dragging = false;
            return 0;
        case WM_KEYDOWN:
            return Key(word) ? 0 : DefWindowProcW(m_window, message, word, data);
        case WM_HSCROLL:
            Scroll(SB_HORZ, LOWORD(word));
            return 0;
        case WM_VSCROLL:
            Scroll(SB_VERT, LOWORD(word));
            return 0;
        case WM_MOUSEWHEEL:
            ScrollTo(m_scrollX, m_scrollY - static_cast<short>(HIWORD(word)) / 2);
            return 0;
        default:
            return DefWindowProcW(m_window, message, word, data);
    }
}

void GridWindow::ShowDocument() {
    const Document* document = App().CurrentDocument();
    const ScoreShape shape = document != nullptr ? ShapeOf(*document) : ScoreShape{};
    m_layout = GridLayout{shape};
    m_editor.SetShape(shape);
    m_editor.Adopt(document != nullptr ? document->selection : std::nullopt);
    UpdateScrollBars();
    Redraw();
}

void GridWindow::SelectAll() {
    m_editor.SelectAll();
    SelectionChanged();
}

void GridWindow::SelectNone() {
    m_editor.Clear();
    SelectionChanged();
}

void GridWindow::WidenToMeasures() {
    m_editor.WidenToMeasures();
    SelectionChanged();
}

void GridWindow::WidenToStaves() {
    m_editor.WidenToStaves();
    SelectionChanged();
}

void GridWindow::Press(int x, int y) {
    if (x < GridLayout::kNameWidth || y < GridLayout::kNumberHeight) {
        return;
    }
    const auto point = m_layout.Hit(x + m_scrollX, y + m_scrollY);
    if (!point) {
        SelectNone();
        return;
    }
    m_dragUnit = UnitOfKeys();
    if (IsDown(VK_SHIFT)) {
        m_editor.Extend(*point, m_dragUnit);
    } else {
        m_editor.Begin(*point, m_dragUnit);
    }
    m_dragging = true;
    SetCapture(m_window);
    SelectionChanged();
}

void GridWindow::Drag(int x, int y) {
    const auto point = m_layout.Nearest(x + m_scrollX, y + m_scrollY);
    if (point) {
        m_editor.Extend(*point, m_dragUnit);
        SelectionChanged();
        ScrollIntoView(*point);
    }
}

bool GridWindow::Key(WPARAM key) {
    switch (key) {
        case VK_LEFT:
            m_editor.Move(Direction::kLeft, UnitOfKeys(), IsDown(VK_SHIFT));
            break;
        case VK_RIGHT:
            m_editor.Move(Direction::kRight, UnitOfKeys(), IsDown(VK_SHIFT));
            break;
        case VK_UP:
            m_editor.Move(Direction::kUp, UnitOfKeys(), IsDown(VK_SHIFT));
            break;
        case VK_DOWN:
            m_editor.Move(Direction::kDown, UnitOfKeys(), IsDown(VK_SHIFT));
            break;
        case VK_ESCAPE:
            m_editor.Clear();
            break;
        case VK_HOME:
            ScrollTo(0, m_scrollY);
            return true;
        case VK_END:
            ScrollTo(m_layout.Width(), m_scrollY);
            return true;
        default:
            return false;
    }
    SelectionChanged();
    if (const auto focus = m_editor.Focus()) {
        ScrollIntoView(*focus);
    }
    return true;
}

void GridWindow::SelectionChanged() {
    if (Document* document = App().CurrentDocument()) {
        document->selection = m_editor.Region();
    }
    Redraw();
    m_selectionListener();
}

}  // namespace standin::desktop
