// Whether this program draws pictures, and with what.
#pragma once

#include <memory>

#include "platform/Picture.h"

namespace veygrid {

// Null where the program is built without drawing.
std::unique_ptr<PictureMaker> OpenPictures();

}  // namespace veygrid
