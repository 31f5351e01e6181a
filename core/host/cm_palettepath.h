#pragma once

#include "core/host/export.h"
#include "core/host/ut_path.h"

#include <QString>

/// The path of a palette's file.
class BRINDLE_HOST_EXPORT CM_PalettePathI {
public:
    virtual ~CM_PalettePathI() = default;

    virtual VFS_Path path() const = 0;                      ///< The folder that the file lies in.
    virtual QString filename(bool withExtension) const = 0; ///< The whole path of the file, with or without ".plt".
    bool isEqual(const CM_PalettePathI& other) const { return filename(true) == other.filename(true); }
};

/// A path that is told as text.
class BRINDLE_HOST_EXPORT CM_PalettePathFile final : public CM_PalettePathI {
public:
    explicit CM_PalettePathFile(const QString& file); ///< With or without ".plt"; made absolute.

    VFS_Path path() const override;
    QString filename(bool withExtension) const override;

private:
    QString m_file; ///< Without the extension.
};
