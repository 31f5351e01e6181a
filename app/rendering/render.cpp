#include "app/arguments.h"
#include "app/rendering/framelist.h"
#include "app/rendering/movie.h"
#include "app/rendering/outputs.h"
#include "app/rendering/progress.h"
#include "app/rendering/stopsignal.h"
#include "core/host/cel_pixmap.h"
#include "core/host/cel_renderer.h"
#include "core/host/celio_manager.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "engine/engine.h"

#include <QFile>
#include <QFileInfo>

#include <deque>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace app {

namespace {

/// What to draw, as the arguments tell it. Empty texts stand for what isn't given.
struct Order {
    QString project;
    QString scene;
    QString frames;
    QString node;
    QString out;
    QString movie;
    QSize size;
    int depth = 8; ///< Bits of a channel.
    int threads = 0;
    bool resume = false;
};

/// What became of a frame.
struct Result {
    int frame;
    QImage picture; ///< For the movie.
    QString error;  ///< Empty: all is fine.
};

TUScene* sceneOf(const SC_Project& project, const QString& name)
{
    for (int i = 0; i < project.sceneCount(); ++i)
        if (auto* scene = dynamic_cast<TUScene*>(project.sceneAt(i)))
            if (name.isEmpty() || scene->name() == name)
                return scene;
    return nullptr;
}

/// Whether the picture of a frame is there already, and can be read.
bool isThere(const QString& path)
{
    if (!QFileInfo::exists(path))
        return false;
    QDateTime modified;
    QString error;
    QByteArray profile;
    std::vector<CEL_RepresentationPtr> representations;
    return CELIO_Manager::getInstance()->read(path, modified, CEL_Context(), representations, &error, &profile);
}

/// The texts that go into a frame's file beside the picture.
CELIO_WriteContext::Texts textsOf(const MO_Node& node, const QString& scene, int frame)
{
    return {{QStringLiteral("Software"), QStringLiteral("brindle " BRINDLE_VERSION)},
            {QStringLiteral("Scene"), scene},
            {QStringLiteral("Node"), node.qualifiedName()},
            {QStringLiteral("Frame"), QString::number(frame)}};
}

/// Draws one frame, and writes it where that is asked for. On any thread.
Result draw(const CEL_RenderJob& job, int frame, const QString& path, const CELIO_WriteContext::Texts& texts,
            const Order& order)
{
    Result result{frame, {}, {}};
    const CA_CelRef cel = job.render(1, result.error);
    if (!cel.cel())
        return result;
    if (!order.movie.isEmpty())
        if (const auto pixels =
                std::dynamic_pointer_cast<const CEL_Pixmap>(cel.cel()->convertTo(CEL_Representation::PIXMAP_RGBA8)))
            result.picture = pixels->image();
    if (path.isEmpty())
        return result;
    const QFileInfo file(path);
    std::error_code reason;
    std::filesystem::create_directories(QFile::encodeName(file.absolutePath()).toStdString(), reason);
    if (reason) {
        result.error = QString("The folder %1 can't be made: %2.")
                           .arg(file.absolutePath(), QString::fromStdString(reason.message()));
        return result;
    }
    CELIO_WriteContext context(path, QString(), cel.cel()->impl().colorProfile(), &texts, QVariant());
    context.setFailure(&result.error);
    context.setDepth(order.depth);
    CELIO_Manager::getInstance()->write(cel.cel(), context, file.suffix(), QString());
    return result;
}

/// Draws frames of a node on `order.threads` threads, and hands each to `done` in their order until that gives false.
template <typename Done>
void drawFrames(CEL_Renderer& renderer, const Output& output, const QString& scene, const std::vector<int>& frames,
                const Order& order, Progress& progress, const Done& done)
{
    std::deque<std::future<Result>> waiting;
    QStringList told;
    bool goesOn = true;
    const auto handOver = [&] {
        const Result result = waiting.front().get();
        waiting.pop_front();
        goesOn = done(result) && goesOn;
    };
    for (const int frame : frames) {
        if (!goesOn)
            break;
        const QString path = output.pattern.isEmpty() ? QString() : framePath(output.pattern, frame);
        QString error;
        std::shared_ptr<CEL_RenderJob> job = renderer.prepare(output.node, frame, order.size, error);
        if (!job) {
            while (!waiting.empty())
                handOver();
            goesOn = done({frame, {}, error}) && goesOn;
            continue;
        }
        for (const QString& remark : job->remarks())
            if (!told.contains(remark)) {
                told.append(remark);
                progress.say(remark);
            }
        waiting.push_back(std::async(std::launch::async, [job, frame, path, texts = textsOf(*output.node, scene, frame),
                                                          &order] { return draw(*job, frame, path, texts, order); }));
        if (waiting.size() >= static_cast<std::size_t>(order.threads))
            handOver();
    }
    while (!waiting.empty())
        handOver();
}

/// Takes the results of frames in their order: tells failures, hands pictures to the movie, and counts frames.
class Receiver {
public:
    Receiver(const Order& order, double framesPerSecond, std::size_t total)
        : m_order(order),
          m_framesPerSecond(framesPerSecond),
          m_total(total),
          m_progress(total)
    {}

