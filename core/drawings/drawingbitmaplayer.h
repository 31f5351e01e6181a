#pragma once

#include "core/drawings/drawinglayer.h"

namespace OMC {

/// A layer with a picture. All its boxes are the one about the corners of the picture; it has no lines.
class BRINDLE_CORE_EXPORT DrawingBitmapLayer : public DrawingLayer {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingBitmapLayer)

public:
    using DrawingLayer::DrawingLayer;

    std::string __str__() const override; ///< "DrawingBitmapLayer()".

    QVariant getBoundingBox() const override;
    QVariant getBoundingBoxVisible() const override;
    QString getType() const override;

protected:
    void validate() const override;
};

} // namespace OMC
