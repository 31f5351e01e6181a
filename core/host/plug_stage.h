#pragma once

#include "core/host/export.h"

#include <QImage>
#include <QSize>
#include <QString>

class SC_SceneCommon;
class SC_SessionContext;
class TUScene;

/// Moves the current frame of the open scene, and plays it at the scene's frame rate. On the main thread.
class BRINDLE_HOST_EXPORT PLUG_PlaybackController {
public:
    virtual ~PLUG_PlaybackController() = default;

    /// Shows a frame of the scene at once; one outside of it stands for its first or last frame. Who listens to the
    /// change manager is told by the event loop, where there is one.
    virtual void setCurrentFrame(int frame) = 0;

    /// The range that is played: that of the scene, until another one is set.
    virtual int startFrame() const = 0;
    virtual int stopFrame() const = 0;
    virtual void setStartFrame(int frame) = 0;
    virtual void setStopFrame(int frame) = 0;
    virtual void setLoop(bool loop) = 0; ///< Whether the start frame follows the stop frame.

    /// Plays from the start frame, by the event loop; nothing happens where there is none. Each frame is shown, and
    /// then told to who listens.
    virtual void play() = 0;
    virtual void stop() = 0;
    virtual bool isPlaying() const = 0;
    /// The speed at which the last frame was played, in frames per second; the scene's frame rate until two frames were
    /// played.
    virtual double currentFramesPerSecond() const = 0;
};

/// A view that shows the current frame of the open scene.
class BRINDLE_HOST_EXPORT PLUG_StageView {
public:
    virtual ~PLUG_StageView() = default;
    virtual bool isVisible() const = 0;
    virtual void showFrame() = 0; ///< Draws at once what PLUG_StageInterface::picture gives.
};

/// What a session shows of its open project: a scene, at the frame that the playback controller says. On the main
/// thread.
class BRINDLE_HOST_EXPORT PLUG_StageInterface {
public:
    virtual ~PLUG_StageInterface() = default;

    virtual SC_SessionContext* session() const = 0;
    virtual TUScene* scene() const = 0; ///< The first one of the open project, or null.
    virtual PLUG_PlaybackController* playbackController() const = 0;

    /// Views come and go; they stay their owners'.
    virtual void addView(PLUG_StageView& view) = 0;
    virtual void removeView(PLUG_StageView& view) = 0;

    /// The picture of the current frame, as the scene's default display shows it (8 bits a channel, not multiplied by
    /// alpha). It sets the performance timers of the nodes. An empty one where the scene has no display, and, with one
    /// sentence in `error`, where it can't be made.
    virtual QImage picture(const QSize& size, QString& error) = 0;
};

/// The way to the current frame from anywhere.
class BRINDLE_HOST_EXPORT PLUG_CurrentFrameInterface {
public:
    virtual ~PLUG_CurrentFrameInterface() = default;
    virtual int currentFrame(const SC_SceneCommon* scene) const = 0; ///< 1 for a scene that isn't shown.
};
