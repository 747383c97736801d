// Owners of the objects that the drawing libraries hand out.
#pragma once

#include <cairo.h>
#include <glib-object.h>
#include <pango/pango.h>

#include <memory>

namespace veygrid {

template <auto Release>
struct ReleaseWith {
    template <class Object>
    void operator()(Object* object) const {
        Release(object);
    }
};

using OwnedContext = std::unique_ptr<cairo_t, ReleaseWith<cairo_destroy>>;
using OwnedImage = std::unique_ptr<cairo_surface_t, ReleaseWith<cairo_surface_destroy>>;
using OwnedScaledFont =
    std::unique_ptr<cairo_scaled_font_t, ReleaseWith<cairo_scaled_font_destroy>>;
using OwnedFontOptions =
    std::unique_ptr<cairo_font_options_t, ReleaseWith<cairo_font_options_destroy>>;
using OwnedFontMap = std::unique_ptr<PangoFontMap, ReleaseWith<g_object_unref>>;
using OwnedPangoContext = std::unique_ptr<PangoContext, ReleaseWith<g_object_unref>>;
using OwnedFontset = std::unique_ptr<PangoFontset, ReleaseWith<g_object_unref>>;
using OwnedPangoFont = std::unique_ptr<PangoFont, ReleaseWith<g_object_unref>>;
using OwnedFontDescription =
    std::unique_ptr<PangoFontDescription, ReleaseWith<pango_font_description_free>>;

}  // namespace veygrid
