#pragma once

#include "core/host/export.h"

#include <QMap>
#include <QString>

class AT_AttrVisitor;
class CO_Command;
class MO_Node;
class SC_SceneCommon;
class TUTimedValue;
class TUTvSocket;

/// What an attribute is, apart from its value.
class BRINDLE_HOST_EXPORT AT_AttrMeta {
public:
    virtual ~AT_AttrMeta() = default;
    virtual QString keyword() const = 0;
    virtual QString displayName() const = 0;
    virtual bool isDynamic() const = 0;
    virtual bool isNodeDirtyOnChange() const = 0; ///< A change makes what the node shows outdated.
};

/// A parameter of a node. It belongs to its node and lives as long.
class BRINDLE_HOST_EXPORT AT_Attr {
public:
    virtual ~AT_Attr() = default;

    virtual MO_Node* node() const = 0;
    virtual const AT_AttrMeta& meta() const = 0;
    virtual SC_SceneCommon* sceneCommon() const = 0;
    virtual TUTvSocket* socket() const = 0; ///< Null when the attribute can't be linked to a column.
    virtual void accept(AT_AttrVisitor& visitor) = 0;

    virtual QString displayText() const = 0;
    virtual QString typeText() const = 0; ///< "DOUBLE", "BOOL", "INT", "STRING", "POSITION_3D", ...
    virtual QString textAt(double frame) const = 0;
    /// The command that sets what the text says at a frame, or null when the text can't be read. The caller owns it.
    virtual CO_Command* setTextCommand(double frame, const QString& text) = 0;
};

class BRINDLE_HOST_EXPORT AT_SimpleAttr : public AT_Attr {};

/// An attribute that holds attributes.
class BRINDLE_HOST_EXPORT AT_ComplexAttr : public AT_Attr {
public:
    using AttrIterator = AT_Attr* const*;
    virtual AttrIterator attrsBegin() const = 0;
    virtual AttrIterator attrsEnd() const = 0;

    /// Parts a dotted path: "position.x" gives "position" and "x". False when the path has no further level.
    static bool splitNames(const QString& path, QString& first, QString& rest);
};

/// An attribute with a value of type `Value`: a local one, which holds while no column is linked, and one a frame.
template <typename Value, typename Argument>
class AT_ValueAttr : public AT_SimpleAttr {
public:
    using ValueType = Value;

    virtual Value value(double frame) const = 0;
    virtual Value localValue() const = 0;

    /// Sets the value at a frame: of the linked column's key there, else the local value. `constantSegment` holds the
    /// key's value up to the next one. False when nothing changed (never with `force`), or the value can't be stored.
    virtual bool setValue(double frame, Argument value, bool constantSegment, bool force) = 0;
    /// False when the value is as before or can't be stored.
    virtual bool setLocalValue(Argument value) = 0;

    /// A new column of the kind that drives this attribute, with a name of its own; the caller owns it.
    virtual TUTimedValue* createTimedValue() const = 0;
};

class BRINDLE_HOST_EXPORT AT_BoolAttr : public AT_ValueAttr<bool, bool> {};
class BRINDLE_HOST_EXPORT AT_StringAttr : public AT_ValueAttr<QString, const QString&> {};

class BRINDLE_HOST_EXPORT AT_IntAttr : public AT_ValueAttr<int, int> {
public:
    virtual int minValue() const = 0;
    virtual int maxValue() const = 0;
    virtual int step() const = 0;
};

class BRINDLE_HOST_EXPORT AT_DoubleAttr : public AT_ValueAttr<double, double> {
public:
    virtual double defaultValue() const = 0;
    virtual double minValue() const = 0;
    virtual double maxValue() const = 0;
    virtual double step() const = 0;
};

/// One of a list of options; it can't be linked to a column.
class BRINDLE_HOST_EXPORT AT_EnumAttrBase : public AT_SimpleAttr {
public:
    virtual QMap<int, QString> options() const = 0;
    virtual int localValue() const = 0;
};

class BRINDLE_HOST_EXPORT AT_ColorAttr : public AT_ComplexAttr {};
class BRINDLE_HOST_EXPORT AT_Position2dAttr : public AT_ComplexAttr {};
class BRINDLE_HOST_EXPORT AT_Position3dAttr : public AT_ComplexAttr {};

/// Called by AT_Attr::accept with the attribute's own class; each kind falls back on the more general one.
class BRINDLE_HOST_EXPORT AT_AttrVisitor {
public:
    virtual ~AT_AttrVisitor() = default;
    virtual void visit(AT_Attr&) {}
    virtual void visit(AT_SimpleAttr& attr) { visit(static_cast<AT_Attr&>(attr)); }
    virtual void visit(AT_ComplexAttr& attr) { visit(static_cast<AT_Attr&>(attr)); }
    virtual void visit(AT_BoolAttr& attr) { visit(static_cast<AT_SimpleAttr&>(attr)); }
    virtual void visit(AT_IntAttr& attr) { visit(static_cast<AT_SimpleAttr&>(attr)); }
    virtual void visit(AT_DoubleAttr& attr) { visit(static_cast<AT_SimpleAttr&>(attr)); }
    virtual void visit(AT_StringAttr& attr) { visit(static_cast<AT_SimpleAttr&>(attr)); }
    virtual void visit(AT_EnumAttrBase& attr) { visit(static_cast<AT_SimpleAttr&>(attr)); }
    virtual void visit(AT_ColorAttr& attr) { visit(static_cast<AT_ComplexAttr&>(attr)); }
    virtual void visit(AT_Position2dAttr& attr) { visit(static_cast<AT_ComplexAttr&>(attr)); }
    virtual void visit(AT_Position3dAttr& attr) { visit(static_cast<AT_ComplexAttr&>(attr)); }
};

using AT_AttrVisitorWithFallback = AT_AttrVisitor;
