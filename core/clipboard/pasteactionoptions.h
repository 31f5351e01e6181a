#pragma once

#include "core/frame/baseobject.h"

#include <QMetaType>
#include <QVariant>

namespace OMC {

/// The kinds of nodes whose animation an action template carries over, besides drawings, pegs and cameras.
///
/// A plain value that travels inside a QVariant by copy.
class BRINDLE_CORE_EXPORT PasteActionOptions : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(PasteActionOptions)

public:
    PasteActionOptions() = default;
    PasteActionOptions(bool groups, bool effects, bool composites);
    /// Reads a dictionary of the fields below by their names, or a text of their values in this order. What isn't told
    /// keeps its default.
    explicit PasteActionOptions(const QVariant& value);

    QVariantMap fields() const; ///< All of them by their names, as the constructor reads them.

    std::string __str__() const override; ///< Required: an empty text.

    bool groups = true;     ///< Whether groups take it, with what is in them.
    bool effects = true;    ///< Whether nodes that change a picture take it.
    bool composites = true; ///< Whether composites take it.
};

} // namespace OMC

Q_DECLARE_METATYPE(OMC::PasteActionOptions)
