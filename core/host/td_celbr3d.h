#pragma once

#include "core/host/cel_cel.h"
#include "core/host/pl_filespec.h"
#include "core/host/ut_path.h"

/// A 3D object as the representation of a cel. The open engine keeps it as the file that it is, and draws none.
class BRINDLE_HOST_EXPORT TD_CelBr3d final : public CEL_Representation {
public:
    /// The level of detail, the name of the part (empty for all of it) and the frame of the object's own animation
    /// (below 0 at rest) that is drawn: for a host that draws 3D objects.
    TD_CelBr3d(int level, const QString& part, double frame);

    CelFormat format() const override { return BR3D; }
    /// Takes the object's data file: the path leads to it, or to a folder that holds exactly one ("model.osb"). False,
    /// and nothing changed, where there is none.
    bool Load(const UT_RelPath& path, const CEL_Context& context);
    const PL_FileSpec& getDataFileSpec() const { return m_dataFile; } ///< Of an empty path until it is loaded.

private:
    PL_FileSpec m_dataFile;
};
