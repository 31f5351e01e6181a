#pragma once

#include "core/host/export.h"

#include <QString>

#include <list>
#include <utility>

class SC_ProjectCommon;
class TUDbSceneData;

/// The resolutions that have a name.
class BRINDLE_HOST_EXPORT TUDbResolution {
public:
    /// The side of the picture that the field of view spans.
    enum FovFit : int { kFitHeight = 0, kFitWidth = 1 };
    enum Projection : int { kPerspective = 0, kOrthogonal = 1 };

    /// A row of the table.
    class UsaResolutionTable {
    public:
        UsaResolutionTable(QString name, int width, int height, double fps, double customFov,
                           FovFit fovFit = kFitHeight, Projection projection = kPerspective)
            : m_name(std::move(name)),
              m_width(width),
              m_height(height),
              m_fps(fps),
              m_customFov(customFov),
              m_fovFit(fovFit),
              m_projection(projection)
        {}

        const QString& name() const { return m_name; }
        int width() const { return m_width; } ///< In pixels.
        int height() const { return m_height; }
        double fps() const { return m_fps; }             ///< The frame rate that goes with the format.
        double customFov() const { return m_customFov; } ///< In degrees, over the side that fovFit tells.
        FovFit fovFit() const { return m_fovFit; }
        Projection projection() const { return m_projection; }

    private:
        QString m_name;
        int m_width;
        int m_height;
        double m_fps;
        double m_customFov;
        FovFit m_fovFit;
        Projection m_projection;
    };

    /// The rows in the table's order, or sorted by name.
    static std::list<UsaResolutionTable> getResolutions(TUDbSceneData& data, bool sorted);
    /// Gives the values of the resolution that has exactly this name; false, and nothing is written, when none has.
    static bool findResolution(TUDbSceneData& data, QString name, int& width, int& height, FovFit& fovFit, double& fov,
                               Projection& projection);
};

/// The size of a project's picture. A plain value.
class BRINDLE_HOST_EXPORT SC_Resolution {
public:
    SC_Resolution() = default; ///< 0 x 0 pixels: no picture.
    SC_Resolution(QString name, int width, int height, TUDbResolution::FovFit fovFit,
                  TUDbResolution::Projection projection)
        : m_name(std::move(name)),
          m_width(width),
          m_height(height),
          m_fovFit(fovFit),
          m_projection(projection)
    {}

    /// The current one of a project; 0 x 0 when there is none, and for null.
    static SC_Resolution projectResolution(const SC_ProjectCommon* project);

    const QString& name() const
    {
        return m_name;
    }                                     ///< In the table of named resolutions; empty when it was set by values.
    int width() const { return m_width; } ///< In pixels.
    int height() const { return m_height; }
    TUDbResolution::FovFit fovFit() const { return m_fovFit; }
    TUDbResolution::Projection projection() const { return m_projection; }

    bool operator==(const SC_Resolution& other) const = default;

private:
    QString m_name;
    int m_width = 0;
    int m_height = 0;
    TUDbResolution::FovFit m_fovFit = TUDbResolution::kFitHeight;
    TUDbResolution::Projection m_projection = TUDbResolution::kPerspective;
};
