#include "core/metrics/metrics.h"

#include "core/frame/exception.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/frame/optionfields.h"
#include "core/host/lay_view.h"
#include "core/host/mo_node.h"
#include "core/host/msg_scope.h"
#include "core/host/plug_stage.h"
#include "core/host/pr_preference.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "core/host/scp_pythonengine.h"
#include "core/host/tu_dbscenedata.h"
#include "core/host/tu_layoutmanager.h"
#include "core/host/tu_message.h"
#include "core/host/ut_path.h"
#include "core/host/ut_performance.h"
#include "core/host/ut_tracking.h"
#include "core/metrics/nodevisitoptions.h"
#include "core/metrics/performancereport.h"
#include "core/metrics/playbackoptions.h"
#include "core/metrics/reportoptions.h"

#include <QCursor>
#include <QDateTime>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <numeric>

namespace OMC {

namespace {

constexpr int settlingTime = 1000; ///< In milliseconds: until the views show a scene that was changed.
constexpr int watchTime = 100;     ///< In milliseconds.
constexpr int mostLoops = 100;

const QString performanceReport = QStringLiteral("ADVANCED_ENABLE_PERFORMANCE_REPORT");
const QString playbackCache = QStringLiteral("OPENGL_ENABLE_PLAYBACK_CACHE");

int finishedLoops = 0; ///< Of the playback that is measured in this process.

/// The thread rules let any thread of a plain interpreter into the engine; timers and views have one thread only.
void requireMainThread(const QString& sentence)
{
    BaseObject::throwIfNotMainThread(sentence);
    if (qApp && QThread::currentThread() != qApp->thread())
        throw Exception(QStringLiteral("Unable to access %1 from another thread.").arg(sentence));
}

TUScene* sceneOf(const PLUG_StageInterface* stage)
{
    return stage ? stage->scene() : nullptr;
}

PLUG_PlaybackController* controllerOf(const PLUG_StageInterface* stage)
{
    return stage ? stage->playbackController() : nullptr;
}

void logLocked(const QString& text)
{
    const SC_SessionContext* session = Global::sessionContext();
    if (SCP_PythonEngine* engine = session ? session->pythonEngine() : nullptr)
        engine->log(text);
    MSG_Scope(text, MSG_Scope::kLog);
}

bool isCameraViewVisible()
{
    const TULayoutArea* area = TULayoutManager::instance()->findArea(QStringLiteral("Camera"));
    return area && std::any_of(area->views.begin(), area->views.end(),
                               [](const LAY_View* view) { return view->widget().isValid() && view->isVisible(); });
}

class WaitCursor {
public:
    WaitCursor()
    {
        if (qGuiApp)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor()
    {
        if (qGuiApp)
            QGuiApplication::restoreOverrideCursor();
    }
};

/// Runs the event loop until a result is there. Where nothing is under way any more, as when the project was closed
/// or the playback stopped meanwhile, none will come.
void wait(const Metrics& metrics, const std::function<bool()>& isUnderWay)
{
    const WaitCursor cursor;
    QEventLoop loop;
    QObject::connect(&metrics, &Metrics::resultAvailable, &loop, &QEventLoop::quit);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (!isUnderWay())
            loop.quit();
    });
    watch.start(watchTime);
    loop.exec();
}

/// Sets two preferences; nobody is told.
void setPreferences(bool measures, bool keepsPictures)
{
    const PR_Preference::DisableEventsScope silence;
    tuPref()->setBoolValue(performanceReport, measures);
    tuPref()->setBoolValue(playbackCache, keepsPictures);
}

/// A figure of each node.
template <typename Number>
using Figures = std::vector<std::pair<QString, Number>>;

/// Appends a list: its heading, the sum, and the nodes with the most. Gives the sum.
template <typename Number>
Number appendList(QStringList& lines, const QString& heading, Figures<Number>& figures, int topCount)
{
    std::sort(figures.begin(), figures.end(),
              [](const auto& left, const auto& right) { return left.second > right.second; });
    const Number sum = std::accumulate(figures.begin(), figures.end(), Number(),
                                       [](Number before, const auto& figure) { return before + figure.second; });
    lines << heading << QStringLiteral("Total: %2").arg(sum);
    for (int place = 0; place < topCount; ++place) {
        const auto& [name, figure] = figures[static_cast<std::size_t>(place)];
        lines << name + QStringLiteral(": %1").arg(figure);
    }
    return sum;
}

} // namespace

