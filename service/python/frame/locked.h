#pragma once

#include "core/frame/baseobject.h"

namespace brindle::python {

/// What a script's `with app.locked():` enters: a script thread holds the application's lock for the length of the
/// block, and one thread at a time is in such a block, which the lock alone doesn't see to. The same thread may be in
/// several. On the main thread of an application, which needs no lock, it does nothing.
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
