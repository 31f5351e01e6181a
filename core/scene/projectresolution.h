#pragma once

#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QMap>
#include <QString>

class SC_ProjectCommon;

namespace OMC {

/// The size of the project's picture in pixels, and the resolutions that have a name. Invalid once the project is
/// closed.
class BRINDLE_CORE_EXPORT ProjectResolution : public EngineView<SC_ProjectCommon> {
    Q_OBJECT
    BRINDLE_COPYABLE(ProjectResolution)
    Q_PROPERTY(int x READ getX WRITE setX)
    Q_PROPERTY(int y READ getY WRITE setY)
    Q_PROPERTY(QString default_name READ getDefaultName WRITE setDefaultName)
    Q_PROPERTY(double default_FOV READ getDefaultFOV)
    Q_PROPERTY(QMap<QString, OMC::Obj> names READ getNames)

public:
    explicit ProjectResolution(SC_ProjectCommon* project);

    std::string __str__() const override;

    virtual void setX(int pixels);
    virtual int getX() const; ///< The width in pixels, from 1; writing it keeps the height and drops the name.
    virtual void setY(int pixels);
    virtual int getY() const; ///< The height in pixels, from 1; writing it keeps the width and drops the name.
    virtual double getDefaultFOV() const;        ///< The field of view in degrees.
    virtual QMap<QString, Obj> getNames() const; ///< The named resolutions, each under its name.

    /// The name of the current resolution, "" for one without; writing it chooses one of `names`.
    QString getDefaultName() const;
    void setDefaultName(const QString& name);

private:
    void setSize(int width, int height, const QString& label);
};

/// A resolution that has a name; its values are looked up at each read, and fail once no resolution has it.
class BRINDLE_CORE_EXPORT ProjectNamedResolution : public EngineView<SC_ProjectCommon> {
    Q_OBJECT
    BRINDLE_COPYABLE(ProjectNamedResolution)
    Q_PROPERTY(int x READ getX)
    Q_PROPERTY(int y READ getY)
    Q_PROPERTY(double fov READ getFOV)
    Q_PROPERTY(double framerate READ getFramerate)
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString projection READ getProjection)

public:
    ProjectNamedResolution(SC_ProjectCommon* project, const QString& name);

    std::string __str__() const override;

    virtual int getX() const;              ///< The width in pixels.
    virtual int getY() const;              ///< The height in pixels.
    virtual double getFOV() const;         ///< The field of view in degrees.
    virtual double getFramerate() const;   ///< The frames per second that go with the format.
    virtual QString getName() const;       ///< The name; it answers also when no resolution has it any more.
    virtual QString getProjection() const; ///< "Perspective", "Orthogonal" or "NONE".

protected:
    void validate() const override;

private:
    QString m_name;
};

} // namespace OMC
