#pragma once

#include "core/host/plug_stage.h"

#include <QElapsedTimer>
#include <QTimer>

#include <optional>

namespace brindle::engine {

class Stage;

/// Moves the current frame of the stage's scene by the event loop.
///
/// Frames are shown at the times that the frame rate gives them, counted from the first one. A frame that takes longer
/// delays those behind it; none is left out.
class Playback final : public PLUG_PlaybackController {
public:
    explicit Playback(Stage& stage);

    int currentFrame() const; ///< Of the stage's scene; 1 without one.

    void setCurrentFrame(int frame) override;
    int startFrame() const override;
    int stopFrame() const override;
    void setStartFrame(int frame) override { m_start = frame; }
    void setStopFrame(int frame) override { m_stop = frame; }
    void setLoop(bool loop) override { m_isLooping = loop; }
    void play() override;
    void stop() override;
    bool isPlaying() const override { return m_isPlaying; }
    double currentFramesPerSecond() const override;

    void sceneGone(); ///< Another scene, or none, is shown from now on: from frame 1 on, in its own range.

private:
    double frameRate() const;
    int within(int frame) const;
    void playNext();

    Stage& m_stage;
    QTimer m_notice; ///< Tells of a frame that was set.
    QTimer m_next;
    QElapsedTimer m_clock;  ///< Runs since the first frame that was played.
    qint64 m_lastShown = 0; ///< In nanoseconds of the clock.
    int m_played = 0;
    double m_speed = 0; ///< In frames per second; 0 until two frames were played.
    int m_frame = 1;
    std::optional<int> m_start;
    std::optional<int> m_stop;
    bool m_isLooping = false;
    bool m_isPlaying = false;
};

} // namespace brindle::engine
