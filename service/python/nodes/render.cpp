#include "service/python/nodes/render.h"

#include "core/frame/exception.h"
#include "core/frame/found.h"
#include "core/host/cel_renderer.h"
#include "core/host/celio_manager.h"
#include "core/nodes/cel.h"
#include "core/nodes/node.h"
#include "service/python/errors.h"
#include "service/python/values.h"

#include <QFileInfo>

#include <cmath>
#include <limits>
#include <memory>

namespace brindle::python {

namespace {

constexpr const char* kJob = "brindle.render.job";

std::unique_ptr<CEL_Renderer>& renderer()
{
    static std::unique_ptr<CEL_Renderer> one;
    return one;
}

QSize sizeOf(const QVariant& size)
{
    if (!size.isValid() || size.isNull())
        return {};
    const QVariantList sides = size.toList();
    const auto isWhole = [](const QVariant& side) {
        bool isNumber = false;
        const double number = side.toDouble(&isNumber);
        return isNumber && number == std::floor(number) && std::abs(number) <= std::numeric_limits<int>::max();
    };
    if (sides.size() != 2 || !isWhole(sides[0]) || !isWhole(sides[1]))
        throw OMC::Exception(QStringLiteral("The size of a picture is its width and its height in pixels."));
    const QSize result(sides[0].toInt(), sides[1].toInt());
    return result == QSize() ? QSize(0, 0) : result; // QSize() would stand for the project's.
}

CEL_RenderJob& jobIn(PyObject* capsule)
{
    auto* job = static_cast<CEL_RenderJob*>(PyCapsule_GetPointer(capsule, kJob));
    if (!job)
        throw PythonError{};
    return *job;
}

/// Without Python's lock while it lives. The engine must not be touched meanwhile.
class WithoutPython {
public:
    WithoutPython() : m_state(PyEval_SaveThread()) {}
    WithoutPython(const WithoutPython&) = delete;
    WithoutPython& operator=(const WithoutPython&) = delete;
    ~WithoutPython() { PyEval_RestoreThread(m_state); }

private:
    PyThreadState* m_state;
};

} // namespace

PyObject* prepareRendering(const OMC::Obj& object, double frame, const QVariant& size)
{
    const auto* node = OMC::objectIn<OMC::Node>(object);
    if (!node)
        throw OMC::Exception(QStringLiteral("There is no node to draw."));
    QString error;
    if (!renderer())
        renderer() = CEL_Renderer::create(error);
    std::unique_ptr<CEL_RenderJob> job;
    if (renderer())
        job = renderer()->prepare(&OMC::found(node->getNode()), frame, sizeOf(size), error);
    if (!job)
        throw OMC::Exception(error);
    PyObject* capsule = PyCapsule_New(
        job.get(), kJob, [](PyObject* gone) { delete static_cast<CEL_RenderJob*>(PyCapsule_GetPointer(gone, kJob)); });
    if (!capsule)
        throw PythonError{};
    job.release();
    return capsule;
}

PyObject* remarksOfJob(PyObject* job)
{
    return toPython(jobIn(job).remarks());
}

PyObject* renderJob(PyObject* capsule, int threads)
{
    const CEL_RenderJob& job = jobIn(capsule);
    QString error;
    CA_CelRef cel;
    {
        const WithoutPython outside;
        cel = job.render(threads, error);
    }
    if (!cel.cel())
        throw OMC::Exception(error);
    return toPython(QVariant::fromValue(OMC::Obj(new OMC::Cel(cel))));
}

void writeJob(PyObject* capsule, const QString& path, int depth)
{
    const CEL_RenderJob& job = jobIn(capsule);
    QString error;
    const WithoutPython outside;
    const CA_CelRef cel = job.render(1, error);
    if (!cel.cel())
        throw OMC::Exception(error);
    const QString suffix = QFileInfo(path).suffix();
    CELIO_WriteContext context(path, QString(), cel.cel()->impl().colorProfile(), nullptr, QVariant());
    context.setDepth(depth);
    context.setFailure(&error);
    if (!CELIO_Manager::getInstance()->write(cel.cel(), context, suffix, QString()))
        throw OMC::Exception(error);
}

void forgetPictures()
{
    renderer().reset();
}

} // namespace brindle::python
