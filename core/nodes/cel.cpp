#include "core/nodes/cel.h"

#include "core/frame/enginehold.h"
#include "core/frame/found.h"
#include "core/frame/global.h"
#include "core/geometry/rectangles.h"
#include "core/host/cel_colorspace.h"
#include "core/host/celio_manager.h"
#include "core/host/sc_session.h"
#include "core/host/td_celbr3d.h"
#include "core/nodes/celformat.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

namespace OMC {

namespace {

using Format = CEL_Representation::CelFormat;

template <typename Representation>
std::shared_ptr<const Representation> as(const CEL_RepresentationPtr& representation)
{
    return std::dynamic_pointer_cast<const Representation>(representation);
}

/// Compares two cels pixel by pixel: `isAlike` is asked with the four bytes of each.
///
/// Required: column 0 and row 0 are not looked at.
template <typename IsAlike>
bool isAlike(CEL_Cel* one, const Cel* other, IsAlike isPixelAlike)
{
    if (!other || !one || !other->cel())
        return false;
    const auto left = as<CEL_PixmapRGBA8>(one->convertTo(CEL_Representation::PIXMAP_RGBA8));
    const auto right = as<CEL_PixmapRGBA8>(other->cel()->convertTo(CEL_Representation::PIXMAP_RGBA8));
    if (!left || !right || left->width() != right->width() || left->height() != right->height())
        return false;
    for (int x = 1; x < left->width(); ++x) {
        for (int y = 1; y < left->height(); ++y) {
            if (!isPixelAlike(left->pixel(x, y), right->pixel(x, y)))
                return false;
        }
    }
    return true;
}

/// The name of a temporary file; all of them go with the process.
QString temporaryName(const QString& suffix)
{
    static PL_TemporaryDir folder;
    return folder.generateTemporaryName(suffix);
}

} // namespace

Cel::Cel(CEL_Cel* cel) : m_cel(cel) {}

Cel::Cel(const CA_CelRef& cel) : m_cel(cel) {}

void Cel::validate() const
{
    if (!m_cel.cel())
        throwInvalid();
}

bool Cel::is3D() const
{
    return m_cel.cel()->realFormat() == CEL_Representation::BR3D;
}

std::string Cel::__str__() const
{
    validate();
    const auto area = as<CEL_PixmapArea>(m_cel.cel()->findRepresentation(CEL_Representation::PIXMAP_AREA_RGBA16));
    const QString size =
        area ? QStringLiteral("%1, %2").arg(area->allocatedWidth()).arg(area->allocatedHeight()) : tr("Unknown");
    return tr("Cel(%1)").arg(size).toStdString();
}

Obj Cel::getRect() const
{
    validate();
    CEL_PixmapPtr pixels = m_cel.cel()->findBestPixmapRepresentation();
    if (!pixels)
        pixels = as<CEL_Pixmap>(m_cel.cel()->convertTo(CEL_Representation::PIXMAP_AREA_RGBA16));
    if (!pixels)
        return Obj();
    // Required: the width stands for the height as well.
    return Obj(new AllocatedRect2DI(pixels->width(), pixels->width(), 0, 0));
}

Obj Cel::getAllocatedRect() const
{
    validate();
    CEL_Cel& cel = *m_cel.cel();
    CEL_RepresentationPtr representation = cel.findRepresentation(CEL_Representation::PIXMAP_AREA_RGBA16);
    if (!representation)
        representation = cel.convertTo(CEL_Representation::PIXMAP_AREA_RGBA16);
    if (const auto area = as<CEL_PixmapArea>(representation)) {
        return Obj(new AllocatedRect2DI(area->allocatedWidth(), area->allocatedHeight(), area->allocatedX1(),
                                        area->allocatedY1()));
    }
    const CEL_PixmapPtr pixels = cel.findBestPixmapRepresentation();
    return pixels ? Obj(new AllocatedRect2DI(pixels->width(), pixels->height(), 0, 0)) : Obj();
}

bool Cel::getCel3D() const
{
    validate();
    return is3D();
}

bool Cel::compare(const Cel* other) const
{
    return isAlike(m_cel.cel(), other,
                   [](const unsigned char* one, const unsigned char* two) { return std::equal(one, one + 3, two); });
}

bool Cel::compareExr(const Cel* other) const
{
    return isAlike(m_cel.cel(), other, [](const unsigned char* one, const unsigned char* two) {
        return std::equal(one, one + 4, two, [](int a, int b) { return std::abs(a - b) <= 1; });
    });
}

// Required: a session's thread lock is all that is checked, so that a holder of no cel fails for the names first.
void Cel::convertColorSpace(const QString& from, const QString& to)
{
    validateThreadLock();
    const SC_SessionContext& session = found(Global::sessionContext(), unexpected::ErrorHasOccurred);
    const CEL_ColorSpaceManager& spaces =
        found(session.colorSpaceManager(), [] { return tr("Unable to find the colorspace manager."); });
    if (!spaces.contains(from))
        throw Exception(tr("From Colorspace (%1) cannot be found.").arg(from));
    if (!spaces.contains(to))
        throw Exception(tr("To Colorspace (%1) cannot be found.").arg(to));
    auto converter = spaces.converter(from, to);
    found(converter.get(), unexpected::ErrorHasOccurred);
    m_cel.setCel(new CS_Cel(m_cel.cel(), std::move(converter), spaces.iccFilePath(to)));
    m_cel.cel()->convertTo(CEL_Representation::PIXMAP_RGBA16);
}

void Cel::setEmpty()
{
    const EngineHold hold;
    const CA_CelKey key(CA_CelKeySpecial::emptyCel());
    m_cel.setCel(CA_CelPtr(key, CEL_Context()).cel());
}

void Cel::setImageFile(const QString& path)
{
    const EngineHold hold;
    const QFileInfo file(path);
    if (!file.exists()) {
        setEmpty();
        return;
    }
    CELIO_Manager& pictures = *CELIO_Manager::getInstance();
    const CELIO_Handler* handler = pictures.findHandler(file.completeSuffix());
    // Required: both ways of reading get the path of the folder, and not that of the file.
    const QString folder = file.path();
    if (handler && handler->formatKey() == QLatin1String(CELIO_3dFormat)) {
        auto object = std::make_shared<TD_CelBr3d>(1, QString(), -1.0);
        if (object->Load(UT_RelPath(folder.toLatin1()), m_cel.context()))
            m_cel.setCel(new CEL_Cel(std::move(object)));
        return;
    }
    QDateTime time;
    std::vector<CEL_RepresentationPtr> representations;
    pictures.read(folder, time, m_cel.context(), representations, nullptr, nullptr);
    if (representations.empty())
        return;
    auto* cel = new CEL_Cel;
    m_cel.setCel(cel);
    for (CEL_RepresentationPtr& representation : representations) {
        if (representation->format() == CEL_Representation::PIXMAP_AREA_ZBUF)
            cel->addRepresentation(std::move(representation));
        else
            cel->setRepresentation(std::move(representation));
    }
}

void Cel::createImageFile2dPrivate(const QString& path, const QString& format, const QString& writeOption)
{
    validate();
    const EngineHold hold;
    CEL_Cel& cel = *m_cel.cel();
    CELIO_WriteContext context(path, writeOption, cel.impl().colorProfile(), nullptr, QVariant());
    if (const auto asked = celFormatOf(format)) {
        cel.convertTo(*asked);
        context.setFormat(*asked);
    }
    if (!CELIO_Manager::getInstance()->write(&cel, context, QFileInfo(path).suffix(), QString()))
        throw Exception(tr("Failed to write file - check file format."));
}

QString Cel::createImageFile3dPrivate(const QString& path)
{
    const EngineHold hold;
    const auto object = as<TD_CelBr3d>(m_cel.cel()->findRepresentation(CEL_Representation::BR3D));
    if (!object)
        return {};
    if (path.isEmpty())
        return object->getDataFileSpec().GetFilePath();
    // Required: whether the link was made is not looked at.
    object->getDataFileSpec().HardLink(PL_FileSpec(path), false);
    return path;
}

QString Cel::write()
{
    validate();
    if (!is3D())
        throw Exception(tr("Unsupported 2D Cel write - supply a path and format."));
    return createImageFile3dPrivate({});
}

void Cel::write(const QString& path)
{
    write(path, QString(), QString());
}

void Cel::write(const QString& path, const QString& format, const QString& writeOption)
{
    validate();
    if (is3D())
        createImageFile3dPrivate(path);
    else
        createImageFile2dPrivate(path, format, writeOption);
}

QString Cel::workingCopy()
{
    validate();
    return workingCopyAs(is3D() ? QStringLiteral("osb") : QStringLiteral("png"), QString(), QString());
}

QString Cel::workingCopyAs(const QString& suffix, const QString& format, const QString& writeOption)
{
    validate();
    const QString name = temporaryName(suffix);
    if (is3D())
        return createImageFile3dPrivate(name);
    createImageFile2dPrivate(name, format, writeOption);
    return name;
}

} // namespace OMC