    Progress& progress() { return m_progress; }

    /// False where no more frames are wanted.
    bool take(const Result& result)
    {
        if (!result.error.isEmpty()) {
            ++m_failures;
            m_progress.say(QString("Frame %1: %2").arg(result.frame).arg(result.error));
        } else {
            ++m_drawn;
            if (!m_order.movie.isEmpty() && m_movieError.isEmpty())
                addToMovie(result.picture);
        }
        m_progress.advance();
        return !StopSignal::isGiven() && (m_movieError.isEmpty() || !m_order.out.isEmpty());
    }

    /// Ends the movie, and gives the exit code.
    int end()
    {
        if (StopSignal::isGiven()) {
            m_progress.end();
            return fail(QString("Stopped: %1 of %2 frames are drawn.").arg(m_drawn).arg(m_total),
                        StopSignal::exitCode());
        }
        if (m_movie && m_movieError.isEmpty() && !m_movie->end(m_movieError))
            m_progress.say(m_movieError);
        m_progress.end();
        if (m_failures > 0)
            return fail(QString("%1 of %2 frames failed.").arg(m_failures).arg(m_total), failed);
        return m_movieError.isEmpty() ? done : failed;
    }

private:
    void addToMovie(const QImage& picture)
    {
        if (!m_movie)
            m_movie.emplace().begin(m_order.movie, picture.size(), m_framesPerSecond, m_movieError);
        if (m_movieError.isEmpty())
            m_movie->add(picture, m_movieError);
        if (!m_movieError.isEmpty() && !StopSignal::isGiven()) // Ctrl+C reaches ffmpeg as well.
            m_progress.say(m_movieError);
    }

