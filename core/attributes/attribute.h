#pragma once

#include "core/attributes/attributecast.h"
#include "core/frame/engineview.h"
#include "core/frame/obj.h"

#include <QStringList>

class AT_Attr;
class AT_ComplexAttr;
class CO_Command;
class CO_CommandManager;
class MO_FrameRange;
class MO_Node;
class SC_SceneCommon;
class TUTimedValue;

namespace OMC {

/// A parameter of a node: what it is, which column drives it, its value as text, and the way to its sub-attributes.
/// Typed values are in the subclasses.
///
/// It holds the attribute that its path of keywords led to when it was made. Once that one has left its node the object
/// stays invalid, also when another attribute takes the same path.
///
///     Obj attribute(Attribute::getWrapped(node->findAttributeByKeyword("angle"), {}));
class BRINDLE_CORE_EXPORT Attribute : public EngineView<MO_Node> {
    Q_OBJECT
    BRINDLE_COPYABLE(Attribute)
    Q_PROPERTY(QVariant column READ getColumn WRITE setColumn)
    Q_PROPERTY(QString column_name READ getColumnName WRITE setColumnName)
    Q_PROPERTY(QString keyword READ getKeyword)
    Q_PROPERTY(QString display_name READ getDisplayName)
    Q_PROPERTY(QString type READ getTypeName)
    Q_PROPERTY(QString full_keyword READ getFullKeyword)
    Q_PROPERTY(bool dynamic READ getDynamic)
    Q_PROPERTY(bool linkable READ getLinkable)
    Q_PROPERTY(OMC::Obj subattributes READ getSubattributes)

public:
    Attribute(MO_Node* node, const QStringList& parentPath, const QString& keyword);
    /// The same for an attribute that is found already, below a dotted path.
    Attribute(AT_Attr& attribute, const QString& parentPath);

    std::string __str__() const override;
    bool filterDir(std::string& name) const override;

    /// The linked column, or null. Takes a column or the name of one; null, false and "" unlink.
    virtual QVariant getColumn() const;
    virtual void setColumn(const QVariant& value);
    /// The linked column's name, "" without one. Writing one links without unlinking first; "" unlinks.
    virtual QString getColumnName() const;
    virtual void setColumnName(const QString& name);
    virtual bool unlink();                    ///< Cuts the link to the column; false where that fails.
    virtual bool link(const QVariant& value); ///< Links a column; false where that fails.

    virtual QString getKeyword() const;     ///< The attribute's own keyword.
    virtual QString getDisplayName() const; ///< The name as a person reads it.
    virtual QString getTypeName() const;    ///< The kind of value: "DOUBLE", "BOOL", "POSITION_3D", ...
    virtual QString getFullKeyword() const; ///< The keywords of all its levels, with points between them: "position.x".
    virtual bool getDynamic() const;        ///< Whether a script or a person added it to the node.
    virtual bool getLinkable() const;       ///< Whether a column can drive it.

    /// Sets the value at a frame from a text; false when it can't be read or is refused.
    virtual bool setTextValue(int frame, const QString& text);
    virtual QString getTextValue(int frame) const; ///< The value at a frame as text.

    using BaseObject::getAttr;
    /// The engine's attribute; null when there never was one. Throws when it is no longer the one it was made for.
    AT_Attr* getAttr() const;
    QStringList getPath() const;  ///< The keywords of all its levels.
    Obj getSubattributes() const; ///< The attributes inside this one; null when it holds none.
    Obj node() const;             ///< The node that the attribute belongs to.
    MO_Node* getNode() const;     ///< The engine node, or null once it is gone.

    bool operator==(const Attribute& other) const;
    bool operator==(const Attribute* other) const;

    /// A new wrapper of the attribute's kind, or null for null.
    static Attribute* getWrapped(AT_Attr* attribute, const QStringList& parentPath);
    /// The same below a dotted path.
    static Attribute* getWrappedBelow(AT_Attr* attribute, const QString& parentPath);
    /// The same for an attribute whose path isn't known; null for one below the second level.
    static Attribute* getWrappedByAttr(AT_Attr* attribute);
    /// The attribute at a path from the node's top level, or null: a keyword a level, or a dotted path.
    static AT_Attr* attribFromPath(const MO_Node& node, const QStringList& path);
    static AT_Attr* attribFromFullPath(MO_Node* node, const QString& fullPath);
    /// The attribute of a keyword inside another; null for a null attribute too.
    static AT_Attr* memberNamed(const AT_ComplexAttr* attribute, QStringView keyword);
    /// Reads a frame ("10") or a range of frames ("[10, 20]", -1 for the scene's last) from a script's argument. What
    /// is neither leaves the three results as they are.
    static void deriveRangeQVariant(SC_SceneCommon* scene, const QVariant& value, int& start, int& end, bool& isRange);
    /// The same as a range of frames; what is neither gives all frames.
    static MO_FrameRange frameRange(SC_SceneCommon* scene, const QVariant& value);

protected:
    /// The engine's attribute as one of class T; throws when it is none.
    template <typename T>
    T& typed() const;
    /// A text with the qualified node name and the full keyword filled in.
    std::string described(const QString& pattern) const;

private:
    [[noreturn]] static void throwUnexpectedType();
    AT_Attr& attribute() const;
    AT_Attr& attributeToLink() const;
    /// Runs the command that links a column, or unlinks for null, under its label.
    void runLink(CO_CommandManager& manager, CO_Command* command, const TUTimedValue* column);

    QString m_parentPath; ///< Dotted: a path of one keyword shares the engine's text.
    QString m_keyword;
    WeakHandle<AT_Attr> m_attribute;
    bool m_isFound; ///< Whether there was an attribute at the path.
};

template <typename T>
T& Attribute::typed() const
{
    validate();
    auto* attribute = attributeCast<T>(getAttr());
    if (!attribute)
        throwUnexpectedType();
    return *attribute;
}

} // namespace OMC
