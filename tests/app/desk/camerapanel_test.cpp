#include "app/desk/camerapanel.h"

#include "core/host/plug_stage.h"
#include "core/host/sc_scene.h"
#include "tests/app/desk/support/desktest.h"

#include <QDockWidget>
#include <QFile>
#include <QSlider>
#include <QTimer>
#include <QToolButton>

namespace {

class CameraPanelTest : public DeskTest {
protected:
    CameraPanelTest()
    {
        window->show();
        type("app.scene.frame_count = 4; card = app.scene.nodes.create('COLOR_CARD', 'Sky')");
        type("app.scene.nodes['Top/Composite'].ports_in.create().link(card)");
        for (int frame = 1; frame <= 4; ++frame)
            type(QStringLiteral("card.attributes['colour.red'].set_value(%1, %2, False)").arg(frame).arg(50 * frame));
        runEvents(0);
    }
    ~CameraPanelTest() override { window->hide(); }

    app::desk::CameraPanel& camera() { return window->camera(); }
    /// A pixel of the picture; none where there is no picture.
    QRgb pixel() { return camera().picture().valid(2, 2) ? camera().picture().pixel(2, 2) : 0; }
    int red() { return qRed(pixel()); }
    static PLUG_StageInterface& stage() { return *Process::instance().session().stage(); }
};

TEST_F(CameraPanelTest, ThePictureIsThatOfTheCurrentFrame)
{
    EXPECT_TRUE(waitFor([this] { return red() == 50; })) << camera().failure().toStdString();
    camera().slider().setValue(3);
    EXPECT_EQ(red(), 150);
    stage().playbackController()->setCurrentFrame(99);
    EXPECT_EQ(red(), 200);
    EXPECT_TRUE(waitFor([this] { return camera().slider().value() == 4; }));
}

TEST_F(CameraPanelTest, AChangeIsSeen)
{
    type("card.attributes['colour.green'].set_value(1, 77, False)");
    EXPECT_TRUE(waitFor([this] { return qGreen(pixel()) == 77; }));
    type("_ = app.project.history.undo(1)");
    EXPECT_TRUE(waitFor([this] { return qGreen(pixel()) != 77; }));
}

TEST_F(CameraPanelTest, TheButtonPlaysOverAndOver)
{
    QStringList frames;
    const auto connection = Process::instance().session().changeManager()->onCurrentFrameChanged(
        [&] { frames.append(QString::number(camera().slider().value())); });
    camera().playButton().click();
    EXPECT_TRUE(camera().playButton().isChecked());
    EXPECT_TRUE(waitFor([&] { return frames.size() >= 6; }));
    camera().playButton().click();
    EXPECT_FALSE(stage().playbackController()->isPlaying());
    EXPECT_EQ(frames.first(6).join(","), "1,2,3,4,1,2");
}

TEST_F(CameraPanelTest, PlaybackIsMeasuredAndThePreferencesComeBack)
{
    type("app.metrics.generate_playback_rendering_time({'frame_start': 3, 'frame_end': 1, "
         "'loop_count': 2, 'cache_enabled': True})");
    EXPECT_THAT(output().toStdString(), testing::HasSubstr("Frames: "));
    runEvents(20);
    EXPECT_EQ(answerTo("app.preferences['ADVANCED_ENABLE_PERFORMANCE_REPORT'].value"), "False");
    EXPECT_EQ(answerTo("app.preferences['OPENGL_ENABLE_PLAYBACK_CACHE'].value"), "False");
    EXPECT_THAT(logged().toStdString(), testing::HasSubstr("  - Completed Playback (2)"));
    EXPECT_EQ(stage().playbackController()->startFrame(), 1);
    EXPECT_EQ(stage().playbackController()->stopFrame(), 4);
    EXPECT_FALSE(stage().playbackController()->isPlaying());
}

TEST_F(CameraPanelTest, WhoStopsThePlaybackEndsItsMeasurement)
{
    QTimer::singleShot(300, window.get(), [] { stage().playbackController()->stop(); });
    type("len(app.metrics.generate_playback_rendering_time({'loop_count': 100}))");
    EXPECT_TRUE(output().trimmed().endsWith("4")) << output().toStdString();
    EXPECT_EQ(answerTo("app.preferences['ADVANCED_ENABLE_PERFORMANCE_REPORT'].value"), "False");
}

TEST_F(CameraPanelTest, AProjectThatIsClosedEndsTheVisit)
{
    type("metrics = app.metrics");
    QTimer::singleShot(200, window.get(), [] { Process::instance().session().projectManager()->closeProject(); });
    EXPECT_EQ(answerTo("metrics.generate_node_visit_data()"), "[]");
}

TEST_F(CameraPanelTest, OtherThreadsAreRefused)
{
    type("import concurrent.futures");
    type("metrics, pool = app.metrics, concurrent.futures.ThreadPoolExecutor(1)");
    const std::pair<const char*, const char*> calls[] = {
        {"generate_node_visit_data",
         "Unable to access Node Visit Data must be run from the main thread. from another thread."},
        {"generate_playback_rendering_time",
         "Unable to access Playback metrics must be run from the main thread. from another thread."},
        {"generate_performance_report",
         "Unable to access Performance report must be run from the main thread. from another thread."}};
    for (const auto& [name, sentence] : calls)
        EXPECT_EQ(answerTo(QStringLiteral("print(pool.submit(metrics.%1).exception())").arg(name)), sentence);
}

TEST_F(CameraPanelTest, AHiddenViewIsNotMeasured)
{
    window->findChild<QDockWidget*>("camera")->hide();
    type("app.metrics.generate_playback_rendering_time()");
    EXPECT_THAT(output().toStdString(),
                testing::HasSubstr("Camera View must be visibe in order to generate playback metrics."));
    window->findChild<QDockWidget*>("camera")->show();
}

TEST_F(CameraPanelTest, AReportIsWritten)
{
    const QString file = path("report.csv");
    type(
        QStringLiteral("app.metrics.generate_performance_report({'file_path': '%1', 'split_count': 2, 'loop_count': 2, "
                       "'top_count': 2})")
            .arg(file));
    QFile report(file);
    ASSERT_TRUE(report.open(QIODevice::ReadOnly)) << output().toStdString();
    const QStringList lines = QString::fromUtf8(report.readAll()).split('\n');
    EXPECT_EQ(lines.first(), "BRINDLE PERFORMANCE METRICS,0.1");
    EXPECT_EQ(lines.at(1), QString(74, '-'));
    EXPECT_EQ(lines.filter("FRAME NUMBER,"), QStringList({"FRAME NUMBER,1", "FRAME NUMBER,3"}));
    EXPECT_TRUE(lines.contains("Target file:" + file));
    EXPECT_EQ(lines.filter("41.6667").size(), 3);
    EXPECT_EQ(lines.filter("Visible:1 View: camera").size(), 1);
    runEvents(20);
    EXPECT_THAT(logged().toStdString(), testing::HasSubstr("Report file saved to " + file.toStdString()));
}

TEST_F(CameraPanelTest, AReportThatCannotBeWrittenSaysSo)
{
    type("app.metrics.generate_performance_report({'file_path': '/nowhere/report.csv', 'split_count': 1, 'loop_count': "
         "1})");
    EXPECT_THAT(output().toStdString(), testing::HasSubstr("Unable to open file: /nowhere/report.csv"));
}

} // namespace
