#pragma once

#include "core/host/export.h"

#include <QRect>
#include <QString>
#include <QVariant>

class QObject;

/// A view of the application's windows.
class BRINDLE_HOST_EXPORT LAY_View {
public:
    virtual ~LAY_View() = default;

    virtual QString name() const = 0; ///< The name that was stored with it.
    virtual QString caption() const = 0;
    virtual void setCaption(const QString& caption) = 0;
    virtual QString displayName() const = 0;
    virtual void setDisplayName(const QString& name) = 0;
    virtual QVariant widget() const = 0;  ///< Holds a QWidget*.
    virtual QVariant toolbar() const = 0; ///< The description of its toolbar.
    virtual QObject* menu() const = 0;    ///< Null where it has none.

    virtual bool isVisible() const { return false; } ///< Whether it is shown, also where another window covers it.
    virtual QRect geometry() const { return {}; }    ///< In pixels of the screen.
};
