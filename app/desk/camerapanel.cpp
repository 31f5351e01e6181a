#include "app/desk/camerapanel.h"

#include "app/desk/openproject.h"
#include "core/host/sc_resolution.h"
#include "core/host/sc_scene.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

namespace app::desk {

namespace {

const QColor aroundPicture(70, 70, 70);
const QColor behindPicture(255, 255, 255); ///< Seen where nothing covers it.

} // namespace

/// The surface that the picture is painted on.
class CameraPanel::Canvas final : public QWidget {
public:
    explicit Canvas(CameraPanel& panel) : QWidget(&panel), m_panel(panel)
    {
        setMinimumSize(160, 90);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    QSize sizeHint() const override { return {480, 270}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), aroundPicture);
        const TUScene* scene = m_panel.m_stage.scene();
        if (!scene)
            return;
        const SC_Resolution resolution = SC_Resolution::projectResolution(scene->projectCommon());
        const QSize fitted =
            QSize(resolution.width(), resolution.height()).scaled(size(), Qt::KeepAspectRatio).expandedTo({1, 1});
        m_panel.draw(fitted * devicePixelRatioF());
        const QRect place(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
        painter.fillRect(place, behindPicture);
        if (m_panel.m_failure.isEmpty())
            painter.drawImage(place, m_panel.m_picture);
        else
            painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, m_panel.m_failure);
    }

private:
    CameraPanel& m_panel;
};

CameraPanel::CameraPanel(PLUG_StageInterface& stage, const OpenProject& project, QWidget* parent)
    : QWidget(parent),
      m_stage(stage),
      m_project(project),
      m_canvas(new Canvas(*this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_play(new QToolButton(this)),
      m_place(new QLabel(this))
{
    m_play->setCheckable(true);
    m_play->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    m_play->setToolTip(tr("Play the scene, again and again"));
    m_slider->setToolTip(tr("The current frame"));
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_play);
    controls->addWidget(m_slider, 1);
    controls->addWidget(m_place);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_canvas, 1);
    all->addLayout(controls);
    connect(m_play, &QToolButton::clicked, this, &CameraPanel::togglePlay);
    connect(m_slider, &QSlider::valueChanged, this, &CameraPanel::moveTo);
    connect(&m_project, &OpenProject::changed, this, &CameraPanel::projectChanged);
    m_stage.addView(*this);
    projectChanged();
}

CameraPanel::~CameraPanel()
{
    m_stage.playbackController()->stop();
    m_stage.removeView(*this);
}

bool CameraPanel::isVisible() const
{
    return QWidget::isVisible() && m_canvas->isVisible();
}

void CameraPanel::showFrame()
{
    m_isStale = true;
    m_canvas->repaint();
}

void CameraPanel::projectChanged()
{
    const TUScene* scene = m_stage.scene();
    TUSceneChangeManager* changes = scene ? scene->changeManager() : nullptr;
    if (changes != m_changes) {
        m_changes = changes;
        m_connection = changes ? changes->onCurrentFrameChanged([this] { frameChanged(); }) : nullptr;
    }
    setEnabled(scene != nullptr);
    {
        const QSignalBlocker block(m_slider);
        m_slider->setRange(1, scene ? scene->getNumberOfFrames() : 1);
    }
    frameChanged();
    m_isStale = true;
    m_canvas->update();
}

void CameraPanel::frameChanged()
{
    const TUScene* scene = m_stage.scene();
    const PLUG_CurrentFrameInterface* frames = PLUG_Services::getCurrentFrameInterface();
    const int frame = scene && frames ? frames->currentFrame(scene->sceneCommon()) : 1;
    const QSignalBlocker block(m_slider);
    m_slider->setValue(frame);
    m_place->setText(scene ? tr("%1 / %2").arg(frame).arg(scene->getNumberOfFrames()) : QString());
    m_play->setChecked(m_stage.playbackController()->isPlaying());
}

void CameraPanel::togglePlay()
{
    PLUG_PlaybackController& playback = *m_stage.playbackController();
    if (playback.isPlaying()) {
        playback.stop();
    } else {
        playback.setLoop(true);
        playback.play();
    }
    m_play->setChecked(playback.isPlaying());
}

void CameraPanel::moveTo(int frame)
{
    m_stage.playbackController()->stop();
    m_stage.playbackController()->setCurrentFrame(frame);
}

void CameraPanel::draw(const QSize& pixels)
{
    if (!m_isStale && m_picture.size() == pixels)
        return;
    m_isStale = false;
    m_failure.clear();
    m_picture = m_stage.picture(pixels, m_failure);
}

} // namespace app::desk
