#pragma once

#include "core/host/export.h"

#include <QString>

/// The application's preferences, by name.
class BRINDLE_HOST_EXPORT PR_Preference {
public:
    virtual ~PR_Preference() = default;
    virtual bool getBoolValue(const QString& name, bool defaultValue) const = 0;
    virtual void setBoolValue(const QString& name, bool value) = 0;
    virtual QString getStringValue(const QString& name, const QString& defaultValue) const = 0;
    virtual void setStringValue(const QString& name, const QString& value) = 0;
};

/// The preferences of the user who runs the application. They are kept from one run to the next.
BRINDLE_HOST_EXPORT PR_Preference* tuPref();

/// Preferences that are read at every edit, kept at hand.
class BRINDLE_HOST_EXPORT PR_CachedPreferences {
public:
    /// "SP_CONSTANT_SEGMENT": a new keyframe holds its value up to the next one.
    static bool getSpConstantSegment();
};
