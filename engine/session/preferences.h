#pragma once

#include "core/host/pr_preference.h"
#include "engine/session/preferencefile.h"

#include <QHash>
#include <QString>
#include <QVariant>

namespace brindle::engine {

/// The preferences of a user: read from their file when they are first asked for, written back by `save`.
///
/// "RIPPLE_SCENE_MARKERS" is true, "EXTEND_DRAWING_EXPOSURE" and "SP_CONSTANT_SEGMENT" are false. A preference that was
/// never set and has no default of its own, or has a value of another type, is what the caller says.
///
/// Setting one costs no write: a preference that is changed for the length of an operation and set back is not written
/// at all. The session saves them when a project is saved and when it ends.
class Preferences final : public PR_Preference {
public:
    /// An empty path keeps them in memory only.
    explicit Preferences(const QString& path = {});

    bool getBoolValue(const QString& name, bool defaultValue) const override;
    void setBoolValue(const QString& name, bool value) override;
    QString getStringValue(const QString& name, const QString& defaultValue) const override;
    void setStringValue(const QString& name, const QString& value) override;

    /// Writes those that differ from what was read or saved last. A failure is a line in the log, and the next save
    /// tries again.
    void save();

    bool constantSegment() const { return m_constantSegment; } ///< "SP_CONSTANT_SEGMENT".

private:
    PreferenceFile m_file;
    QHash<QString, QVariant> m_values;
    QHash<QString, QVariant> m_saved; ///< As the file has them, and the defaults.
    bool m_constantSegment = false;
};

/// Those of the process's user; and `save` of them, once anyone asked for them.
Preferences& preferencesOfUser();
void savePreferencesOfUser();

} // namespace brindle::engine
