#pragma once

#include "core/host/application.h"

namespace brindle {

/// Follows the outlines in a picture: where the darkness passes the threshold between the centres of neighbouring
/// pixels, found by marching squares with linear interpolation. Where two dark pixels meet at a corner only, the mean
/// of the four pixels around decides whether they belong together. It registers itself with the host that it is made
/// for.
class Vectorization final : public BAPP_VectorizationInterface {
public:
    explicit Vectorization(BAPP_ScriptHost* host);

    QList<QPolygonF> outlines(const QImage& picture, int threshold) const override;
};

} // namespace brindle