    const Order& m_order;
    double m_framesPerSecond;
    std::size_t m_total;
    std::size_t m_drawn = 0;
    int m_failures = 0;
    Progress m_progress;
    std::optional<Movie> m_movie;
    QString m_movieError;
};

int perform(const Order& order)
{
    const auto session = SC_SessionContext::create();
    QString error;
    const SC_Project* project = session->projectManager()->openProjectReadOnly(order.project, error);
    if (!project)
        return fail(error, failed);
    TUScene* scene = sceneOf(*project, order.scene);
    if (!scene)
        return fail(QString("The project has no scene \"%1\".").arg(order.scene), misused);
    const std::vector<Output> outputs =
        outputsOf({order.node, order.out, !order.movie.isEmpty()}, *project, *scene, error);
    if (outputs.empty())
        return fail(error, misused);
    const SC_SceneCommon& common = *scene->sceneCommon();
    const QString list =
        order.frames.isEmpty() ? QString("%1-%2").arg(common.getStartFrame()).arg(common.getStopFrame()) : order.frames;
    const std::optional<std::vector<int>> frames = framesOf(list, common.getNumberOfFrames(), error);
    if (!frames)
        return fail(error, misused);
    const std::unique_ptr<CEL_Renderer> renderer = CEL_Renderer::create(error);
    if (!renderer)
        return fail(error, failed);

    std::vector<std::vector<int>> missing;
    std::size_t total = 0;
    for (const Output& output : outputs) {
        std::vector<int>& frameList = missing.emplace_back();
        for (const int frame : *frames)
            if (!order.resume || output.pattern.isEmpty() || !isThere(framePath(output.pattern, frame)))
                frameList.push_back(frame);
        total += frameList.size();
    }
    const StopSignal stop;
    Receiver receiver(order, scene->frameRate().fps(), total);
    Progress& progress = receiver.progress();
    if (order.out.isEmpty() && outputs.front().pattern == QLatin1String(defaultPattern))
        progress.say(QString("The frames go to %1.").arg(outputs.front().pattern));
    if (total == 0)
        progress.say(QStringLiteral("All frames are there."));
    for (std::size_t i = 0; i < outputs.size(); ++i)
        drawFrames(*renderer, outputs[i], scene->name(), missing[i], order, progress,
                   [&receiver](const Result& result) { return receiver.take(result); });
    return receiver.end();
}

/// A size as "1920x1080"; none for another text.
QSize sizeOf(const QString& text)
{
    const QStringList sides = text.split(u'x');
    bool isWidth = false;
    bool isHeight = false;
    const QSize size(sides.value(0).toInt(&isWidth), sides.value(1).toInt(&isHeight));
    const auto isSide = [](int side) { return side >= 1 && side <= CEL_Renderer::largestSide; };
    return sides.size() == 2 && isWidth && isHeight && isSide(size.width()) && isSide(size.height()) ? size : QSize();
}

/// Numbers of an order as they are given; empty where they aren't.
struct Numbers {
    QString size;
    QString depth;
    QString threads;
};

void read(Arguments& arguments, Order& order, Numbers& numbers)
{
    const auto take = [&arguments](const char* sentence, QString& text) {
        if (arguments.takeFor(sentence) && (text = arguments.folder()).isEmpty())
            arguments.fail(sentence);
    };
    while (arguments.next()) {
        const QByteArray& value = arguments.value();
        if (!arguments.isOption()) {
            if (order.project.isEmpty())
                order.project = arguments.folder();
            else
                arguments.misfit();
        } else if (value == "--scene") {
            take("--scene needs the name of a scene.", order.scene);
        } else if (value == "--frames") {
            take("--frames needs a list of frames, as 1-60,72.", order.frames);
        } else if (value == "--node") {
            take("--node needs the path of a node, as Top/Display.", order.node);
        } else if (value == "--size") {
            take("--size needs a width and a height in pixels, as 1920x1080.", numbers.size);
        } else if (value == "--out") {
            take("--out needs the pattern of a path, as 'frames/%04d.png'.", order.out);
        } else if (value == "--movie") {
            take("--movie needs the name of an .mp4, .gif or .apng file.", order.movie);
        } else if (value == "--depth") {
            take("--depth needs a number of bits, 8 or 16.", numbers.depth);
        } else if (value == "--threads") {
            take("--threads needs a number.", numbers.threads);
        } else if (value == "--resume") {
            order.resume = true;
        } else {
            arguments.refuse();
        }
    }
    if (order.project.isEmpty())
        arguments.misfit();
}

void convert(const Numbers& numbers, Arguments& arguments, Order& order)
{
    const auto& [size, depth, threads] = numbers;
    if (!size.isEmpty() && (order.size = sizeOf(size)) == QSize())
        arguments.fail(QString("A picture can't have the size \"%1\"; as 1920x1080, with sides of 1 to %2.")
                           .arg(size)
                           .arg(CEL_Renderer::largestSide));
    if (depth == u"16")
        order.depth = 16;
    else if (!depth.isEmpty() && depth != u"8")
        arguments.fail(QString("A channel has 8 or 16 bits, not \"%1\".").arg(depth));
    bool isNumber = true;
    order.threads = threads.isEmpty() ? static_cast<int>(std::max(1u, std::thread::hardware_concurrency()))
                                      : threads.toInt(&isNumber);
    if (!isNumber || order.threads < 1 || order.threads > 256)
        arguments.fail(QString("--threads needs a number from 1 to 256, not \"%1\".").arg(threads));
}

} // namespace

int render(const QList<QByteArray>& given)
{
    Order order;
    Numbers numbers;
    Arguments arguments(renderUsage, given);
    read(arguments, order, numbers);
    if (arguments.isHelpAsked()) {
        print(helpOf(renderUsage));
        return done;
    }
    convert(numbers, arguments, order);
    if (!order.out.isEmpty() && !isFramePattern(order.out))
        arguments.fail(QString("The path \"%1\" has no place for the number of a frame, as 'frames/%04d.png' has.")
                           .arg(order.out));
    if (!order.movie.isEmpty() && !Movie::isForm(order.movie))
        arguments.fail(QString("The movie %1 has to be an \".mp4\", \".gif\" or \".apng\" file.").arg(order.movie));
    if (order.resume && !order.movie.isEmpty())
        arguments.fail(QStringLiteral("A movie takes all frames: --resume and --movie don't go together."));
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    QString error;
    if (!order.movie.isEmpty() && !Movie::isPossible(error))
        return fail(error, failed);
    return perform(order);
}

} // namespace app
