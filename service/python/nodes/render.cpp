#include "service/python/nodes/render.h"

#include "core/frame/exception.h"
#include "core/host/cel_renderer.h"
#include "core/nodes/cel.h"
#include "core/nodes/node.h"
#include "service/python/errors.h"
#include "service/python/values.h"

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
    bool isWidth = false;
    bool isHeight = false;
    const QSize result(sides.value(0).toInt(&isWidth), sides.value(1).toInt(&isHeight));
    if (sides.size() != 2 || !isWidth || !isHeight)
        throw OMC::Exception(QStringLiteral("The size of a picture is its width and its height in pixels."));
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
        job = renderer()->prepare(node->getNode(), frame, sizeOf(size), error);
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

void forgetPictures()
{
    renderer().reset();
}

} // namespace brindle::python