struct Metrics::Private {
    SC_SceneCommon* sceneCommon = nullptr; ///< Of the playback that is measured.
    PLUG_PlaybackController* playback = nullptr;
    std::shared_ptr<void> connection; ///< To the frames of the scene.
    QList<QString> lines;             ///< The result of the present run.
    qint64 originalStart = 0;
    qint64 originalStop = 0;
    bool savedPerformanceReport = false;
    bool savedPlaybackCache = false;
    std::vector<double> fpsSamples; ///< Of the present loop.
    std::map<int, double> loopFps;  ///< The average of each loop.
    qint64 startFrame = 1;
    qint64 stopFrame = 1;
    int loopsLeft = 0;
    int topCount = 10;
    PerformanceReport::Totals totals;
};

Metrics::Metrics() : d(new Private)
{
    resetTotals();
}

Metrics::Metrics(const Metrics& other) : BaseObject(other), d(new Private) {}

Metrics::~Metrics() = default;

std::string Metrics::__str__() const
{
    return "Metrics()";
}

void Metrics::reset()
{
    d->lines.clear();
}

void Metrics::resetTotals()
{
    reset();
    d->totals = {};
}

QList<QString> Metrics::generateNodeVisitData(const Obj& options)
{
    requireMainThread(QStringLiteral("Node Visit Data must be run from the main thread."));
    reset();
    TUMessage* messages = TUMessage::instance();
    const bool wasQuiet = messages->isQuiet();
    messages->setQuiet(true);
    const auto restored = qScopeGuard([&] { messages->setQuiet(wasQuiet); });

    const SC_SessionContext& session = found(Global::sessionContext(), &BaseObject::throwUnexpected);
    const PLUG_StageInterface* stage = PLUG_Services::getStageInterface();
    TUScene& scene = found(sceneOf(stage), &BaseObject::throwUnexpected);
    TUSceneChangeManager& changes = found(session.changeManager(), &BaseObject::throwUnexpected);
    changes.emitCurrentSceneChanged(&scene);
    changes.forceNotify();
    const PLUG_CurrentFrameInterface* frames = PLUG_Services::getCurrentFrameInterface();
    d->topCount = 10;
    d->startFrame = frames ? frames->currentFrame(scene.sceneCommon()) : 1;
    if (const auto* visit = options::in<const NodeVisitOptions>(
            options, [] { return QStringLiteral("Invalid NodeVisit_Options object provided in options argument."); })) {
        d->topCount = visit->topCount;
        if (visit->frame != 0)
            d->startFrame = visit->frame;
        if (!visit->cacheEnabled) {
            changes.viewCacheInvalidated();
            changes.forceNotify();
        }
    }
    if (!qApp) {
        // Without an event loop there are no views that have to settle.
        calculateNodeVisit();
        return d->lines;
    }
    QTimer::singleShot(settlingTime, this, &Metrics::calculateNodeVisit);
    wait(*this, [] { return sceneOf(PLUG_Services::getStageInterface()) != nullptr; });
    return d->lines;
}

void Metrics::calculateNodeVisit()
{
    const PLUG_StageInterface* stage = PLUG_Services::getStageInterface();
    TUScene* scene = sceneOf(stage);
    if (!scene || !controllerOf(stage))
        return;
    controllerOf(stage)->setCurrentFrame(static_cast<int>(d->startFrame));

    Figures<qint64> hits;
    Figures<double> traverse;
    Figures<double> compute;
    Figures<double> render;
    std::vector<MO_Node*> nodes;
    scene->getRootGroup()->getRecursiveSubNodeList(nodes);
    for (const MO_Node* node : nodes) {
        const std::shared_ptr<TIR_PerformanceTimer> timer = node->performanceTimer();
        if (!timer || timer->count() == 0)
            continue;
        const QString name = node->qualifiedName();
        hits.emplace_back(name, timer->count());
        traverse.emplace_back(name, double(timer->traverseTime()) / 1000000.0);
        compute.emplace_back(name, double(timer->computeTime()) / 1000000.0);
        render.emplace_back(name, double(timer->renderTime()) / 1000000.0);
    }
    d->topCount = std::clamp(d->topCount, 0, static_cast<int>(hits.size()));
    d->totals.hits += appendList(d->lines, QStringLiteral("Hit Count"), hits, d->topCount);
    d->totals.traverse += appendList(d->lines, QStringLiteral("\nTraverse Time (msec)"), traverse, d->topCount);
    d->totals.compute += appendList(d->lines, QStringLiteral("\nCompute Time (msec)"), compute, d->topCount);
    d->totals.render += appendList(d->lines, QStringLiteral("\nRender Time (msec)"), render, d->topCount);
    ++d->totals.visits;
    Q_EMIT resultAvailable();
}

