// The picture of the control: the sheet, or in GUI mode what lies behind the form.
#pragma once

#include "screen/BackgroundImage.h"
#include "screen/DrawingContext.h"

namespace veygrid {

// Draws the control into the bounds, the whole view whatever part of it is invalid, and lays the
// sheet out in them. One routine for screen, metafile and paper; on paper the view stands at column
// 1 and the first row of the current page afterwards.
void OnDraw(const DrawingContext& context, BackgroundImage& image, Surface& surface,
            const Rect& bounds, const Rect& invalid);

}  // namespace veygrid
