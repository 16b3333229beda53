#pragma once

#include "base/geometry.h"

namespace quillery {

/// An affine map: x' = a x + c y + e, y' = b x + d y + f, as SVG's matrix() has them.
struct Matrix {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  Point operator()(Point p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  /// First `inner`, then this.
  Matrix operator*(const Matrix& inner) const {
    return {a * inner.a + c * inner.b,     b * inner.a + d * inner.b,
            a * inner.c + c * inner.d,     b * inner.c + d * inner.d,
            a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
  }
  double determinant() const { return a * d - b * c; }
};

} // namespace quillery