QList<QString> Metrics::generatePlaybackRenderingTime(const Obj& options)
{
    requireMainThread(QStringLiteral("Playback metrics must be run from the main thread."));
    reset();
    if (!isCameraViewVisible())
        throw Exception(QStringLiteral("Camera View must be visibe in order to generate playback metrics."));
    const SC_SessionContext& session = found(Global::sessionContext(), &BaseObject::throwUnexpected);
    TUSceneChangeManager& changes = found(session.changeManager(), &BaseObject::throwUnexpected);
    d->connection = changes.onCurrentFrameChanged([this] { onCurrentFrameChanged(); });

    const PLUG_StageInterface* stage = PLUG_Services::getStageInterface();
    const TUScene& scene = found(sceneOf(stage), &BaseObject::throwUnexpected);
    d->sceneCommon = scene.sceneCommon();
    d->playback = &found(controllerOf(stage), &BaseObject::throwUnexpected);
    d->startFrame = d->originalStart = d->playback->startFrame();
    d->stopFrame = d->originalStop = d->playback->stopFrame();
    d->loopsLeft = 1;
    bool keepsPictures = PR_CachedPreferences::getOpenGLEnablePlaybackCache();
    if (const auto* chosen = options::in<const PlaybackOptions>(
            options, [] { return QStringLiteral("Invalid Playback_Options object provided in options argument."); })) {
        if (chosen->frameStart != 0)
            d->startFrame = chosen->frameStart;
        d->stopFrame = std::min(chosen->frameEnd == 0 ? d->stopFrame : chosen->frameEnd,
                                static_cast<qint64>(scene.getNumberOfFrames()));
        d->loopsLeft = std::clamp(chosen->loopCount, 1, mostLoops);
        keepsPictures = chosen->cacheEnabled;
        if (d->stopFrame < d->startFrame)
            std::swap(d->startFrame, d->stopFrame);
    }
    d->fpsSamples.clear();
    d->loopFps.clear();
    d->savedPerformanceReport = PR_CachedPreferences::getAdvancedEnablePerformanceReport();
    d->savedPlaybackCache = PR_CachedPreferences::getOpenGLEnablePlaybackCache();
    setPreferences(true, keepsPictures);
    d->playback->setCurrentFrame(static_cast<int>(d->startFrame));
    UT_PerformanceReportManager::instance()->resetAverages(0, 1);
    d->playback->setStartFrame(static_cast<int>(d->startFrame));
    d->playback->setStopFrame(static_cast<int>(d->stopFrame));
    d->playback->setLoop(d->loopsLeft > 1);
    d->playback->play();
    wait(*this, [] {
        const PLUG_StageInterface* playing = PLUG_Services::getStageInterface();
        return sceneOf(playing) && controllerOf(playing)->isPlaying();
    });
    if (d->loopsLeft > 0 && PLUG_Services::getStageInterface())
        endPlayback();
    return d->lines;
}

void Metrics::onCurrentFrameChanged()
{
    const PLUG_CurrentFrameInterface* frames = PLUG_Services::getCurrentFrameInterface();
    if (!frames || !d->sceneCommon || d->loopsLeft <= 0)
        return;
    const int frame = frames->currentFrame(d->sceneCommon);
    d->fpsSamples.push_back(d->playback->currentFramesPerSecond());
    if (d->stopFrame > frame)
        return;
    if (d->fpsSamples.size() > 1) {
        logLocked(QStringLiteral("  - Completed Playback (%1)\n").arg(finishedLoops + 1));
        const double sum = std::accumulate(d->fpsSamples.begin(), d->fpsSamples.end(), 0.0);
        d->loopFps[finishedLoops++] = sum / double(d->fpsSamples.size());
        d->fpsSamples.clear();
    }
    if (--d->loopsLeft == 0)
        endPlayback();
}

void Metrics::endPlayback()
{
    d->loopsLeft = 0;
    d->playback->setLoop(false);
    setPreferences(d->savedPerformanceReport, d->savedPlaybackCache);
    UT_PerformanceReportManager::instance()->getAverages(d->lines);
    d->playback->setStartFrame(static_cast<int>(d->originalStart));
    d->playback->setStopFrame(static_cast<int>(d->originalStop));
    d->playback->stop();
    finishedLoops = 0;
    Q_EMIT resultAvailable();
}

