#pragma once

#include "core/host/export.h"
#include "core/host/math_matrix4x4.h"
#include "core/host/mo_deformation.h"

#include <QExplicitlySharedDataPointer>

#include <vector>

/// The transformation of a picture on its way down the graph: a matrix, and deformations in their order.
/// Copies share the deformations.
class BRINDLE_HOST_EXPORT CC_Transformation {
public:
    using Deformation = QExplicitlySharedDataPointer<MO_Deformation>;

    /// The matrix, without the deformations or times what each does to a drawing as a whole.
    Math::Matrix4x4 matrix(bool withDeformation) const;
    void set(const Math::Matrix4x4& matrix); ///< The deformations stay.
    void add(const Math::Matrix4x4& matrix); ///< From the right.
    /// Adds the other one's matrix, and its deformations behind those that are there.
    void addTransformation(const CC_Transformation& other);

    bool hasDeformation() const { return !m_deformations.empty(); }
    void allDeformations(std::vector<MO_Deformation*>& deformations) const; ///< Appends them in order.
    void addDeformation(Deformation deformation);
    void resetAllDeformation(unsigned int id); ///< Drops all of an id.

    /// Whether anything was set or added.
    bool isSet() const { return m_set; }
    bool operator==(const CC_Transformation&) const = default;

private:
    Math::Matrix4x4 m_matrix;
    std::vector<Deformation> m_deformations;
    bool m_set = false;
};
