#include "engine/stage/stage.h"

#include "core/host/cel_pixmap.h"
#include "core/host/mo_node.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_resolution.h"
#include "core/host/ut_performance.h"
#include "engine/session/scene.h"

#include <QElapsedTimer>
#include <QThread>

namespace brindle::engine {

TUScene* Stage::scene() const
{
    const SC_ProjectManager* projects = m_session.projectManager();
    const SC_Project* project = projects ? projects->project() : nullptr;
    return project ? dynamic_cast<TUScene*>(project->sceneAt(0)) : nullptr;
}

int Stage::currentFrame(const SC_SceneCommon* scene) const
{
    const TUScene* shown = this->scene();
    return shown && shown->sceneCommon() == scene ? m_playback.currentFrame() : 1;
}

void Stage::show()
{
    bool isShown = false;
    // A view may come or go while another one draws.
    const std::vector<PLUG_StageView*> views = m_views;
    for (PLUG_StageView* view : views) {
        if (std::find(m_views.begin(), m_views.end(), view) == m_views.end() || !view->isVisible())
            continue;
        view->showFrame();
        isShown = true;
    }
    if (isShown || !scene())
        return;
    const SC_Resolution resolution = SC_Resolution::projectResolution(scene()->projectCommon());
    QString error;
    picture(QSize(resolution.width(), resolution.height()), error);
}

void Stage::announceFrame()
{
    if (auto* shown = dynamic_cast<Scene*>(scene()))
        shown->changes().announceFrame();
}

void Stage::forgetPictures()
{
    m_kept = {};
}

void Stage::projectGone()
{
    m_playback.sceneGone();
    m_renderer.reset();
}

QImage Stage::picture(const QSize& size, QString& error)
{
    auto* shown = dynamic_cast<Scene*>(scene());
    if (!shown)
        return {};
    const int frame = m_playback.currentFrame();
    if (!m_playback.isPlaying() || !PR_CachedPreferences::getOpenGLEnablePlaybackCache())
        return draw(*shown, frame, size, error);

    const std::uint64_t revision = shown->changes().revision();
    if (m_kept.revision != revision || m_kept.size != size)
        m_kept = {.pictures = {}, .size = size, .revision = revision};
    if (const auto known = m_kept.pictures.find(frame); known != m_kept.pictures.end())
        return known->second;
    QImage drawn = draw(*shown, frame, size, error);
    if (!drawn.isNull() && m_kept.bytes + drawn.sizeInBytes() <= kMostKept) {
        m_kept.bytes += drawn.sizeInBytes();
        m_kept.pictures.emplace(frame, drawn);
    }
    return drawn;
}

QImage Stage::draw(Scene& scene, int frame, const QSize& size, QString& error)
{
    TUDisplayModule* display = scene.defaultDisplay();
    if (!display)
        return {};
    if (!m_renderer) {
        m_renderer = CEL_Renderer::create(error);
        if (!m_renderer)
            return {};
        m_renderer->setMeasuring(true);
    }
    forEachFrom(scene.graph().root(), [](const Node& node) { node.resetPerformanceTimer(); });
    QElapsedTimer clock;
    clock.start();
    const std::unique_ptr<CEL_RenderJob> job = m_renderer->prepare(display, frame, size, error);
    const qint64 prepared = clock.nsecsElapsed();
    if (!job)
        return {};
    const CA_CelRef cel = job->render(QThread::idealThreadCount(), error);
    if (PR_CachedPreferences::getAdvancedEnablePerformanceReport())
        UT_PerformanceReportManager::instance()->addFrame(prepared, clock.nsecsElapsed() - prepared);
    if (!cel.cel())
        return {};
    const auto pixels =
        std::dynamic_pointer_cast<const CEL_Pixmap>(cel.cel()->convertTo(CEL_Representation::PIXMAP_RGBA8));
    return pixels ? pixels->image() : QImage();
}

} // namespace brindle::engine

PLUG_StageInterface* PLUG_Services::getStageInterface()
{
    const SC_SessionContext* session = getSessionContext();
    return session ? session->stage() : nullptr;
}

PLUG_CurrentFrameInterface* PLUG_Services::getCurrentFrameInterface()
{
    const SC_SessionContext* session = getSessionContext();
    return session ? session->currentFrames() : nullptr;
}
