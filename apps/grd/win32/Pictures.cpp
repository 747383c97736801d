// Pictures on Windows, where the control itself draws and this program does not.
#include "apps/grd/Pictures.h"

namespace veygrid {

std::unique_ptr<PictureMaker> OpenPictures() {
    return nullptr;
}

}  // namespace veygrid
