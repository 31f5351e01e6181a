#include "engine/folder/projectfile.h"

#include "engine/elements/elementfile.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/projectfolder.h"
#include "engine/folder/scenefilenames.h"

namespace brindle::engine {

namespace {

constexpr char projectFormat[] = "brindle-project";
constexpr int projectVersion = 3;

void writePicture(JsonWriter& json, const Picture& picture)
{
    const SC_Resolution& resolution = picture.resolution;
    json.beginObject();
    if (!resolution.name().isEmpty())
        json.key("name").text(resolution.name());
    json.key("width").integer(resolution.width());
    json.key("height").integer(resolution.height());
    json.key("fovFit").text(resolution.fovFit() == TUDbResolution::kFitHeight ? "HEIGHT" : "WIDTH");
    json.key("fov").number(picture.fov);
    json.key("projection").text(resolution.projection() == TUDbResolution::kPerspective ? "PERSPECTIVE" : "ORTHOGONAL");
    json.endObject();
}

Picture readPicture(const JsonPlace& place)
{
    place.requireOnly({"name", "width", "height", "fovFit", "fov", "projection"});
    const auto named = place.ifField("name");
    const QString name = named ? named->text() : QString();
    const int width = place.field("width").integer(1);
    const int height = place.field("height").integer(1);
    const auto fit = static_cast<TUDbResolution::FovFit>(place.field("fovFit").oneOf({"HEIGHT", "WIDTH"}));
    const auto projection =
        static_cast<TUDbResolution::Projection>(place.field("projection").oneOf({"PERSPECTIVE", "ORTHOGONAL"}));
    const Picture picture{SC_Resolution(name, width, height, fit, projection), place.field("fov").number()};
    if (!name.isEmpty() && Picture::named(name).resolution.width() == 0)
        named->fail(QStringLiteral("is no named resolution"));
    if (!isAcceptable(picture))
        place.fail(QStringLiteral("is no resolution that a project can have"));
    return picture;
}

void writeMetrics(JsonWriter& json, const ProjectSettings& settings)
{
    json.beginObject();
    json.key("aspectRatio").beginArray(JsonWriter::Inline);
    json.integer(settings.aspectRatio.x);
    json.integer(settings.aspectRatio.y);
    json.endArray();
    json.key("fieldChart").beginArray(JsonWriter::Inline);
    json.number(settings.fieldChart.x);
    json.number(settings.fieldChart.y);
    json.number(settings.fieldChart.z);
    json.endArray();
    json.key("center").beginArray(JsonWriter::Inline);
    json.integer(settings.center.x);
    json.integer(settings.center.y);
    json.endArray();
    json.endObject();
}

void readMetrics(const JsonPlace& place, ProjectSettings& settings)
{
    place.requireOnly({"aspectRatio", "fieldChart", "center"});
    const JsonPlace ratio = place.field("aspectRatio");
    settings.aspectRatio = {ratio.item(0).integer(1), ratio.item(1).integer(1)};
    ratio.requireSize(2);
    const JsonPlace chart = place.field("fieldChart");
    settings.fieldChart = {chart.item(0).number(), chart.item(1).number(), chart.item(2).number()};
    chart.requireSize(3);
    if (!isAcceptable(settings.fieldChart))
        chart.fail(QStringLiteral("is no field chart that a project can have"));
    const JsonPlace center = place.field("center");
    settings.center = {center.item(0).integer(), center.item(1).integer()};
    center.requireSize(2);
}

void readSettings(const JsonPlace& root, ProjectSettings& settings)
{
    settings.picture = readPicture(root.field("resolution"));
    const JsonPlace space = root.field("colourSpace");
    settings.colorSpace = space.text();
    if (!isAcceptable(settings.colorSpace))
        space.fail(QStringLiteral("is empty"));
    const JsonPlace density = root.field("textureDensity");
    density.requireOnly({"bitmap", "vector"});
    settings.advancedFlags.setPixelPerModelUnitForBitmapLayers(density.field("bitmap").number());
    settings.advancedFlags.setPixelPerModelUnitForVectorLayers(density.field("vector").number());
    if (!isAcceptable(settings.advancedFlags))
        density.fail(QStringLiteral("is not above 0"));
    readMetrics(root.field("metrics"), settings);
}

QStringList readSceneFiles(const JsonPlace& scenes)
{
    QStringList files;
    for (int i = 0; i < scenes.size(); ++i) {
        const JsonPlace scene = scenes.item(i);
        if (!isSceneFileName(scene.text()))
            scene.fail(QStringLiteral("is no file of a scene"));
        if (files.contains(scene.text()))
            scene.fail(QStringLiteral("is the file of another scene"));
        files.append(scene.text());
    }
    if (files.isEmpty())
        scenes.fail(QStringLiteral("has no scene"));
    return files;
}

} // namespace

QByteArray projectFileText(const ProjectRecord& record, const QStringList& sceneFiles)
{
    const ProjectSettings& settings = record.settings;
    JsonWriter json;
    json.beginObject();
    json.key("format").text(projectFormat);
    json.key("version").integer(projectVersion);
    if (!record.lastChange.isEmpty())
        json.key("lastChange").text(record.lastChange);
    json.key("resolution");
    writePicture(json, settings.picture);
    json.key("colourSpace").text(settings.colorSpace);
    json.key("textureDensity").beginObject();
    json.key("bitmap").number(settings.advancedFlags.pixelPerModelUnitForBitmapLayers());
    json.key("vector").number(settings.advancedFlags.pixelPerModelUnitForVectorLayers());
    json.endObject();
    json.key("metrics");
    writeMetrics(json, settings);
    if (record.hasElements)
        json.key("elements").text(elementFileName);
    json.key("scenes").beginArray();
    for (const QString& file : sceneFiles)
        json.text(file);
    json.endArray();
    json.endObject();
    return json.result();
}

QStringList readProjectFile(const JsonFile& file, ProjectRecord& record)
{
    const JsonPlace root = file.root();
    if (root.requireFormat(projectFormat, projectVersion) == 1) {
        root.requireOnly({"format", "version", "scenes"});
    } else {
        root.requireOnly({"format", "version", "lastChange", "resolution", "colourSpace", "textureDensity", "metrics",
                          "elements", "scenes"});
        record.hasElements = root.has("elements");
        if (record.hasElements)
            root.field("elements").oneOf({elementFileName});
        if (const auto change = root.ifField("lastChange"))
            record.lastChange = change->text();
        readSettings(root, record.settings);
    }
    return readSceneFiles(root.field("scenes"));
}

} // namespace brindle::engine
