// Fitting a dialog's controls to their texts. All in pixels of the dialog's client area; a
// control that the dialog does not have is left out.
#pragma once

#include "shell/host/host_types.h"

// The width of the text in the control's font.
int GetTextWidth(WindowHandle dialog, u16 control, const char16* text);

// A negative value keeps that dimension; the position stays.
void SizeControl(WindowHandle dialog, u16 control, int height, int width);

// A negative value keeps that coordinate; the height stays. With keepRightEdge the width
// follows the left edge, but is never below 10; otherwise the width stays.
void PlaceControl(WindowHandle dialog, u16 control, int top, int left, bool keepRightEdge);

// Moves the top and the bottom edge by these amounts.
void ShiftControlEdges(WindowHandle dialog, u16 control, int topShift, int bottomShift);

void SetClientSize(WindowHandle window, int width, int height);

// Moves the OK and Cancel buttons down by the amount and makes the client area that much
// higher; a negative amount moves up and shrinks.
void ShrinkDialogHeight(WindowHandle dialog, int amount);

// A string id that is not negative gives the control that text of the string table.
void ShowHideControl(WindowHandle dialog, u16 control, i32 stringId, bool hide);

// Null sets an empty text. Rests on FX_SetDlgString_UTF16.
void SetControlTextUtf8(WindowHandle dialog, u16 control, const char* text);

// The widths that a check box and a label need for the text that they show.
void FitCheckBox(WindowHandle dialog, u16 control);
void FitLabel(WindowHandle dialog, u16 control);
