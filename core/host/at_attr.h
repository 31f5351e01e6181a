#pragma once

#include "core/host/co_command.h"
#include "core/host/export.h"
#include "core/host/math_point.h"
#include "core/host/ut_sharedweak.h"

#include <QMap>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <type_traits>
#include <vector>

class AT_Attr;
class AT_AttrVisitor;
class CM_Rgba;
class MO_Node;
class SC_SceneCommon;
class TUElementTimedValue;
class TUSeqTimedValue;
class TUTimedValue;
class TUTvSocket;

/// The facts of an attribute, apart from its value.
class BRINDLE_HOST_EXPORT AT_AttrMeta {
public:
    /// The bits of the flag word that the object model reads. The others are the engine's own.
    enum Flag : unsigned int {
        kDirtyOnChange = 1, ///< A change makes what the node shows outdated; so does `kDirtyBelowOnChange`.
        kDirtyBelowOnChange = 2,
        kSaved = 4,  ///< It is kept with the project.
        kDynamic = 8 ///< It was added to its node.
    };

    AT_AttrMeta(const QString& keyword, const QString& displayName, unsigned int flags)
        : m_keyword(keyword),
          m_displayName(displayName),
          m_flags(flags)
    {}

    const QString& keyword() const { return m_keyword; }
    const QString& displayName() const { return m_displayName; } ///< An empty one stands for the keyword.
    unsigned int flags() const { return m_flags; }
    bool isDynamic() const { return m_flags & kDynamic; }
    bool isNodeDirtyOnChange() const { return m_flags & (kDirtyOnChange | kDirtyBelowOnChange); }

private:
    QString m_keyword;
    QString m_displayName;
    unsigned int m_flags;
};

/// An attribute in a list of those below another one, or of a node.
struct AT_AttrDesc {
    AT_Attr* attr = nullptr;
    QString parentPath; ///< The keywords between it and the top of the list, dotted; empty right below.
};

/// A parameter of a node. It belongs to its node and lives as long. One that leaves its node earlier expires its weak
/// pointers: what a script held of it stays gone, also after an undo brings the attribute back.
class BRINDLE_HOST_EXPORT AT_Attr : public UT_SharedWeakBase {
public:
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

    /// Append the attributes inside this one, at all levels, each ahead of those inside it: all of them, or those that
    /// a column can drive. The last two arguments are always 0.
    void getFullAttrList(std::vector<AT_AttrDesc>& list) const;
    void getTVAttrList(std::vector<AT_AttrDesc>& list, int, int) const;
};

class BRINDLE_HOST_EXPORT AT_SimpleAttr : public AT_Attr {};

/// An attribute that holds attributes.
class BRINDLE_HOST_EXPORT AT_ComplexAttr : public AT_Attr {
public:
    using AttrIterator = AT_Attr* const*;
    virtual AttrIterator attrsBegin() const = 0;
    virtual AttrIterator attrsEnd() const = 0;
    unsigned int nAttrs() const { return static_cast<unsigned int>(attrsEnd() - attrsBegin()); }
    /// The one of that keyword, or null.
    virtual AT_Attr* memberNamed(QStringView keyword) const
    {
        const auto found = std::find_if(
            attrsBegin(), attrsEnd(), [keyword](const AT_Attr* member) { return member->meta().keyword() == keyword; });
        return found == attrsEnd() ? nullptr : *found;
    }

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
    virtual Value defaultValue() const = 0; ///< The local value in a new node.

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
    virtual double minValue() const = 0;
    virtual double maxValue() const = 0;
    virtual double step() const = 0;
};

/// A number that changes at a speed of its own: the column that it is given is a velocity column.
class BRINDLE_HOST_EXPORT AT_DoubleVbAttr : public AT_DoubleAttr {};

/// One of a list of options; it can't be linked to a column.
class BRINDLE_HOST_EXPORT AT_EnumAttrBase : public AT_SimpleAttr {
public:
    virtual QMap<int, QString> options() const = 0;
    virtual int localValue() const = 0;
    class SetLocalValueCmd;
};

/// Fails for a number that is no option's.
class BRINDLE_HOST_EXPORT AT_EnumAttrBase::SetLocalValueCmd final : public CO_EngineCommand {
public:
    SetLocalValueCmd(AT_EnumAttrBase* attr, int value);
};

/// A group that was added to a node, for attributes that are added to it.
class BRINDLE_HOST_EXPORT AT_DynGroupAttr : public AT_ComplexAttr {
public:
    static QString TypeString(); ///< The name of its type.
};

/// The element that a node shows: that of its drawing column.
class BRINDLE_HOST_EXPORT AT_ElementAttr : public AT_SimpleAttr {
public:
    virtual TUElementTimedValue* linkedElementTimedValue() const = 0; ///< Null when not linked.
    virtual int getElementId() const = 0;                             ///< Negative for none.
};

/// The drawing that a node shows at a frame, by its name: that of its timing column.
class BRINDLE_HOST_EXPORT AT_TimingAttr : public AT_SimpleAttr {
public:
    virtual QString value(double frame) const = 0; ///< Null where no drawing is shown.
};

