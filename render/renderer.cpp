#include "render/renderer.h"

#include "core/host/mo_node.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "render/machinememory.h"
#include "render/pixelrows.h"

#include <QMutex>

#include <cmath>
#include <mutex>
#include <new>
#include <stdexcept>

namespace brindle::render {

namespace {

/// Pictures of more pixels need the machine's memory to suffice, and are drawn one at a time.
constexpr qint64 kLarge = qint64(64) << 20;

qint64 pixelsOf(const QSize& size)
{
    return qint64(size.width()) * size.height();
}

QString outOfMemory(const QSize& size)
{
    return QStringLiteral("There is not enough memory for a picture of %1 x %2 pixels.")
        .arg(size.width())
        .arg(size.height());
}

class Job final : public CEL_RenderJob {
public:
    Job(Plan plan, std::shared_ptr<Evaluator> evaluator) : m_plan(std::move(plan)), m_evaluator(std::move(evaluator)) {}

    CA_CelRef render(int threads, QString& error) const override
    {
        // Only one thread at a time draws a large picture.
        static QMutex oneLarge;
        const std::unique_lock alone =
            pixelsOf(m_plan.size) > kLarge ? std::unique_lock(oneLarge) : std::unique_lock<QMutex>();
        try {
            const Picture picture = m_evaluator->picture(m_plan, threads);
            return CA_CelRef(new CEL_Cel(picture.area()));
        } catch (const std::bad_alloc&) {
            error = outOfMemory(m_plan.size);
            return CA_CelRef();
        }
    }

    QStringList remarks() const override { return m_plan.remarks; }

private:
    Plan m_plan;
    std::shared_ptr<Evaluator> m_evaluator;
};

bool isSide(int side)
{
    return side >= 1 && side <= CEL_Renderer::largestSide;
}

} // namespace

std::unique_ptr<CEL_RenderJob> Renderer::prepare(MO_Node* node, double frame, const QSize& size, QString& error)
{
    const SC_SceneCommon* scene = node ? node->sceneCommon() : nullptr;
    const SC_SessionContext* session = PLUG_Services::getSessionContext();
    const SC_ProjectCommon* project = session ? session->projectCommon() : nullptr;
    if (!scene || !project) {
        error = QStringLiteral("There is no node to draw.");
        return nullptr;
    }
    if (!node->hasImageOutput()) {
        error = QStringLiteral("The node \"%1\" shows no picture.").arg(node->qualifiedName());
        return nullptr;
    }
    if (!(frame >= 1 && frame <= scene->getNumberOfFrames())) {
        error = QStringLiteral("The scene has no frame %1; its frames are 1 to %2.")
                    .arg(frame)
                    .arg(scene->getNumberOfFrames());
        return nullptr;
    }
    const SC_Resolution resolution = SC_Resolution::projectResolution(project);
    const QSize picture = size == QSize() ? QSize(resolution.width(), resolution.height()) : size;
    if (!isSide(picture.width()) || !isSide(picture.height())) {
        error = QStringLiteral("A picture can't have %1 x %2 pixels; its sides have 1 to %3.")
                    .arg(picture.width())
                    .arg(picture.height())
                    .arg(largestSide);
        return nullptr;
    }
    constexpr int picturesAtOnce = 3; // What is composed, what goes onto it, and the result.
    if (pixelsOf(picture) > kLarge && picturesAtOnce * bytesPerPixel * pixelsOf(picture) > availableMemory()) {
        error = outOfMemory(picture);
        return nullptr;
    }
    try {
        return std::make_unique<Job>(m_planner.plan(*node, frame, picture, resolution, m_isMeasuring), m_evaluator);
    } catch (const std::runtime_error& circle) {
        error = QString::fromUtf8(circle.what());
        return nullptr;
    }
}

} // namespace brindle::render
