#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QVariant>

namespace OMC {

/// How a visit of the nodes is measured.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT NodeVisitOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(NodeVisitOptions)

public:
    NodeVisitOptions() = default;
    /// Reads a dictionary of the fields below by their names in snake case (`top_count`), or a text of their values in
    /// this order. What isn't told keeps its default.
    explicit NodeVisitOptions(const QVariant& value);

    QVariantMap fields() const; ///< All of them by their names, as the constructor reads them.

    std::string __str__() const override; ///< "NodeVisitOptions([0,10,True])".

    int frame = 0;            ///< The frame at which nodes are visited; 0 stands for the current one.
    int topCount = 10;        ///< How many nodes each list shows, those with the most first.
    bool cacheEnabled = true; ///< Whether pictures that views keep may be used.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::NodeVisitOptions)
