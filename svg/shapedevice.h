#pragma once

#include "core/drawings/svgpicture.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QRectF>
#include <QStringList>

#include <memory>

namespace brindle::svg {

/// A device that keeps the shapes that are painted on it, in the coordinates of drawings.
class ShapeDevice final : public QPaintDevice {
public:
    /// `view` is the part of the painter's plane that the picture shows.
    explicit ShapeDevice(const QRectF& view);
    ~ShapeDevice() override;

    QPaintEngine* paintEngine() const override;

    std::vector<OMC::svg::Shape> takeShapes();
    const QStringList& notCarried() const;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;

    std::unique_ptr<Engine> m_engine;
    QRectF m_view;
};

} // namespace brindle::svg
