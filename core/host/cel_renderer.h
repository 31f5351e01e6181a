#pragma once

#include "core/host/ca_celref.h"
#include "core/host/export.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class MO_Node;

/// All that it takes to make a picture, without the project: any thread may make it, while the project is changed or
/// closed.
class BRINDLE_HOST_EXPORT CEL_RenderJob {
public:
    virtual ~CEL_RenderJob() = default;

    /// The picture, as a cel with an area of 16 bits a channel. Up to `threads` threads share the work; the pixels are
    /// the same for any number. No cel, with one sentence in `error`, where memory doesn't suffice.
    virtual CA_CelRef render(int threads, QString& error) const = 0;
    /// A line for each thing that can't be shown, as a texture that is gone: the picture is without it.
    virtual QStringList remarks() const = 0;
};

/// Makes pictures of what nodes show: the field chart through the scene's camera, which the size of the picture spans
/// from its lower to its upper edge (or from side to side, where the resolution fits the width).
///
/// It remembers what stays the same from one frame to the next, up to `memoryLimit` bytes of pictures and of drawings
/// with their outlines, until it is destroyed. Jobs share that, and outlive it.
class BRINDLE_HOST_EXPORT CEL_Renderer {
public:
    static constexpr int largestSide = 32768;                ///< Of a picture, in pixels.
    static constexpr qint64 memoryLimit = qint64(256) << 20; ///< In bytes.

    virtual ~CEL_Renderer() = default;

    /// A new one. Null, with one sentence in `error`, where the library that draws can't be loaded.
    static std::unique_ptr<CEL_Renderer> create(QString& error);

    /// Whether the pictures that are prepared from now on add what they take to the performance timers of the nodes
    /// (MO_Node::performanceTimer).
    virtual void setMeasuring(bool measuring) = 0;

    /// What a node of the open project shows at a frame of its scene. QSize() stands for the resolution of the project.
    /// To be called on a thread that may read the project. Null, with one sentence in `error`, for a node that shows no
    /// picture or is in no scene, a frame outside of the scene, a side of the picture below 1 or above largestSide,
    /// more than 8192 x 8192 pixels where the machine's memory doesn't suffice for them, and nodes that feed
    /// themselves.
    virtual std::unique_ptr<CEL_RenderJob> prepare(MO_Node* node, double frame, const QSize& size, QString& error) = 0;
};
