#pragma once

#include "core/host/cel_cel.h"
#include "core/host/export.h"

#include <QString>
#include <QStringList>

#include <memory>

/// The way from one colour space to another. It never changes; any thread may use it.
class BRINDLE_HOST_EXPORT CEL_ColorConverter {
public:
    virtual ~CEL_ColorConverter() = default;
    /// Converts pixels of four floats each, in place: red, green and blue not multiplied by alpha, and alpha, which
    /// stays.
    virtual void convert(float* pixels, qsizetype count) const = 0;
};

/// The colour spaces that a project can work in.
class BRINDLE_HOST_EXPORT CEL_ColorSpaceManager {
public:
    virtual ~CEL_ColorSpaceManager() = default;

    /// Their names in the order in which a list shows them: those that contain the filter, whatever the case of its
    /// letters. A null or empty filter gives all.
    virtual QStringList colorSpaceNames(const QString& filter) const = 0;
    /// Whether there is a colour space of exactly this name.
    virtual bool contains(const QString& name) const = 0;
    /// Null where a name isn't known or the way can't be made; the log says why.
    virtual std::shared_ptr<const CEL_ColorConverter> converter(const QString& from, const QString& to) const = 0;
    /// The path of a file with the ICC profile of a colour space; empty for one that such profiles can't describe.
    virtual QString iccFilePath(const QString& name) const = 0;
};

/// A cel whose colours are those of another one in another colour space. They are converted when pixels are first asked
/// for, in floats; drawings, depths and 3D objects are the other cel's.
class BRINDLE_HOST_EXPORT CS_Cel final : public CEL_Cel {
public:
    /// `iccFilePath` leads to the ICC profile of the new colours; empty for none.
    CS_Cel(CEL_Cel* cel, std::shared_ptr<const CEL_ColorConverter> converter, const QString& iccFilePath);

    CEL_Representation::CelFormat realFormat() const override;
    CEL_RepresentationPtr findRepresentation(CEL_Representation::CelFormat format) const override;
    std::shared_ptr<const CELVEC_Brd> findBestVectorRepresentation() const override;

protected:
    CEL_RepresentationPtr make(CEL_Representation::CelFormat format) override;

private:
    QExplicitlySharedDataPointer<CEL_Cel> m_source;
    std::shared_ptr<const CEL_ColorConverter> m_converter;
    bool m_isConverted = false;
};
