#include "engine/stage/playback.h"

#include "core/host/sc_scene.h"
#include "engine/stage/stage.h"

#include <QCoreApplication>

#include <algorithm>

namespace brindle::engine {

Playback::Playback(Stage& stage) : m_stage(stage)
{
    m_notice.setSingleShot(true);
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_notice, &QTimer::timeout, &m_notice, [this] { m_stage.announceFrame(); });
    QObject::connect(&m_next, &QTimer::timeout, &m_next, [this] { playNext(); });
}

int Playback::currentFrame() const
{
    return within(m_frame);
}

void Playback::setCurrentFrame(int frame)
{
    m_frame = within(frame);
    m_stage.show();
    if (QCoreApplication::instance())
        m_notice.start(0);
}

int Playback::startFrame() const
{
    const TUScene* scene = m_stage.scene();
    return within(m_start.value_or(scene ? scene->sceneCommon()->getStartFrame() : 1));
}

int Playback::stopFrame() const
{
    const TUScene* scene = m_stage.scene();
    return within(m_stop.value_or(scene ? scene->sceneCommon()->getStopFrame() : 1));
}

void Playback::play()
{
    stop();
    if (!m_stage.scene() || !QCoreApplication::instance())
        return;
    m_isPlaying = true;
    m_played = 0;
    m_speed = 0;
    // The first frame is told of when it is played.
    m_notice.stop();
    m_next.start(0);
}

void Playback::stop()
{
    m_next.stop();
    m_isPlaying = false;
    m_stage.forgetPictures();
}

double Playback::currentFramesPerSecond() const
{
    return m_speed > 0 ? m_speed : frameRate();
}

void Playback::sceneGone()
{
    stop();
    m_notice.stop();
    m_frame = 1;
    m_start.reset();
    m_stop.reset();
    m_isLooping = false;
}

double Playback::frameRate() const
{
    const TUScene* scene = m_stage.scene();
    return scene ? scene->frameRate().fps() : UT_FrameRate().fps();
}

/// A frame of the scene; its first or last one for a frame outside of it.
int Playback::within(int frame) const
{
    const TUScene* scene = m_stage.scene();
    return std::clamp(frame, 1, scene ? std::max(scene->getNumberOfFrames(), 1) : 1);
}

void Playback::playNext()
{
    if (!m_stage.scene()) {
        stop();
        return;
    }
    if (m_played == 0) {
        m_clock.start();
        m_frame = startFrame();
    } else if (currentFrame() < stopFrame()) {
        ++m_frame;
    } else if (m_isLooping) {
        m_frame = startFrame();
    } else {
        stop();
        return;
    }
    m_stage.show();
    const qint64 now = m_clock.nsecsElapsed();
    if (m_played > 0 && now > m_lastShown)
        m_speed = 1e9 / static_cast<double>(now - m_lastShown);
    m_lastShown = now;
    ++m_played;
    // The time of the next frame, unless this one took longer than that.
    const double due = 1000.0 * m_played / frameRate() - static_cast<double>(now) / 1e6;
    m_next.start(static_cast<int>(std::clamp(due, 0.0, 60'000.0)));
    m_stage.announceFrame();
}

} // namespace brindle::engine
