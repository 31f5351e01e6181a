#pragma once

#include "core/attributes/attribute.h"

#include <type_traits>

class CO_Command;
class CO_CommandManager;

namespace OMC {

/// An attribute with a value of its own: a local value, which holds while no column is linked, and a value at each
/// frame, which is the column's where there is one. `Engine` is the host's class. Wrong engine classes are refused.
template <typename Engine>
class BRINDLE_CORE_EXPORT ValueAttribute : public Attribute {
public:
    using Value = typename Engine::ValueType;
    using Argument = std::conditional_t<std::is_arithmetic_v<Value>, Value, const Value&>;

    using Attribute::Attribute;

    std::string __str__() const override;

    /// The value at a frame: the linked column's, or the local value while there is none.
    virtual Value value(int frame) const;
    virtual Value localvalue() const;           ///< The value while no column is linked.
    virtual void setLocalvalue(Argument value); ///< Sets the value that holds while no column is linked.

protected:
    // A class that can be reset makes these two public.
    virtual void resetValue(int frame); ///< Sets the default value at a frame.
    virtual void resetLocalvalue();     ///< Sets the default as the local value.

    /// Sets the value at a frame, with a column and a key for it where the attribute can have one. `adjustColumn` lets
    /// the rest of the column follow.
    void changeValue(Engine& attr, int frame, Argument value, bool adjustColumn = false);
    void changeLocalValue(Engine& attr, Argument value);
    /// Runs a command, which it takes, under its label; a class that tells of a refusal throws the sentence.
    static void run(CO_CommandManager& manager, CO_Command* command, const QString& label, const char* refusal);
};

/// An attribute whose value is a number with bounds. A change that is refused is not reported.
template <typename Engine>
class BRINDLE_CORE_EXPORT NumberAttribute : public ValueAttribute<Engine> {
public:
    using Value = typename Engine::ValueType;

    using ValueAttribute<Engine>::ValueAttribute;

    /// Sets the value at a frame, with a column and a key for it where the attribute can have one, in one undo step;
    /// `adjustColumn` lets the rest of the column follow. A change that is refused is not reported.
    virtual void setValue(int frame, Value value, bool adjustColumn = false);
    /// Adds to the values at a frame, or over the frames of [first, last]; what lies outside stays in place.
    virtual void offsetValue(const QVariant& range, Value delta);

    virtual Value getMinimum() const; ///< The smallest value.
    virtual Value getMaximum() const; ///< The largest value.
    virtual Value getStep() const;    ///< By how much a person's click changes it.
};

} // namespace OMC
