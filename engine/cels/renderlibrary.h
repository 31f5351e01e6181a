#pragma once

#include "core/host/cel_colorspace.h"
#include "core/host/cel_renderer.h"
#include "core/host/celio_manager.h"

#include <memory>
#include <vector>

namespace brindle::engine {

/// A configuration of colour spaces. It never changes; any thread may use it.
class ColourConfiguration {
public:
    virtual ~ColourConfiguration() = default;

    virtual QStringList names() const = 0; ///< Of the spaces that it shows, in its order.
    /// Null, with one sentence in `error`, where a name isn't known or the way can't be made.
    virtual std::shared_ptr<const CEL_ColorConverter> converter(const QString& from, const QString& to,
                                                                QString& error) const = 0;
    /// The ICC profile of a space, as a file holds it; empty for one that such profiles can't describe.
    virtual QByteArray iccProfile(const QString& name) const = 0;
};

/// What the engine asks of libBrindleRender, which is loaded at the first of these questions: a script that has to do
/// with no picture never maps the libraries of images and colour. Failures are one sentence in `error`. Any thread may
/// ask.
class RenderLibrary {
public:
    virtual ~RenderLibrary() = default;

    /// Loads the library at the first call; null where that fails.
    static const RenderLibrary* find(QString& error);

    /// Fills the list with the representations of the picture in a file.
    virtual bool read(const QString& path, const QString& formatKey,
                      std::vector<CEL_RepresentationPtr>& representations, QByteArray& colorProfile,
                      QString& error) const = 0;
    virtual bool write(const CEL_Pixmap& picture, const CELIO_WriteContext& context, const QString& formatKey,
                       QString& error) const = 0;

    /// The configuration in a file, or our own for an empty path. Null on failure.
    virtual std::shared_ptr<const ColourConfiguration> configuration(const QString& path, QString& error) const = 0;

    virtual std::unique_ptr<CEL_Renderer> renderer() const = 0;
};

} // namespace brindle::engine
