// Pictures as files, and in memory, on Cairo.
#include "platform/cairo/CairoPicture.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <cmath>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

namespace veygrid {

namespace {

constexpr double PointsPerPixel = 0.75;

void Check(cairo_status_t status) {
    if (status == CAIRO_STATUS_NO_MEMORY) {
        throw std::bad_alloc();
    }
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(std::string("the picture cannot be drawn: ") +
                                 cairo_status_to_string(status));
    }
}

OwnedContext ContextOn(cairo_surface_t* target, double scale) {
    Check(cairo_surface_status(target));
    OwnedContext context(cairo_create(target));
    Check(cairo_status(context.get()));
    cairo_scale(context.get(), scale, scale);
    return context;
}

OwnedImage MakeImage(const SurfaceTraits& traits, double scale) {
    const auto side = [scale](std::int32_t size) {
        return static_cast<int>(std::lround(size * scale));
    };
    return OwnedImage(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, side(traits.Width), side(traits.Height)));
}

void FillWhite(CairoSurface& canvas, const SurfaceTraits& traits) {
    canvas.FillSolidRect({0, 0, traits.Width, traits.Height}, White);
}

// Hands bytes of the library to a sink, whose exceptions may not pass through it.
class Outlet {
  public:
    explicit Outlet(ByteSink& sink) : m_sink(&sink) {}

    static cairo_status_t Write(void* self, const unsigned char* data, unsigned int size) {
        return static_cast<Outlet*>(self)->Pass(
            {reinterpret_cast<const char*>(data), std::size_t{size}});
    }
    // What is written from now on is lost.
    void Close() { m_sink = nullptr; }
    void RethrowFailure() const {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
    }

  private:
    cairo_status_t Pass(std::string_view bytes) {
        if (m_sink == nullptr) {
            return CAIRO_STATUS_SUCCESS;
        }
        try {
            m_sink->Write(bytes);
            return CAIRO_STATUS_SUCCESS;
        } catch (...) {
            m_failure = std::current_exception();
            m_sink = nullptr;
            return CAIRO_STATUS_WRITE_ERROR;
        }
    }

    ByteSink* m_sink;
    std::exception_ptr m_failure;
};

SurfaceTraits TraitsOf(const PictureRequest& request) {
    return {request.Width, request.Height, request.StockFont, true};
}

class PngPicture final : public Picture {
  public:
    PngPicture(const PictureRequest& request, ByteSink& sink)
        : m_fonts({request.Scale, true}), m_picture(m_fonts, TraitsOf(request)), m_outlet(sink) {}

    Surface& Canvas() override { return m_picture.Canvas(); }
    void Finish() override {
        const cairo_status_t status =
            cairo_surface_write_to_png_stream(m_picture.Image(), Outlet::Write, &m_outlet);
        m_outlet.RethrowFailure();
        Check(status);
    }

  private:
    CairoFonts m_fonts;
    MemoryPicture m_picture;
    Outlet m_outlet;
};

// One page of outlines.
class VectorPicture final : public Picture {
  public:
    VectorPicture(const PictureRequest& request, ByteSink& sink)
        : m_outlet(sink),
          m_page(MakePage(request, m_outlet)),
          m_fonts({request.Scale * PointsPerPixel, false}),
          m_canvas(ContextOn(m_page.get(), request.Scale * PointsPerPixel), m_fonts,
                   TraitsOf(request)) {
        FillWhite(m_canvas, TraitsOf(request));
    }
    // The library completes a page that was left half way.
    ~VectorPicture() override { m_outlet.Close(); }
    VectorPicture(const VectorPicture&) = delete;
    VectorPicture& operator=(const VectorPicture&) = delete;

    Surface& Canvas() override { return m_canvas; }
    void Finish() override {
        cairo_surface_finish(m_page.get());
        m_outlet.RethrowFailure();
        Check(cairo_surface_status(m_page.get()));
    }

  private:
    static OwnedImage MakePage(const PictureRequest& request, Outlet& outlet) {
        const double width = request.Width * request.Scale * PointsPerPixel;
        const double height = request.Height * request.Scale * PointsPerPixel;
        if (request.Form == PictureForm::Svg) {
            return OwnedImage(
                cairo_svg_surface_create_for_stream(Outlet::Write, &outlet, width, height));
        }
        OwnedImage page(cairo_pdf_surface_create_for_stream(Outlet::Write, &outlet, width, height));
        cairo_pdf_surface_set_metadata(page.get(), CAIRO_PDF_METADATA_TITLE, request.Title.c_str());
        return page;
    }

    Outlet m_outlet;
    OwnedImage m_page;
    CairoFonts m_fonts;
    CairoSurface m_canvas;
};

class CairoPictures final : public PictureMaker {
  public:
    std::unique_ptr<Picture> Begin(const PictureRequest& request, ByteSink& sink) override {
        if (request.Form == PictureForm::Png) {
            return std::make_unique<PngPicture>(request, sink);
        }
        return std::make_unique<VectorPicture>(request, sink);
    }
};

}  // namespace

std::unique_ptr<PictureMaker> MakeCairoPictures() {
    return std::make_unique<CairoPictures>();
}

MemoryPicture::MemoryPicture(CairoFonts& fonts, const SurfaceTraits& traits)
    : m_image(MakeImage(traits, fonts.Look().Scale)),
      m_canvas(ContextOn(m_image.get(), fonts.Look().Scale), fonts, traits) {
    FillWhite(m_canvas, traits);
}

Color MemoryPicture::Pixel(std::int32_t x, std::int32_t y) const {
    cairo_surface_flush(m_image.get());
    const unsigned char* const row =
        cairo_image_surface_get_data(m_image.get()) +
        std::ptrdiff_t{cairo_image_surface_get_stride(m_image.get())} * y;
    const std::uint32_t pixel = reinterpret_cast<const std::uint32_t*>(row)[x];
    return (pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU);
}

}  // namespace veygrid
