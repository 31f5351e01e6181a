#pragma once

#include "core/frame/engineview.h"

#include <QString>

class MO_Node;

namespace OMC {

/// One handle of a node's gizmo, which a person can pick on its own.
///
/// It holds a weak handle on the node and the place of the handle; objects of one handle share nothing else.
class BRINDLE_CORE_EXPORT NodeSubselection : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(NodeSubselection)
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(int index READ getIndex)

public:
    NodeSubselection(MO_Node* node, int index);

    std::string __str__() const override; ///< NodeSubselection("Top/Peg", "Handle_000").

    /// The name of the handle, as the node's type has it; "Handle_007" for a type that names none. The name that was
    /// given first stays.
    virtual QString getName() const;
    virtual int getIndex() const; ///< The place of the handle among those of the node, from 0.

protected:
    void validate() const override;

private:
    int m_index;
    mutable QString m_name; ///< Empty until it is asked for.
};

} // namespace OMC
