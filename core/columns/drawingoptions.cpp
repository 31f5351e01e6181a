#include "core/columns/drawingoptions.h"

#include "core/columns/columnlist.h"
#include "core/frame/finite.h"
#include "core/host/sc_scene.h"
#include "core/host/tu_elementmgr.h"
#include "core/host/tu_pixmapformat.h"

namespace OMC {

namespace {

constexpr const char* scanTypes[] = {"COLOR", "GRAY_SCALE", "BW"};

QString tr(const char* text)
{
    return ColumnList::tr(text);
}

int scanTypeOf(const QString& text)
{
    for (int type = 0; type < static_cast<int>(std::size(scanTypes)); ++type) {
        if (text == QLatin1String(scanTypes[type]))
            return type;
    }
    return -1;
}

QStringList selectableNames(const TUPixmapFormatList& formats)
{
    QStringList names;
    for (auto format = formats.pixFmtBegin(); format != formats.pixFmtEnd(); ++format) {
        if (format->selectable())
            names.append(format->name());
    }
    return names;
}

} // namespace

DrawingOptions DrawingOptions::read(const TUScene& scene, const QVariant& options)
{
    const SC_SceneCommon* common = scene.sceneCommon();
    const TUElementMgr* elements = common ? common->elementManager() : nullptr;
    if (!elements)
        BaseObject::throwUnexpected();
    DrawingOptions read;
    int vectorType = 0;
    elements->defaults(read.scanType, read.fieldChart, read.pixmapFormat, vectorType);
    if (options.isNull())
        return read;
    if (options.typeId() != QMetaType::QVariantMap)
        throw Exception(
            tr("Drawing options should be in form: %1")
                .arg(QStringLiteral("{ \"scanType\" : \"type\", \"fieldChart\" : double, \"pixmapFormat\" : "
                                    "\"format\", \"vectorType\" : \"type\", \"createNode\" : bool }")));
    // Required: "vectorType" is taken as it is and changes nothing.
    const QVariantMap map = options.toMap();
    QStringList errors;
    if (const auto option = map.find(QStringLiteral("scanType")); option != map.end()) {
        const int type = scanTypeOf(option->toString().toUpper());
        if (type < 0)
            errors.append(tr("Only accepted scan-types are : COLOR, GRAY_SCALE, BW"));
        else
            read.scanType = type;
    }
    if (const auto option = map.find(QStringLiteral("fieldChart")); option != map.end()) {
        read.fieldChart = option->toDouble();
        requireFinite(read.fieldChart, 2);
    }
    if (const auto option = map.find(QStringLiteral("pixmapFormat")); option != map.end()) {
        const TUPixmapFormatList formats(TUPixmapFormatList::kPaint | TUPixmapFormatList::kScan |
                                         TUPixmapFormatList::kImport);
        const int format = formats.format(option->toString());
        if (format < 0)
            errors.append(tr("Failed to find a valid file format. \n Valid formats: %1 ")
                              .arg(selectableNames(formats).join(QLatin1String(", "))));
        else
            read.pixmapFormat = format;
    }
    if (const auto option = map.find(QStringLiteral("createNode")); option != map.end())
        read.createNode = option->toBool();
    if (!errors.isEmpty())
        throw Exception(errors.join(QLatin1Char('\n')));
    return read;
}

} // namespace OMC
