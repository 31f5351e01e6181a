#pragma once

#include "core/host/gr_deform.h"
#include "core/host/mo_deformation.h"
#include "core/host/vs_cacheid.h"

#include <QExplicitlySharedDataPointer>

#include <memory>
#include <vector>

/// A deformer that bends: y grows by the square of x. It counts those of its kind that are alive.
class Bend : public GR_VertexTransform {
public:
    explicit Bend(float strength) : m_strength(strength) { ++alive; }
    ~Bend() override { --alive; }

    void transform(const VS_CacheId& cache, const Vertex* begin, const Vertex* end, Vertex* output) const override
    {
        caches.push_back(cache.value());
        for (; begin != end; ++begin, ++output)
            *output = {begin->x, begin->y + m_strength * begin->x * begin->x};
    }

    static inline int alive = 0;
    static inline std::vector<quint64> caches; ///< The id of each call.

private:
    float m_strength;
};

/// A deformation without anything to draw it.
class PlainDeformation : public MO_Deformation {
public:
    explicit PlainDeformation(unsigned int id = 0) : m_id(id) {}
    unsigned int id() const override { return m_id; }

private:
    unsigned int m_id;
};

/// A deformation that bends, with each way to have nothing to do.
class BendDeformation : public MO_DeformationInformation, public MO_DeformationRendererInterface {
public:
    explicit BendDeformation(unsigned int id, float strength) : m_id(id), m_strength(strength) {}

    unsigned int id() const override { return m_id; }
    Math::Matrix4x4 matrix() const override
    {
        Math::Matrix4x4 matrix;
        matrix.translate(m_id, 0, 0);
        return matrix;
    }
    bool enabled() const override { return isEnabled; }
    const MO_DeformationRendererInterface* rendererInterface() const override { return isDrawn ? this : nullptr; }
    std::unique_ptr<MO_DeformationOglRenderer> createOglRenderer() const override
    {
        return std::make_unique<Renderer>();
    }

    bool isEnabled = true;
    bool isDrawn = true;
    bool movesPoints = true;
    static inline int renderers = 0;           ///< How many are alive.
    static inline std::vector<quint64> caches; ///< The id of each deformer that was asked for.

private:
    class Renderer : public MO_DeformationOglRenderer {
    public:
        Renderer() { ++renderers; }
        ~Renderer() override { --renderers; }

        void setDeformation(const MO_Deformation& deformation) override
        {
            m_deformation = &dynamic_cast<const BendDeformation&>(deformation);
        }
        QExplicitlySharedDataPointer<GR_VertexTransform> vertexTransform(const VS_CacheId& cache) override
        {
            caches.push_back(cache.value());
            return QExplicitlySharedDataPointer<GR_VertexTransform>(
                m_deformation->movesPoints ? new Bend(m_deformation->m_strength) : nullptr);
        }

    private:
        const BendDeformation* m_deformation = nullptr;
    };

    unsigned int m_id;
    float m_strength;
};

/// Puts another scaling into the engine's deformers while it lives.
class DeformScaling {
public:
    explicit DeformScaling(const Math::Matrix4x4& matrix) : m_before(GR_Deform::implicitScalingMatrix())
    {
        GR_Deform::setImplicitScalingMatrix(matrix);
    }
    ~DeformScaling() { GR_Deform::setImplicitScalingMatrix(m_before); }

private:
    Math::Matrix4x4 m_before;
};
