#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/ut_sharedweak.h"

#include <QColor>
#include <QString>

#include <memory>

class SC_SceneCommon;
class TUGroup;

/// A rectangle of the node view, in the engine's coordinates: y grows downwards, so the top is the smaller y.
struct BRINDLE_HOST_EXPORT TURect {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    /// Whether another rectangle lies inside, by y growing downwards. The sides belong to the rectangle; one whose
    /// sides have changed places contains nothing.
    bool containInvertedY(const TURect& other) const;

    bool operator==(const TURect&) const = default;
};

/// A text of a backdrop with its font.
struct MO_BackdropText {
    QString text;
    QString font = QStringLiteral("Sans Serif");
    double size = 12; ///< In points, above 0.
    QColor colour = QColor(0, 0, 0);

    bool operator==(const MO_BackdropText&) const = default;
};

/// The properties of a backdrop, a plain value.
struct MO_BackdropProperties {
    TURect rect = {0, 0, 200, 150};
    MO_BackdropText title;
    MO_BackdropText description;
    QColor colour = QColor(150, 150, 150);

    bool operator==(const MO_BackdropProperties&) const = default;
};

/// A titled, coloured rectangle behind the nodes of a group. While only the undo list keeps it, weak pointers to it are
/// expired.
class BRINDLE_HOST_EXPORT MO_Backdrop : public UT_SharedWeakBase {
public:
    /// A new backdrop for a group, which doesn't list it yet.
    MO_Backdrop(TUGroup* group, SC_SceneCommon* scene) : m_group(group), m_scene(scene) {}

    TUGroup* group() const { return m_group; }
    SC_SceneCommon* sceneCommon() const { return m_scene; } ///< The scene that it was made for.

    const MO_BackdropProperties& properties() const { return m_properties; }
    /// Changes the properties at once, without an undo entry: for a new backdrop, and for commands.
    void setProperties(const MO_BackdropProperties& properties) { m_properties = properties; }

private:
    TUGroup* m_group;
    SC_SceneCommon* m_scene;
    MO_BackdropProperties m_properties;
};

/// The undoable changes of backdrops. Each fails, and changes nothing, when the group is in no scene. Properties with a
/// number that isn't finite, or a font size of 0 or less, are refused.
namespace tu_backdrop {

/// Adds a new backdrop behind the others of its group. Fails for one that belongs to another group.
class BRINDLE_HOST_EXPORT AddBackdropCmd final : public CO_EngineCommand {
public:
    AddBackdropCmd(TUGroup* group, const std::shared_ptr<MO_Backdrop>& backdrop);
};

/// Takes a backdrop away. Fails for one that the group doesn't list.
class BRINDLE_HOST_EXPORT RemoveBackdropCmd final : public CO_EngineCommand {
public:
    RemoveBackdropCmd(TUGroup* group, MO_Backdrop* backdrop);
};

/// Fails for a backdrop that its group doesn't list.
class BRINDLE_HOST_EXPORT SetPropertiesCmd final : public CO_EngineCommand {
public:
    SetPropertiesCmd(MO_Backdrop* backdrop, const MO_BackdropProperties& properties);
};

} // namespace tu_backdrop
