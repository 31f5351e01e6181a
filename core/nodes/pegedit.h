#pragma once

#include "core/host/math_matrix4x4.h"
#include "core/host/mo_framerange.h"

class CO_CommandManager;
class SC_SceneCommon;
class TUPegModule;

namespace OMC {

/// The parts of a peg's transformation: translation in OpenGL units, angles in degrees.
struct PegParts {
    Math::Vector3d translation;
    Math::Vector3d scale{1, 1, 1};
    Math::Vector3d rotation;
    double skew = 0;

    /// The parts of a matrix about the pivot of the peg at a frame, as the peg has them.
    PegParts(const Math::Matrix4x4& matrix, const TUPegModule& peg, double frame);
};

/// Changes of a peg, each a command under its label. What the engine refuses is silent.
class PegEdit {
public:
    /// Throws where the peg's scene or its command manager is missing.
    explicit PegEdit(TUPegModule& peg);

    CO_CommandManager& manager() const { return m_manager; }
    SC_SceneCommon& scene() const { return m_scene; }

    void setScale(double frame, const Math::Vector3d& factors, bool adjustColumn) const;
    void setRotation(double frame, const Math::Vector3d& angles, bool adjustColumn) const;
    void setSkew(double frame, double angle, bool adjustColumn) const;
    void setTranslation(double frame, const Math::Point3d& fields, bool adjustColumn) const;
    void setPivot(const Math::Point3d& fields) const;

    void applyScale(const MO_FrameRange& range, const Math::Vector3d& factors) const;
    void applyRotation(const MO_FrameRange& range, const Math::Vector3d& angles) const;
    void applySkew(const MO_FrameRange& range, double angle) const;
    void applyTranslation(const MO_FrameRange& range, const Math::Vector3d& fields) const;

private:
    TUPegModule& m_peg;
    SC_SceneCommon& m_scene;
    CO_CommandManager& m_manager;
};

} // namespace OMC
