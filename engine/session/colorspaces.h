#pragma once

#include "core/host/cel_colorspace.h"

#include <QDateTime>

#include <memory>
#include <mutex>

namespace brindle::engine {

class ColourConfiguration;

/// The colour spaces of a configuration: the one that the environment variable OCIO names; else the project's own,
/// "colour/config.ocio" in its folder; else ours, whose names are known here, so that a project that goes without
/// another one opens without the library of colours.
///
/// A configuration that can't be read has no spaces, and the log says why, once.
class ColorSpaceManager final : public CEL_ColorSpaceManager {
public:
    /// `projectFolder` is the place of the path of the project's folder; null for none.
    explicit ColorSpaceManager(const QString* projectFolder = nullptr) : m_projectFolder(projectFolder) {}

    QStringList colorSpaceNames(const QString& filter) const override;
    bool contains(const QString& name) const override;
    std::shared_ptr<const CEL_ColorConverter> converter(const QString& from, const QString& to) const override;
    QString iccFilePath(const QString& name) const override;

private:
    QString configurationFile() const; ///< Empty for ours.
    std::shared_ptr<const ColourConfiguration> configuration() const;
    QStringList names() const;

    const QString* m_projectFolder;
    mutable std::mutex m_mutex;
    mutable std::shared_ptr<const ColourConfiguration> m_loaded; ///< Null where it can't be read.
    mutable QString m_loadedFile;
    mutable QDateTime m_loadedTime;
    mutable qint64 m_loadedSize = 0;
    mutable bool m_isLoaded = false;
};

/// The names of our own configuration, in its order.
QStringList ownColorSpaceNames();

} // namespace brindle::engine