QList<QString> Metrics::generateStaticInfo()
{
    const UT_Tracking& machine = UT_Tracking::instance();
    QList<QString> lines{
        machine.applicationFullName(),
        QStringLiteral("Graphics Card: %1 (%2)").arg(machine.graphicsCard(), machine.graphicsVersion()),
        QStringLiteral("Driver: %1").arg(machine.driver()),
        QStringLiteral("CPU: %1").arg(machine.cpu()),
        QStringLiteral("Memory: %1").arg(machine.memory()),
        QStringLiteral("Database: %1").arg(machine.database()),
        QStringLiteral("Language: %1").arg(machine.language()),
    };
    const SC_SessionContext* session = Global::sessionContext();
    const SC_ProjectCommon* project = session ? session->projectCommon() : nullptr;
    if (const TUDbSceneData* data = project ? project->dbSceneData() : nullptr) {
        lines << QStringLiteral("Scene: %1").arg(data->sceneName())
              << QStringLiteral("Version: %1").arg(data->versionName())
              << QStringLiteral("Project Dir: %1").arg(data->projectDir());
    }
    for (const TULayoutFrame* frame : TULayoutManager::instance()->frames()) {
        for (const TULayoutArea& area : frame->areas) {
            for (const LAY_View* view : area.views) {
                const QRect place = view->geometry();
                lines << QStringLiteral("Visible:%1 View: %2: Geometry: QRect(%3,%4 %5 x %6)")
                             .arg(QString::number(view->isVisible()), view->name(), QString::number(place.x()),
                                  QString::number(place.y()), QString::number(place.width()),
                                  QString::number(place.height()));
            }
        }
    }
    return lines;
}

void Metrics::generatePerformanceReport(const Obj& options)
{
    requireMainThread(QStringLiteral("Performance report must be run from the main thread."));
    resetTotals();
    const SC_SessionContext& session = found(Global::sessionContext(), &BaseObject::throwUnexpected);
    const SC_ProjectCommon& project = found(session.projectCommon(), &BaseObject::throwUnexpected);
    const TUDbSceneData& data = found(project.dbSceneData(), &BaseObject::throwUnexpected);
    const PLUG_PlaybackController& controller = found(controllerOf(PLUG_Services::getStageInterface()), [] {
        return QStringLiteral("Error getting the scene parameters.");
    });

    PerformanceReport report;
    report.path = oswRemapPath::RemapPath2(data.sceneDir() + u'/' + QStringLiteral("report_") +
                                           QDateTime::currentDateTime().toString(QStringLiteral("ddMMMyy_hh_mm_ss")) +
                                           QStringLiteral(".csv"));
    report.start = controller.startFrame();
    report.stop = controller.stopFrame();
    report.fps = project.frameRate().fps();
    int topCount = 5;
    qint64 step = 10;
    bool keepsPictures = PR_CachedPreferences::getOpenGLEnablePlaybackCache();
    if (const auto* chosen = options::in<const ReportOptions>(
            options, [] { return QStringLiteral("Invalid Report_Options object provided in options argument."); })) {
        const auto take = [](int chosenNumber, auto& number) {
            if (chosenNumber != 0)
                number = chosenNumber;
        };
        if (!chosen->filePath.isEmpty())
            report.path = chosen->filePath;
        take(chosen->frameStart, report.start);
        take(chosen->frameEnd, report.stop);
        take(chosen->loopCount, report.loops);
        take(chosen->topCount, topCount);
        keepsPictures = chosen->cacheEnabled;
        if (chosen->splitCount != 0) {
            report.splitCount = chosen->splitCount;
            step = std::max<qint64>((report.stop - report.start + 1) / report.splitCount, 1);
        }
    }
    logLocked(QStringLiteral("Testing will now begin. Please do not perform any action till testing is complete.\n"));
    logLocked(QStringLiteral("\n"));
    report.staticInfo = generateStaticInfo();

    QTextStream interactive(&report.interactive);
    interactive << "\nNODE VISIT DATA\n";
    auto* visit = new NodeVisitOptions;
    const Obj visitOptions(visit);
    visit->topCount = topCount;
    for (qint64 frame = report.start; frame <= report.stop; frame += step) {
        visit->frame = static_cast<int>(frame);
        logLocked(QStringLiteral("  - Testing Interactive Frame %1\n").arg(frame));
        const QList<QString> lines = generateNodeVisitData(visitOptions);
        interactive << "\nFRAME NUMBER," << frame << "\n-----------------------\n";
        for (QString line : lines)
            interactive << line.replace(u':', u',') << "\n";
    }
    interactive.flush();

    auto* playback = new PlaybackOptions;
    const Obj playbackOptions(playback);
    playback->frameStart = static_cast<int>(report.start);
    playback->frameEnd = static_cast<int>(report.stop);
    playback->loopCount = report.loops;
    playback->cacheEnabled = keepsPictures;
    logLocked(QStringLiteral("  - Testing Playback (%1 - %2)\n").arg(report.start).arg(report.stop));
    report.playback = generatePlaybackRenderingTime(playbackOptions);

    report.totals = d->totals;
    report.loopFps = d->loopFps;
    QFile file(report.path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        throw Exception(QStringLiteral("Unable to open file: %1").arg(report.path));
    file.write(report.text().toUtf8());
    logLocked(QStringLiteral("Testing completed.\n"));
    logLocked(QStringLiteral("Report file saved to %1\n").arg(report.path));
}

} // namespace OMC
