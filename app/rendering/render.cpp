#include "app/arguments.h"
#include "app/rendering/framelist.h"
#include "app/rendering/movie.h"
#include "app/rendering/progress.h"
#include "core/host/at_attr.h"
#include "core/host/cel_pixmap.h"
#include "core/host/cel_renderer.h"
#include "core/host/celio_manager.h"
#include "core/host/mo_node.h"
#include "core/host/sc_scene.h"
#include "core/host/sc_session.h"
#include "engine/engine.h"

#include <QDir>
#include <QFileInfo>

#include <deque>
#include <future>
#include <memory>
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
    int threads = 0;
    bool resume = false;
};

/// A node, and where the pictures of its frames go.
struct Output {
    MO_Node* node;
    QString pattern; ///< Empty: nowhere but to the movie.
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

/// The place that a WRITE node names, within the project's folder where it isn't absolute.
QString patternOf(MO_Node& node, const SC_Project& project)
{
    const auto* path = dynamic_cast<AT_StringAttr*>(node.findAttributeByKeyword(QStringLiteral("path")));
    QString pattern = path ? path->localValue() : QString();
    if (pattern.isEmpty())
        return {};
    if (!isFramePattern(pattern))
        pattern.replace(u'%', QStringLiteral("%%")).append(QStringLiteral("%04d"));
    if (QFileInfo(pattern).suffix().isEmpty() || pattern.endsWith(QStringLiteral("%04d"))) {
        const auto* format = dynamic_cast<AT_EnumAttrBase*>(node.findAttributeByKeyword(QStringLiteral("format")));
        const QString word = format ? format->options().value(format->localValue()) : QStringLiteral("PNG");
        pattern += u'.' + (word == u"JPEG" ? QStringLiteral("jpg") : word.toLower());
    }
    return QDir(project.path()).absoluteFilePath(pattern);
}

/// What is to be drawn; none, with the reason, where nothing is.
std::vector<Output> outputsOf(const Order& order, const SC_Project& project, TUScene& scene, QString& error)
{
    const SC_SceneCommon& common = *scene.sceneCommon();
    const bool isToldWhere = !order.out.isEmpty() || !order.movie.isEmpty();
    if (!order.node.isEmpty() || isToldWhere) {
        MO_Node* node = order.node.isEmpty() ? static_cast<MO_Node*>(common.defaultDisplay())
                                             : node_util::getNodeFromQualifiedName_optimized(&common, order.node);
        if (node)
            return {{node, isToldWhere ? order.out : QStringLiteral("frames/%04d.png")}};
        error =
            order.node.isEmpty()
                ? QString("The scene \"%1\" has no display that shows it; --node names what to draw.").arg(scene.name())
                : QString("The scene \"%1\" has no node \"%2\".").arg(scene.name(), order.node);
        return {};
    }
    std::vector<MO_Node*> nodes;
    scene.getRootGroup()->getRecursiveSubNodeList(nodes);
    std::vector<Output> outputs;
    for (MO_Node* node : nodes)
        if (node->typeName() == u"WRITE" && node->isEnabled())
            if (const QString pattern = patternOf(*node, project); !pattern.isEmpty())
                outputs.push_back({node, pattern});
    if (outputs.empty())
        error =
            QString("The scene \"%1\" has no WRITE node with a path; --out says where pictures go.").arg(scene.name());
    return outputs;
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

/// Draws one frame, and writes it where that is asked for. On any thread.
Result draw(const CEL_RenderJob& job, int frame, const QString& path, bool isForMovie)
{
    Result result{frame, {}, {}};
    const CA_CelRef cel = job.render(1, result.error);
    if (!cel.cel())
        return result;
    if (isForMovie)
        if (const auto pixels =
                std::dynamic_pointer_cast<const CEL_Pixmap>(cel.cel()->convertTo(CEL_Representation::PIXMAP_RGBA8)))
            result.picture = pixels->image();
    if (path.isEmpty())
        return result;
    const QFileInfo file(path);
    QDir().mkpath(file.absolutePath());
    const CELIO_WriteContext context(path, QString(), cel.cel()->impl().colorProfile(), nullptr, QVariant());
    if (!CELIO_Manager::getInstance()->write(cel.cel(), context, file.suffix(), QString()))
        result.error = QStringLiteral("\"%1\" can't be written.").arg(path);
    return result;
}

/// Draws frames of a node on so many threads, and hands each to `done` in their order.
template <typename Done>
void drawFrames(CEL_Renderer& renderer, const Output& output, const std::vector<int>& frames, const Order& order,
                Progress& progress, const Done& done)
{
    std::deque<std::future<Result>> waiting;
    QStringList told;
    const auto handOver = [&] {
        Result result = waiting.front().get();
        waiting.pop_front();
        done(std::move(result));
    };
    for (const int frame : frames) {
        const QString path = output.pattern.isEmpty() ? QString() : framePath(output.pattern, frame);
        QString error;
        std::shared_ptr<CEL_RenderJob> job = renderer.prepare(output.node, frame, order.size, error);
        if (!job) {
            while (!waiting.empty())
                handOver();
            done({frame, {}, error});
            continue;
        }
        for (const QString& remark : job->remarks())
            if (!told.contains(remark)) {
                told.append(remark);
                progress.say(remark);
            }
        waiting.push_back(std::async(std::launch::async, [job, frame, path, isForMovie = !order.movie.isEmpty()] {
            return draw(*job, frame, path, isForMovie);
        }));
        if (waiting.size() >= static_cast<std::size_t>(order.threads))
            handOver();
    }
    while (!waiting.empty())
        handOver();
}

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
    const std::vector<Output> outputs = outputsOf(order, *project, *scene, error);
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
    Movie movie;
    bool isMovieOpen = false;
    int failures = 0;
    Progress progress(total);
    for (std::size_t i = 0; i < outputs.size(); ++i)
        drawFrames(*renderer, outputs[i], missing[i], order, progress, [&](Result result) {
            if (result.error.isEmpty() && !order.movie.isEmpty()) {
                if (!isMovieOpen)
                    isMovieOpen = movie.begin(order.movie, result.picture.size(), scene->frameRate().fps(), error);
                if (isMovieOpen)
                    movie.add(result.picture, error);
                result.error = error;
            }
            if (!result.error.isEmpty()) {
                ++failures;
                progress.say(QString("Frame %1: %2").arg(result.frame).arg(result.error));
            }
            progress.advance();
        });
    if (isMovieOpen && error.isEmpty() && !movie.end(error))
        progress.say(error);
    progress.end();
    if (failures > 0)
        return fail(QString("%1 of %2 frames failed.").arg(failures).arg(total), failed);
    return error.isEmpty() ? done : failed;
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

} // namespace

int render(const QList<QByteArray>& given)
{
    Order order;
    Arguments arguments(renderUsage, given);
    const auto take = [&arguments](const char* sentence, QString& text) {
        if (arguments.takeFor(sentence))
            text = arguments.folder();
    };
    QString size;
    QString threads;
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
            take("--size needs a width and a height in pixels, as 1920x1080.", size);
        } else if (value == "--out") {
            take("--out needs the pattern of a path, as 'frames/%04d.png'.", order.out);
        } else if (value == "--movie") {
            take("--movie needs the name of an .mp4, .gif or .apng file.", order.movie);
        } else if (value == "--threads") {
            take("--threads needs a number.", threads);
        } else if (value == "--resume") {
            order.resume = true;
        } else {
            arguments.refuse();
        }
    }
    if (arguments.isHelpAsked()) {
        print(helpOf(renderUsage));
        return done;
    }
    if (order.project.isEmpty())
        arguments.misfit();
    if (!size.isEmpty() && (order.size = sizeOf(size)) == QSize())
        arguments.fail(QString("A picture can't have the size \"%1\"; as 1920x1080, with sides of 1 to %2.")
                           .arg(size)
                           .arg(CEL_Renderer::largestSide));
    bool isNumber = true;
    order.threads = threads.isEmpty() ? static_cast<int>(std::max(1u, std::thread::hardware_concurrency()))
                                      : threads.toInt(&isNumber);
    if (!isNumber || order.threads < 1 || order.threads > 256)
        arguments.fail(QString("--threads needs a number from 1 to 256, not \"%1\".").arg(threads));
    if (!order.out.isEmpty() && !isFramePattern(order.out))
        arguments.fail(QString("The path \"%1\" has no place for the number of a frame, as 'frames/%04d.png' has.")
                           .arg(order.out));
    if (order.resume && !order.movie.isEmpty())
        arguments.fail(QStringLiteral("A movie takes all frames: --resume and --movie don't go together."));
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    QString error;
    if (!order.movie.isEmpty() && !Movie::isPossible(order.movie, error))
        return fail(error, failed);
    return perform(order);
}

} // namespace app
