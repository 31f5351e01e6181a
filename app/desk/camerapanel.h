#pragma once

#include "core/host/plug_stage.h"

#include <QImage>
#include <QWidget>

#include <memory>

class QLabel;
class QSlider;
class QToolButton;
class TUSceneChangeManager;

namespace app::desk {

class OpenProject;

/// The camera view: what the scene's display shows at the current frame, with a slider for the frame and a button that
/// plays. It draws anew when the project changes, the next time that it is seen.
class CameraPanel final : public QWidget, private PLUG_StageView {
    Q_OBJECT

public:
    /// The stage and the project outlive it.
    CameraPanel(PLUG_StageInterface& stage, const OpenProject& project, QWidget* parent = nullptr);
    ~CameraPanel() override;

    QSlider& slider() const { return *m_slider; }
    QToolButton& playButton() const { return *m_play; }
    const QImage& picture() const { return m_picture; }  ///< The one that was drawn last.
    const QString& failure() const { return m_failure; } ///< The reason why there is none.

private:
    class Canvas;

    bool isVisible() const override;
    void showFrame() override;

    void projectChanged();
    void frameChanged();
    void togglePlay();
    void moveTo(int frame);
    void draw(const QSize& pixels);

    PLUG_StageInterface& m_stage;
    const OpenProject& m_project;
    Canvas* m_canvas;
    QSlider* m_slider;
    QToolButton* m_play;
    QLabel* m_place;
    QImage m_picture;
    QString m_failure;
    bool m_isStale = true;
    TUSceneChangeManager* m_changes = nullptr; ///< Only to be compared.
    std::shared_ptr<void> m_connection;        ///< To the frames of the scene.
};

} // namespace app::desk
