#pragma once

#include "core/scene/history.h"

#include <QString>

namespace brindle::python {

/// A with block whose changes are one entry of the undo list, got from History.bracket(). An exception that leaves the
/// block takes all of its changes back and goes on.
class Bracket : public OMC::BaseObject {
    Q_OBJECT

public:
    Bracket(const OMC::History& history, const QString& name);
    Bracket(const Bracket& other) = default;

    OMC::BaseObject* copy() const override;
    std::string __str__() const override;

    /// Opens the bracket; gives the history.
    OMC::BaseObject* enter();
    /// Closes the bracket, or takes back what was done in it.
    void leave(bool failed);

private:
    OMC::History m_history;
    QString m_name;
};

} // namespace brindle::python
