#pragma once

#include "core/frame/baseobject.h"

namespace brindle::python {

/// A block with the application lock held: `with app.locked():`. One thread of the script is in such a block at a time;
/// the same thread may be in several.
///
/// The lock alone doesn't keep script threads apart. On the main thread of an application, which needs no lock, it does
/// nothing.
///
/// The lock alone doesn't keep script threads apart. On the main thread of an application, which needs no lock, it does
/// nothing.
class Locked : public OMC::BaseObject {
    Q_OBJECT

public:
    OMC::BaseObject* copy() const override { return new Locked(*this); }
    std::string __str__() const override { return "Locked()"; }

    /// Waits for its turn and for the lock. Throws where no project is open in the application.
    void enter();
    /// Also after a block that has closed the project. Throws on a thread that is in no such block.
    void leave();
};

} // namespace brindle::python