/// What a node shows: the drawings of an element. In element mode a drawing column gives both the element and the
/// drawing at a frame. In timing mode the element is that of its AT_ElementAttr, and the drawing that of its
/// AT_TimingAttr.
class BRINDLE_HOST_EXPORT AT_DrawingAttr : public AT_ComplexAttr {
public:
    virtual bool getElementMode() const = 0; ///< As the first frame has it.
    virtual AT_BoolAttr* elementModeAttr() const = 0;
    /// The attribute that has the link to the column of drawings: the AT_ElementAttr, or the AT_TimingAttr.
    virtual AT_Attr* drawingAttr() const = 0;
    virtual TUTimedValue* linkedTimedValue() const = 0; ///< The column that it is linked to, or null.
    virtual TUSeqTimedValue* linkedSeqTimedValue() const = 0;

    virtual int getElementId() const = 0; ///< Negative for none.
    virtual QString getElementName() const = 0;
    virtual QString timingName() const = 0;                    ///< The name of the linked column.
    virtual QString value(double frame) const = 0;             ///< The name of the drawing; null where none is shown.
    virtual double drawingScaleFactor(double frame) const = 0; ///< That of the drawing; 1 where none is shown.
};

/// A colour, of four channels from 0 to 255.
class BRINDLE_HOST_EXPORT AT_ColorAttr : public AT_ComplexAttr {
public:
    virtual AT_IntAttr* channel(int index) const = 0; ///< 0 is red, 1 green, 2 blue, 3 alpha; null beyond.
    /// The last argument is always null.
    void value(CM_Rgba& colour, double frame, const void*) const;
    void localValue(CM_Rgba& colour) const;
};

/// An attribute with a number along each axis, which a column can drive one by one; or, where `socket` isn't null, a
/// path in space as a whole. While a path with values is linked, it gives the value, and the axes keep theirs for
/// later.
class BRINDLE_HOST_EXPORT AT_AxesAttr : public AT_ComplexAttr {
public:
    using ValueType = Math::Point3d;

    virtual int axisCount() const = 0;                ///< 2 or 3.
    virtual AT_DoubleAttr* axis(int index) const = 0; ///< 0 is x, 1 is y, 2 is z; null beyond.
    virtual Math::Point3d value(double frame) const = 0;
    virtual Math::Point3d localValue() const = 0; ///< The local values of the axes; z is 0 where there is none.
    /// Sets the place of the linked path at a frame, with a keyframe there; `constantSegment` holds it up to the next
    /// one. False when there is no path, it refuses, or nothing changed (never with `force`).
    virtual bool setValue(double frame, const Math::Point3d& value, bool constantSegment, bool force) = 0;

    /// The last two arguments are always null.
    void getValue(double frame, Math::Point3d& point, const void*, const void*) const { point = value(frame); }
};

class BRINDLE_HOST_EXPORT AT_Position2dAttr : public AT_AxesAttr {};    ///< In fields.
class BRINDLE_HOST_EXPORT AT_Position3dAttr : public AT_AxesAttr {};    ///< In fields; a 3D path can drive it.
class BRINDLE_HOST_EXPORT AT_Scale3dAttr : public AT_Position3dAttr {}; ///< Factors.
/// Angles in degrees about x, y and z, in this order; a quaternion path can drive it.
class BRINDLE_HOST_EXPORT AT_Rotation3dAttr : public AT_Position3dAttr {};

/// The visits of an AT_AttrVisitor, one for each class of a list that ends in AT_Attr.
template <typename... Kinds>
class AT_AttrVisits;

template <>
class BRINDLE_HOST_EXPORT AT_AttrVisits<AT_Attr> {
public:
    virtual ~AT_AttrVisits() = default;
    virtual void visit(AT_Attr&) {}
};

template <typename Kind, typename... General>
class AT_AttrVisits<Kind, General...> : public AT_AttrVisits<General...> {
public:
    using AT_AttrVisits<General...>::visit;
    virtual void visit(Kind& attr) { static_cast<AT_AttrVisits<General...>&>(*this).visit(attr); }
};

template <typename... Kinds>
struct AT_AttrKindList {
    using Visits = AT_AttrVisits<Kinds...>;
    template <typename Class>
    static constexpr bool has = (std::is_same_v<Class, Kinds> || ...);
};

/// All classes of attributes that a visitor tells apart, each ahead of those that it derives from. An attribute's own
/// class is one of them.
using AT_AttrKinds =
    AT_AttrKindList<AT_BoolAttr, AT_IntAttr, AT_DoubleVbAttr, AT_DoubleAttr, AT_StringAttr, AT_EnumAttrBase,
                    AT_ElementAttr, AT_TimingAttr, AT_DrawingAttr, AT_ColorAttr, AT_Position2dAttr, AT_Scale3dAttr,
                    AT_Rotation3dAttr, AT_Position3dAttr, AT_DynGroupAttr, AT_SimpleAttr, AT_ComplexAttr, AT_Attr>;

/// Called by AT_Attr::accept with the attribute's own class. The visit of a class, unless it is overridden, calls that
/// of the nearest class of the list that it derives from; the one of AT_Attr does nothing.
class BRINDLE_HOST_EXPORT AT_AttrVisitor : public AT_AttrKinds::Visits {};

using AT_AttrVisitorWithFallback = AT_AttrVisitor;
