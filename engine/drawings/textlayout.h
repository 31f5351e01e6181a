#pragma once

#include "core/host/gr_layer.h"

#include <vector>

namespace brindle::engine {

/// A text as its layer shows it: the outlines of its letters, and boxes about them. Computed once, when the first of
/// them is asked for.
class TextLayout {
public:
    explicit TextLayout(const GR_TextLayer::Data& text) : m_text(text) {}

    Math::Box2d box() const { return {}; }
    Math::Box2d outlineBox() const { return {}; }
    Math::Box2d plainBox() const { return {}; }
    std::vector<GR_BezierPath2d> outlines() const { return {}; }

private:
    GR_TextLayer::Data m_text;
};

} // namespace brindle::engine
