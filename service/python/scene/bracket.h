#pragma once

#include "core/scene/history.h"

#include <QString>

namespace brindle::python {

/// What `history.bracket("Walk cycle")` gives, for the length of a `with` block: what is done in the block is one entry
/// of the undo list, and an exception that leaves it takes all of it back and goes on.
///
/// It is the begin, end and cancel of a History, so blocks nest as those do: the outermost names the entry, and an
/// exception that leaves an inner one takes back what the outer ones did as well.
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
