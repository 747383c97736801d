// Pictures as files: a surface to draw on, whose content goes to a sink.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "grid/LogFont.h"
#include "persist/ByteStream.h"
#include "platform/Surface.h"

namespace veygrid {

enum class PictureForm { Png, Pdf, Svg };

struct PictureRequest {
    PictureForm Form = PictureForm::Png;
    // Pixels of the drawing, 1 to MostPictureSide.
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    // Pixels of the picture for one of the drawing; those of a page are a 96th of an inch.
    double Scale = 1;
    // lfWeight -1: the system's own.
    LogFont StockFont{.lfWeight = -1};
    // In UTF-8; for forms that can hold one.
    std::string Title;
};

// Pixels of a side, of the picture as it is stored.
constexpr std::int32_t MostPictureSide(PictureForm form) {
    // Pages end at 200 inches.
    return form == PictureForm::Pdf ? 19200 : 32767;
}

class Picture {
  public:
    virtual ~Picture() = default;

    // White at first. It counts as paper.
    virtual Surface& Canvas() = 0;
    // To be called once, behind the last drawing. Throws what the sink throws, and
    // std::runtime_error when there is no memory for the picture.
    virtual void Finish() = 0;
};

class PictureMaker {
  public:
    virtual ~PictureMaker() = default;

    // The sink must outlive the picture. Throws std::bad_alloc.
    virtual std::unique_ptr<Picture> Begin(const PictureRequest& request, ByteSink& sink) = 0;
};

}  // namespace veygrid
