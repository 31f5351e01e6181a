#pragma once

#include "render/drawings/art.h"
#include "render/operations/blend.h"
#include "render/picture.h"

#include <QImage>
#include <QRgba64>
#include <QTransform>

#include <memory>
#include <unordered_map>
#include <vector>

namespace brindle::render {

class Operation;
using OperationPtr = std::shared_ptr<const Operation>;

/// One step to a picture, with the steps that it needs: a value that never changes. Two equal steps are one and the
/// same object (see Operations), so that a picture that was computed for one frame serves the next where nothing on
/// the way to it differs.
class Operation {
public:
    enum Kind {
        Empty, ///< A picture without content.
        Draw,  ///< A vector drawing at a place; over the input, where there is one.
        Show,  ///< A picture of pixels at a place.
        Card,  ///< One colour all over.
        Blend, ///< The second input over the first.
        Cut,   ///< The first input by the alpha of the second.
        Blur,  ///< The input, softened.
        Fade   ///< The input at an opacity.
    };

    Kind kind = Empty;
    std::vector<OperationPtr> inputs{};
    QSize size{}; ///< Of the picture.
    std::shared_ptr<const Art> art{};
    QImage pixels{};
    QTransform place{}; ///< From the units of the drawing, or the pixels of the picture, to the pixels of the result.
    QRgba64 colour{};
    BlendMode mode = BlendMode::Normal;
    bool isInverted = false;
    double across = 0; ///< The radius of a blur in pixels.
    double down = 0;
    double opacity = 1;

    ~Operation(); ///< Chains of steps may be longer than the call stack.

    bool operator==(const Operation& other) const;
    std::size_t hash() const;

    /// The picture, from those of the inputs.
    Picture compute(const QSize& size, std::vector<Picture> pictures) const;
};

/// All steps that are in use.
class Operations {
public:
    /// The one object that is equal to this step.
    OperationPtr one(Operation operation);
    /// Forgets the steps that nobody uses any more.
    void tidy();

private:
    std::unordered_multimap<std::size_t, std::weak_ptr<const Operation>> m_all;
};

} // namespace brindle::render
