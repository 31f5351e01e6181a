#pragma once

#include "core/host/export.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <vector>

/// A receiver of actions. A slot is one action of it, written like "onActionUndo()".
class BRINDLE_HOST_EXPORT AC_Responder {
public:
    virtual ~AC_Responder() = default;

    virtual QString name() const = 0;
    virtual QStringList slotNames() const = 0;
    /// Gives 0 when it is done, 1 where there was nothing to do, 2 where it was taken and not done, 3 where it is
    /// passed on.
    virtual int perform(const QString& slot, const std::vector<QVariant>& arguments) = 0;
    /// Whether the action can be done, and whether it is on. A status other than 0 is for one that can't tell.
    virtual int validate(const QString& slot, bool& isEnabled, bool& isChecked) const = 0;
};

/// The actions of menus and toolbars: it passes them to responders. Used on the main thread.
class BRINDLE_HOST_EXPORT AC_Manager {
public:
    virtual ~AC_Manager() = default;

    /// A responder becomes the first that is asked. It isn't owned, and is taken away before it goes.
    virtual void addResponder(AC_Responder* responder) = 0;
    virtual void removeResponder(AC_Responder* responder) = 0;

    virtual QStringList responders() const = 0; ///< The names, once each, those asked first ahead.
    /// The slots of a responder; of all that are asked by default, for an empty name.
    virtual QStringList slotNames(const QString& responder) const = 0;
    /// Performs a slot on the first responder of that name, or the first that has the slot for an empty name, and gives
    /// its number; 4 where there is none. `isExplicit`: somebody asked for it, as a script.
    virtual int perform(const QString& slot, const QString& responder, bool isExplicit) = 0;
    virtual int perform(const QString& slot, const QString& responder, const std::vector<QVariant>& arguments,
                        bool isExplicit) = 0;
    /// The same on every responder of that name; the number of the last.
    virtual int performForEach(const QString& slot, const QString& responder, bool isExplicit) = 0;
    virtual int validate(const QString& slot, const QString& responder, bool& isEnabled, bool& isChecked) const = 0;
};
