#pragma once

#include "core/host/export.h"
#include "core/host/ut_path.h"

#include <QString>

class SC_ProjectCommon;

/// Where palettes lie, by the engine's letters.
enum CM_LocationType {
    CM_Environment = 86,  ///< 'V': a folder that all jobs of the person share.
    CM_Job = 74,          ///< 'J': a folder that the projects of a job share.
    CM_Scene = 83,        ///< 'S': "palette-library" in the project's folder.
    CM_Element = 69,      ///< 'E': "palette-library" in an element's folder.
    CM_ElementOther = 79, ///< 'O': elsewhere in an element's folder.
    CM_External = 88,     ///< 'X': anywhere else.
    CM_Backup = 66        ///< 'B': among the removed files, in a folder ".deleted".
};

/// The path of a palette's file.
class BRINDLE_HOST_EXPORT CM_PalettePathI {
public:
    virtual ~CM_PalettePathI() = default;

    virtual VFS_Path path() const = 0;                      ///< The folder that the file lies in.
    virtual QString filename(bool withExtension) const = 0; ///< The whole path of the file, with or without ".plt".
    bool isEqual(const CM_PalettePathI& other) const { return filename(false) == other.filename(false); }
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

/// A path by location: the folder of a kind, and the file of a name in it (CM_PalettePathGen::FileName).
///
/// Environment and job lie where the person's preferences "PALETTE_ENVIRONMENT_FOLDER" and "PALETTE_JOB_FOLDER" say,
/// else in "environment" and "job" of the person's data folder ("~/.local/share/brindle/palettes"). A folder outside
/// the person's home that the person may not write counts as not set. External and backup have no folder of their own,
/// and an element that isn't there has none: both texts are empty then.
class BRINDLE_HOST_EXPORT CM_PalettePathProject final : public CM_PalettePathI {
public:
    /// `kind` is a CM_LocationType; `elementId` counts for an element's only.
    CM_PalettePathProject(const SC_ProjectCommon* project, int kind, const QString& name, int elementId = -1);

    VFS_Path path() const override { return VFS_Path(m_folder); }
    QString filename(bool withExtension) const override;

private:
    QString m_folder;
    QString m_name;
};

/// The folder whose palette list is that of a project or of an element.
class BRINDLE_HOST_EXPORT CM_PaletteListPathProject {
public:
    /// `kind` 0 is the project, CM_Element an element. Without a folder (the project is gone, no such element) the path
    /// is empty.
    CM_PaletteListPathProject(const SC_ProjectCommon* project, int kind, unsigned int elementId);

    VFS_Path path() const { return VFS_Path(m_folder); }

private:
    QString m_folder;
};

/// Makes paths for new palettes.
class BRINDLE_HOST_EXPORT CM_PalettePathGen {
public:
    static CM_PalettePathGen* GetInstance();

    /// A path that no palette has, neither as a file nor on a list: the base, or the base with "_1", "_2", ... behind
    /// it. A relative base starts in "palette-library" below the folder of a list.
    CM_PalettePathFile Generate(const QString& base, const QString& listPath) const;

    /// The name of a file, without extension, for a palette of this name: letters, digits, "-", "_", "." and spaces
    /// stay; other characters, and a "." at the beginning, become "_". It is cut where it is too long for a file.
    static QString FileName(const QString& paletteName);
};
