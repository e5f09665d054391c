// Drawing objects that end with their scope.
#pragma once

#include <memory>
#include <type_traits>

#include "host/desktop/toolkit/windows_api.h"

namespace standin::desktop {

struct DeleteDrawingObject {
    void operator()(void* object) const noexcept { DeleteObject(object); }
};
struct DeleteContext {
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};

using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteDrawingObject>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteDrawingObject>;
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

// Puts the context's previous object back when the scope ends.
class Selected {
public:
    Selected(HDC context, HGDIOBJ object)
        : m_context{context}, m_previous{SelectObject(context, object)} {}
    ~Selected() { SelectObject(m_context, m_previous); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC m_context;
    HGDIOBJ m_previous;
};

}  // namespace standin::desktop
