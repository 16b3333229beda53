#pragma once

#include <glib-object.h>

#include <cairo.h>
#include <memory>
#include <string>

namespace quillery {

struct ReleaseObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};
/// Owns one reference to an object of the GLib family.
template <typename T> using GObjectPointer = std::unique_ptr<T, ReleaseObject>;

struct ReleaseCairo {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, ReleaseCairo>;
using CairoContext = std::unique_ptr<cairo_t, ReleaseCairo>;

/// The message of an error, which is freed.
inline std::string messageOf(GError* error) {
  std::string message = error != nullptr ? error->message : "unknown error";
  if (error != nullptr) g_error_free(error);
  return message;
}

} // namespace quillery
