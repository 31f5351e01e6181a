#pragma once

#include "render/picture.h"

namespace brindle::render {

/// How a picture comes over another one, by the formulas of the W3C's Compositing and Blending, Level 1. With colours
/// multiplied by alpha (s and d, alphas sa and da, on the scale 0 to 1) a mode is
///
///     colour = mix + s (1 - da) + d (1 - sa)        alpha = sa + da (1 - sa)
///
/// | mode       | mix                                                              |
/// |------------|------------------------------------------------------------------|
/// | Normal     | s da                                                             |
/// | Multiply   | s d                                                              |
/// | Screen     | s da + d sa - s d                                                |
/// | Overlay    | HardLight with s and d exchanged                                 |
/// | Darken     | the lesser one of s da and d sa                                  |
/// | Lighten    | the greater one of s da and d sa                                 |
/// | Difference | the distance between s da and d sa                               |
/// | Exclusion  | s da + d sa - 2 s d                                              |
/// | SoftLight  | sa da B(d / da, s / sa), with the B that is given there          |
/// | HardLight  | 2 s d for 2 s <= sa, else sa da - 2 (sa - s) (da - d)            |
///
/// Add is s + d in colour and in alpha, at most 1. The numbers are those of the attribute `mode` of COMPOSITE nodes.
enum class BlendMode {
    Normal,
    Multiply,
    Screen,
    Overlay,
    Darken,
    Lighten,
    Add,
    Difference,
    Exclusion,
    SoftLight,
    HardLight
};

/// Lays a picture over another one of the same size. Throws std::bad_alloc where memory doesn't suffice, as all
/// operations on pictures do; nothing has changed then.
void blend(Picture& below, const Picture& above, BlendMode mode = BlendMode::Normal);

} // namespace brindle::render
