#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"

#include <QString>
#include <QStringList>

class CO_CommandManager;
class SC_ProjectCommon;

namespace OMC {

/// The iteration of a list whose items are names by index.
class BRINDLE_CORE_EXPORT HistoryNames : public EngineView<SC_ProjectCommon> {
public:
    virtual std::size_t size() const = 0; ///< Entries that can be undone.
    /// The name of an entry that can be undone, oldest first; throws beyond the end.
    virtual QString get(const unsigned int& index) const = 0;

protected:
    using EngineView::EngineView;
};

/// The undo list of the project: the names of its entries, oldest first, undo and redo by count, and a bracket that
/// makes one entry of all that is done between `begin` and `end`.
///
/// The bracket belongs to the process and not to the wrapper: `begin` on one and `end` on another match. It stays open
/// until `end`, `cancel`, or the next use of a History whose project is gone.
class BRINDLE_CORE_EXPORT History : public CountedList<HistoryNames, IterableMap> {
    Q_OBJECT
    BRINDLE_COPYABLE(History)
    Q_PROPERTY(QString current READ getCurrent)
    Q_PROPERTY(bool active READ getActive)
    Q_PROPERTY(size_t size_total READ getSizeTotal)
    Q_PROPERTY(size_t size_unexecuted READ getSizeUnexecuted)
    Q_PROPERTY(size_t size_executed READ getSizeExecuted)
    Q_PROPERTY(size_t size_max READ getSizeMax)

public:
    explicit History(SC_ProjectCommon* project);

    std::string __str__() const override;

    std::size_t size() const override;             ///< How many entries can be undone.
    virtual std::size_t getSizeTotal() const;      ///< How many entries can be undone or done again.
    virtual std::size_t getSizeUnexecuted() const; ///< How many entries can be done again.
    virtual std::size_t getSizeExecuted() const;   ///< How many entries can be undone.
    virtual std::size_t getSizeMax() const;        ///< How many entries are kept; older ones are dropped.

    /// The name of an entry that can be undone, from 0, oldest first.
    QString get(const unsigned int& index) const override;
    /// Always fails: the history can't be written.
    virtual void set(const unsigned int& index, const std::string& name);
    virtual bool contains(const QString& name) const; ///< Whether an entry that can be undone has the name.
    virtual QStringList list() const;                 ///< The names of the entries that can be undone, oldest first.

    void undo(unsigned int count); ///< Undoes up to so many entries.
    void redo(unsigned int count); ///< Does up to so many undone entries again.
    void clear();                  ///< Empties the undo list; the project stays as it is.

    /// Opens a bracket: everything up to the matching `end` becomes one entry of this name. Brackets nest; a nested
    /// one's name is dropped.
    void begin(const QString& name);
    void end();    ///< Closes the bracket that the matching `begin` opened; does nothing without one.
    void cancel(); ///< Takes back all that was done in the open bracket, whatever the nesting.

    QString getCurrent() const; ///< The name of the open bracket, or "NONE".
    bool getActive() const;     ///< Always false.

protected:
    void validate() const override;

private:
    CO_CommandManager& manager() const;
};

} // namespace OMC
