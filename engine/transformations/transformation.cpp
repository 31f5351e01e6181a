#include "core/host/cc_transformation.h"
#include "core/host/mo_porttransform.h"

#include <algorithm>
#include <utility>

Math::Matrix4x4 CC_Transformation::matrix(bool withDeformation) const
{
    Math::Matrix4x4 result = m_matrix;
    if (withDeformation) {
        for (const Deformation& deformation : m_deformations)
            result = result * deformation->matrix();
    }
    return result;
}

void CC_Transformation::set(const Math::Matrix4x4& matrix)
{
    m_matrix = matrix;
    m_set = true;
}

void CC_Transformation::add(const Math::Matrix4x4& matrix)
{
    set(m_matrix * matrix);
}

void CC_Transformation::addTransformation(const CC_Transformation& other)
{
    const std::vector<Deformation> added = other.m_deformations; // The other one may be this one.
    add(other.m_matrix);
    m_deformations.insert(m_deformations.end(), added.begin(), added.end());
}

void CC_Transformation::allDeformations(std::vector<MO_Deformation*>& deformations) const
{
    for (const Deformation& deformation : m_deformations)
        deformations.push_back(deformation.data());
}

void CC_Transformation::addDeformation(Deformation deformation)
{
    m_deformations.push_back(std::move(deformation));
    m_set = true;
}

void CC_Transformation::resetAllDeformation(unsigned int id)
{
    std::erase_if(m_deformations, [id](const Deformation& deformation) { return deformation->id() == id; });
}

void MO_PortTransform::clear()
{
    m_transformation = CC_Transformation();
    m_depth = 0;
}
