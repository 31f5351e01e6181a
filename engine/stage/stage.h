#pragma once

#include "core/host/cel_renderer.h"
#include "core/host/plug_stage.h"
#include "core/host/sc_session.h"
#include "engine/stage/playback.h"

#include <map>
#include <memory>
#include <vector>

namespace brindle::engine {

class Scene;

/// What a session shows: the first scene of its open project, at the current frame, in the views that were added. It
/// belongs to the session.
///
/// A frame is drawn also where no view is visible, so that what it takes can be measured. With the preference
/// "OPENGL_ENABLE_PLAYBACK_CACHE", pictures of frames are kept while the scene is played and doesn't change.
class Stage final : public PLUG_StageInterface, public PLUG_CurrentFrameInterface {
public:
    explicit Stage(SC_SessionContext& session) : m_session(session) {}

    void show();           ///< Shows the current frame at once.
    void announceFrame();  ///< Tells the listeners of the scene's change manager.
    void forgetPictures(); ///< Those of frames that were played.
    void projectGone();    ///< Another project is open, or none.

    SC_SessionContext* session() const override { return &m_session; }
    TUScene* scene() const override;
    PLUG_PlaybackController* playbackController() const override { return const_cast<Playback*>(&m_playback); }
    void addView(PLUG_StageView& view) override { m_views.push_back(&view); }
    void removeView(PLUG_StageView& view) override { std::erase(m_views, &view); }
    QImage picture(const QSize& size, QString& error) override;

    int currentFrame(const SC_SceneCommon* scene) const override;

private:
    QImage draw(Scene& scene, int frame, const QSize& size, QString& error);

    static constexpr qint64 kMostKept = qint64(256) << 20; ///< Bytes of pictures of frames.

    struct Kept {
        std::map<int, QImage> pictures; ///< By their frames.
        QSize size;
        std::uint64_t revision = 0; ///< Of the scene.
        qint64 bytes = 0;
    };

    SC_SessionContext& m_session;
    Playback m_playback{*this};
    std::vector<PLUG_StageView*> m_views;
    std::unique_ptr<CEL_Renderer> m_renderer; ///< Made with the first picture.
    Kept m_kept;
};

} // namespace brindle::engine
