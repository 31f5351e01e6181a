#pragma once

#include "core/host/pr_preference.h"

#include <QHash>
#include <QString>

namespace engine {

/// The preferences of the process, kept in memory: each run starts with the defaults.
///
/// "RIPPLE_SCENE_MARKERS" is true, "EXTEND_DRAWING_EXPOSURE" and "SP_CONSTANT_SEGMENT" are false. A preference that was
/// never set and has no default of its own is what the caller says.
class Preferences final : public PR_Preference {
public:
    Preferences();

    bool getBoolValue(const QString& name, bool defaultValue) const override;
    void setBoolValue(const QString& name, bool value) override;

    bool constantSegment() const { return m_constantSegment; } ///< "SP_CONSTANT_SEGMENT".

private:
    QHash<QString, bool> m_values;
    bool m_constantSegment = false;
};

} // namespace engine
