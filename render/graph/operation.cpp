#include "render/graph/operation.h"

#include "render/operations/blur.h"
#include "render/operations/shade.h"
#include "render/raster/placing.h"

#include <algorithm>
#include <functional>

namespace brindle::render {

namespace {

Picture shown(const QSize& size, const QImage& pixels, const QTransform& place)
{
    const double w = pixels.width();
    const double h = pixels.height();
    const QRect box = place.mapRect(QRectF(0, 0, w, h)).toAlignedRect().adjusted(-1, -1, 1, 1) & QRect({}, size);
    return drawnInBox(size, box, place, [&](Rasteriser& rasteriser) {
        const GR_BezierPath2d frame = rectanglePath(w, h);
        const Paint paint = TexturePaint{pixels, false, QTransform()};
        const Face face{{&frame, 1}, &paint};
        rasteriser.addFaces({&face, 1}, Rasteriser::Faces::Over);
    });
}

/// A softened picture. One blur after the other would let it grow without end, so what lies further outside than half
/// of the picture's size is dropped, and a radius of more than that counts as that.
Picture blurred(Picture picture, double across, double down)
{
    const QSize half = picture.size() / 2;
    const double most = std::max({half.width(), half.height(), 1});
    blur(picture, std::min(across, most), std::min(down, most));
    return picture.cropped(
        QRect({}, picture.size()).adjusted(-half.width(), -half.height(), half.width(), half.height()));
}

} // namespace

Operation::~Operation()
{
    std::vector<OperationPtr> open = std::move(inputs);
    while (!open.empty()) {
        const OperationPtr last = std::move(open.back());
        open.pop_back();
        // It is about to go; held here, its inputs don't go along from within it.
        if (last.use_count() == 1)
            open.insert(open.end(), last->inputs.begin(), last->inputs.end());
    }
}

bool Operation::operator==(const Operation& other) const
{
    return kind == other.kind && inputs == other.inputs && size == other.size && art == other.art &&
           pixels.cacheKey() == other.pixels.cacheKey() && place == other.place && colour == other.colour &&
           mode == other.mode && isInverted == other.isInverted && across == other.across && down == other.down &&
           opacity == other.opacity;
}

std::size_t Operation::hash() const
{
    std::size_t hash = static_cast<std::size_t>(kind);
    const auto add = [&hash](auto value) { hash = hash * 1000003 + std::hash<decltype(value)>()(value); };
    for (const OperationPtr& input : inputs)
        add(input.get());
    add(size.width());
    add(size.height());
    add(art.get());
    add(static_cast<quint64>(colour));
    for (const double number :
         {place.m11(), place.m12(), place.m21(), place.m22(), place.dx(), place.dy(), across, down, opacity})
        add(number);
    return hash;
}

Picture Operation::compute(const QSize& size, std::vector<Picture> pictures) const
{
    switch (kind) {
    case Empty:
        return Picture(size);
    case Draw:
        if (!pictures.empty()) {
            const PlacedArt placed{art.get(), place};
            return Art::drawOver(std::move(pictures[0]), {&placed, 1}, 1);
        }
        return art->draw(size, place);
    case Show:
        return shown(size, pixels, place);
    case Card:
        return colourCard(size, colour);
    case Blend:
        blend(pictures[0], pictures[1], mode);
        break;
    case Cut:
        cut(pictures[0], pictures[1], isInverted);
        break;
    case Blur:
        pictures[0] = blurred(std::move(pictures[0]), across, down);
        break;
    case Fade:
        fade(pictures[0], opacity);
        break;
    }
    return std::move(pictures[0]);
}

OperationPtr Operations::one(Operation operation)
{
    const std::size_t hash = operation.hash();
    const auto [begin, end] = m_all.equal_range(hash);
    for (auto known = begin; known != end; ++known)
        if (OperationPtr same = known->second.lock(); same && *same == operation)
            return same;
    const OperationPtr made = std::make_shared<Operation>(std::move(operation));
    m_all.emplace(hash, made);
    return made;
}

void Operations::tidy()
{
    std::erase_if(m_all, [](const auto& known) { return known.second.expired(); });
}

} // namespace brindle::render
