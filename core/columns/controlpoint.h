#pragma once

#include "core/frame/obj.h"

namespace OMC {

/// A control point of a column, found by its frame.
class BRINDLE_CORE_EXPORT ControlPoint : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(ControlPoint)
    Q_PROPERTY(double frame READ getFrame)
    Q_PROPERTY(QVariant value READ getValue WRITE setValue)

public:
    explicit ControlPoint(double frame);

    std::string __str__() const override;

    virtual QVariant getValue() const; ///< The value there; it can't be written here.
    virtual void setValue(const QVariant& value);

    double getFrame() const; ///< The frame that it stands at.

protected:
    double pointFrame() const { return m_frame; } ///< Without a check.

private:
    double m_frame;
};

} // namespace OMC
