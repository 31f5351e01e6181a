#pragma once

#include "core/columns/framedvalue.h"

namespace OMC {

/// A velocity column at one frame, which can be read anywhere on the curve. Setting the value makes a keyframe. Threads
/// are the column's care.
class BRINDLE_CORE_EXPORT VeloBasedColumnValue : public FramedValue<TUVeloBasedTimedValue> {
    Q_OBJECT
    BRINDLE_COPYABLE(VeloBasedColumnValue)
    Q_PROPERTY(bool key READ getKey WRITE setKey)
    Q_PROPERTY(OMC::Obj keyframe_previous READ getKeyframePrevious)
    Q_PROPERTY(OMC::Obj keyframe_next READ getKeyframeNext)

public:
    using FramedValue::FramedValue;

    std::string __str__() const override;

    double getFrame() const override;
    QVariant getValue() const override;
    void setValue(const QVariant& value) override;

    bool getKey() const; ///< Whether a keyframe stands at the frame; writing makes or removes it.
    void setKey(bool key);

    Obj getKeyframePrevious() const; ///< The keyframe at or before the frame, or null.
    Obj getKeyframeNext() const;     ///< The keyframe behind the frame, or null.
};

} // namespace OMC
