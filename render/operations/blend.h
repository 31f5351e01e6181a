#pragma once

#include "render/picture.h"

namespace brindle::render {

/// How a picture comes over another one. With colours multiplied by alpha (s and d, alphas sa and da, on the scale
/// 0 to 1), as in the W3C's Compositing and Blending:
///
/// | mode | colour | alpha |
/// |---|---|---|
/// | Normal | s + d (1 - sa) | sa + da (1 - sa) |
/// | Multiply | s d + s (1 - da) + d (1 - sa) | the same |
/// | Screen | s + d - s d | the same |
/// | Add | s + d, at most 1 | sa + da, at most 1 |
enum class BlendMode { Normal, Multiply, Screen, Add };

/// Lays a picture over another one of the same size. Throws std::bad_alloc where memory doesn't suffice, as all
/// operations on pictures do; nothing has changed then.
void blend(Picture& below, const Picture& above, BlendMode mode = BlendMode::Normal);

} // namespace brindle::render
