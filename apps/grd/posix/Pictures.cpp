// Pictures on POSIX systems, which Cairo draws.
#include "apps/grd/Pictures.h"

#include "platform/cairo/CairoPicture.h"

namespace veygrid {

std::unique_ptr<PictureMaker> OpenPictures() {
    return MakeCairoPictures();
}

}  // namespace veygrid
