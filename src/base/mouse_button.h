#pragma once

namespace quillery {

/// The buttons that a canvas tells apart.
enum class MouseButton { left, right, middle };

} // namespace quillery
