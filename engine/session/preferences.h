#pragma once

#include "core/host/pr_preference.h"
#include "engine/session/preferencefile.h"

#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace brindle::engine {

/// The preferences of a user: read from their file when they are first asked for, written back by `save`.
///
/// Those that the application knows are there from the start, with a kind and a default (preferences.cpp). One that was
/// never set and has no default of its own isn't there.
///
/// Setting one costs no write: a preference that is changed for the length of an operation and set back is not written
/// at all. The session saves them when a project is saved and when it ends.
class Preferences final : public PR_Preference {
public:
    /// An empty path keeps them in memory only.
    explicit Preferences(const QString& path = {});
    ~Preferences() override;

    PR_PrefItem* find(const QString& name) const override;
    ConstIterator constBegin() const override { return ordered().data(); }
    ConstIterator constEnd() const override { return ordered().data() + ordered().size(); }

    void setBoolValue(const QString& name, bool value) override { set(name, value); }
    void setIntValue(const QString& name, int value) override { set(name, value); }
    void setDoubleValue(const QString& name, double value) override { set(name, value); }
    void setStringValue(const QString& name, const QString& value) override { set(name, value); }
    void setRgbaValue(const QString& name, const QColor& value) override { set(name, value); }
    bool getBoolValue(const QString& name, bool defaultValue) const override;
    QString getStringValue(const QString& name, const QString& defaultValue) const override;

    /// Writes those that differ from what was read or saved last. After a failure the next save tries again.
    bool save() override;

    bool constantSegment() const { return m_constantSegment; } ///< "SP_CONSTANT_SEGMENT".

private:
    template <typename Interface, typename Value>
    class Item;
    struct Entry;

    QVariant valueOf(const QString& name) const; ///< Invalid for an unknown name.
    const std::vector<PR_PrefItem*>& ordered() const;
    void set(const QString& name, const QVariant& value);
    void learn(const PreferenceFile::Values& inFile);
    void noteChange(const QString& name);

    PreferenceFile m_file;
    std::map<QString, std::unique_ptr<Entry>> m_entries;
    mutable std::vector<PR_PrefItem*> m_order; ///< All by their names; empty until somebody asks.
    PreferenceFile::Values m_saved;            ///< As the file has them.
    bool m_constantSegment = false;
};

/// Those of the process's user; and `save` of them, once anyone asked for them.
Preferences& preferencesOfUser();
void savePreferencesOfUser();

} // namespace brindle::engine
