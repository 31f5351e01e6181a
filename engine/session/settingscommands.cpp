#include "core/host/sc_projectcmds.h"

#include "engine/session/projectcommon.h"

#include <utility>

namespace brindle::engine {

namespace {

/// Sets one of a project's settings, and keeps the one that it replaced.
template <typename Value>
class SettingCommand : public CO_Command {
public:
    using Setting = Value ProjectSettings::*;

    SettingCommand(SC_ProjectCommon* project, Setting setting, Value value)
        : m_project(engineProjectCommon(project)),
          m_setting(setting),
          m_value(std::move(value))
    {}

    Status execute() override
    {
        if (!m_project || !isAcceptable(m_value))
            return kFail;
        m_changes = !isThere(m_project->settings().*m_setting, m_value);
        return exchange();
    }

    Status unexecute() override { return exchange(); }

protected:
    virtual bool isThere(const Value& current, const Value& value) const { return current == value; }

private:
    Status exchange()
    {
        if (!m_changes)
            return kNoop;
        ProjectSettings settings = m_project->settings();
        std::swap(settings.*m_setting, m_value);
        m_project->setSettings(settings);
        return kOk;
    }

    ProjectCommon* m_project;
    Setting m_setting;
    Value m_value; ///< The value that the next step sets.
    bool m_changes = false;
};

/// The project's colour space: one that its configuration has when the command is made.
class ColorSpaceCommand final : public SettingCommand<QString> {
public:
    ColorSpaceCommand(SC_ProjectCommon* project, const QString& name)
        : SettingCommand(project, &ProjectSettings::colorSpace, name),
          m_isKnown(project && project->colorSpaceManager() && project->colorSpaceManager()->contains(name))
    {}

    Status execute() override { return m_isKnown ? SettingCommand::execute() : kFail; }

private:
    bool m_isKnown;
};

/// A resolution without a name: the values that the current one has already leave that one.
class ResolutionByValue final : public SettingCommand<Picture> {
public:
    using SettingCommand::SettingCommand;

protected:
    bool isThere(const Picture& current, const Picture& value) const override
    {
        const SC_Resolution& there = current.resolution;
        return Picture{SC_Resolution(QString(), there.width(), there.height(), there.fovFit(), there.projection()),
                       current.fov} == value;
    }
};

template <typename Value>
std::unique_ptr<CO_Command> newSetting(SC_ProjectCommon* project, Value ProjectSettings::*setting, const Value& value)
{
    return std::make_unique<SettingCommand<Value>>(project, setting, value);
}

/// Cut to what is no side of a picture where it doesn't fit, so that it is refused.
int side(unsigned int pixels)
{
    return static_cast<int>(std::min(pixels, 1U << 30));
}

} // namespace

} // namespace brindle::engine

namespace SC_ProjectCmds {

using brindle::engine::newSetting;
using brindle::engine::ProjectSettings;

SetProjectResolutionByNameCmd::SetProjectResolutionByNameCmd(SC_ProjectCommon* project, const QString& name)
    : CO_EngineCommand(newSetting(project, &ProjectSettings::picture, brindle::engine::Picture::named(name)))
{}

SetProjectResolutionByValueCmd::SetProjectResolutionByValueCmd(SC_ProjectCommon* project, unsigned int width,
                                                               unsigned int height, TUDbResolution::FovFit fovFit,
                                                               double fov, TUDbResolution::Projection projection)
    : CO_EngineCommand(std::make_unique<brindle::engine::ResolutionByValue>(
          project, &ProjectSettings::picture,
          brindle::engine::Picture{
              SC_Resolution(QString(), brindle::engine::side(width), brindle::engine::side(height), fovFit, projection),
              fov}))
{}

SetProjectColorSpaceCmd::SetProjectColorSpaceCmd(SC_ProjectCommon* project, const QString& name)
    : CO_EngineCommand(std::make_unique<brindle::engine::ColorSpaceCommand>(project, name))
{}

SetAdvancedFlagsCmd::SetAdvancedFlagsCmd(SC_ProjectCommon* project, const SC_AdvancedFlags& flags)
    : CO_EngineCommand(newSetting(project, &ProjectSettings::advancedFlags, flags))
{}

SetDesignAspectRatioCmd::SetDesignAspectRatioCmd(SC_ProjectCommon* project, int x, int y)
    : CO_EngineCommand(newSetting(project, &ProjectSettings::aspectRatio, brindle::engine::AspectRatio{x, y}))
{}

SetDesignFieldChartCmd::SetDesignFieldChartCmd(SC_ProjectCommon* project, double x, double y, double z)
    : CO_EngineCommand(newSetting(project, &ProjectSettings::fieldChart, brindle::engine::FieldChart{x, y, z}))
{}

SetCoordinatesAtCenterCmd::SetCoordinatesAtCenterCmd(SC_ProjectCommon* project, int x, int y)
    : CO_EngineCommand(newSetting(project, &ProjectSettings::center, brindle::engine::CenterCoordinates{x, y}))
{}

} // namespace SC_ProjectCmds
