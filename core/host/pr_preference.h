#pragma once

#include "core/host/export.h"

#include <QColor>
#include <QString>

/// A colour as preferences keep it: four bytes in this order.
struct PR_Rgba {
    unsigned char blue = 0;
    unsigned char green = 0;
    unsigned char red = 0;
    unsigned char alpha = 0;

    bool operator==(const PR_Rgba& other) const = default;
};

/// A preference. Its class is told by the number of its kind.
class BRINDLE_HOST_EXPORT PR_PrefItem {
public:
    virtual ~PR_PrefItem() = default;

    enum Kind { Bool = 0, Int = 1, Double = 2, String = 3, Rgba = 5 };
    virtual int type() const = 0;
    virtual QString name() const = 0;
    /// Gives it the default of its name; one that has none goes back to false, 0, an empty text or no colour.
    virtual void restoreDefault() = 0;
};

class BRINDLE_HOST_EXPORT PR_BoolItem : public PR_PrefItem {
public:
    virtual bool value() const = 0;
};

class BRINDLE_HOST_EXPORT PR_IntItem : public PR_PrefItem {
public:
    virtual int value() const = 0;
};

class BRINDLE_HOST_EXPORT PR_DoubleItem : public PR_PrefItem {
public:
    virtual double value() const = 0;
};

class BRINDLE_HOST_EXPORT PR_StringItem : public PR_PrefItem {
public:
    virtual QString value() const = 0;
};

class BRINDLE_HOST_EXPORT PR_RgbaItem : public PR_PrefItem {
public:
    virtual PR_Rgba value() const = 0;
};

/// The application's preferences, by name. Setting one under a new name makes it, and may change the kind of one that
/// is there.
class BRINDLE_HOST_EXPORT PR_Preference {
public:
    virtual ~PR_Preference() = default;

    /// The preference of a name, or null. It is good until the next change of the table.
    virtual PR_PrefItem* find(const QString& name) const = 0;
    /// All of them, in the order of their names.
    using ConstIterator = PR_PrefItem* const*;
    virtual ConstIterator constBegin() const = 0;
    virtual ConstIterator constEnd() const = 0;

    virtual void setBoolValue(const QString& name, bool value) = 0;
    virtual void setIntValue(const QString& name, int value) = 0;
    virtual void setDoubleValue(const QString& name, double value) = 0;
    virtual void setStringValue(const QString& name, const QString& value) = 0;
    virtual void setRgbaValue(const QString& name, const QColor& value) = 0;

    /// The value of one that is true or false, or a text; the default for any other.
    virtual bool getBoolValue(const QString& name, bool defaultValue) const = 0;
    virtual QString getStringValue(const QString& name, const QString& defaultValue) const = 0;

    /// While one lives, changes are told to nobody.
    class BRINDLE_HOST_EXPORT DisableEventsScope {
    public:
        DisableEventsScope();
        DisableEventsScope(const DisableEventsScope&) = delete;
        DisableEventsScope& operator=(const DisableEventsScope&) = delete;
        ~DisableEventsScope();
    };

    /// Keeps what was changed, which else is done when a project is saved and when the session ends, and learns what
    /// other processes changed meanwhile. False: the log says why it can't.
    virtual bool save() = 0;
};

/// The preferences of the user who runs the application. They are kept from one run to the next.
BRINDLE_HOST_EXPORT PR_Preference* tuPref();

/// Preferences that are read at every edit, kept at hand.
class BRINDLE_HOST_EXPORT PR_CachedPreferences {
public:
    /// "SP_CONSTANT_SEGMENT": a new keyframe holds its value up to the next one.
    static bool getSpConstantSegment();
    /// "LIBRARY_PASTE_CREATE_NEW_DRAWING": a paste makes new drawings also where there are some of the same names.
    static bool getLibraryPasteCreateNewDrawing();
    /// "OPENGL_ENABLE_PLAYBACK_CACHE": pictures of frames are kept while the scene is played.
    static bool getOpenGLEnablePlaybackCache();
    /// "ADVANCED_ENABLE_PERFORMANCE_REPORT": what frames take is averaged.
    static bool getAdvancedEnablePerformanceReport();
};
