#pragma once

#include "tests/engine/drawings/drawingtest.h"

#include <random>

/// Edits of a drawing at random, of all kinds that scripts can make.
class RandomDrawingEdits {
public:
    explicit RandomDrawingEdits(unsigned int seed) : m_random(seed) {}

    /// One edit, on a random art layer of the access's drawing. Refused ones change nothing.
    void edit(GR_DrawingAccess& access);
    unsigned int pick(unsigned int count) { return m_random() % count; }

private:
    GR_StrokeData stroke();
    Math::Point2d place();
    GR_ColorPtr colour();
    GR_LineStyle style();
    GR_ThicknessPathPtr widths();
    GR_TextLayer::Data text();
    GR_BitmapLayer::Data bitmap();
    Math::Matrix2x3 matrix();
    double number() { return double(int(pick(41)) - 20); }

    void editLayers(GR_DrawingAccess& access, const std::vector<UT_Node*>& leaves);
    void editStrokes(GR_DrawingAccess& access, UT_Node* leaf, const std::vector<UT_Node*>& leaves);

    std::mt19937 m_random;
};
