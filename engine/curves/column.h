#pragma once

#include "core/host/math_point.h"
#include "core/host/tu_timedvalue.h"
#include "engine/enginepart.h"

#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace brindle::engine {

class AttributeMeta;
class Column;
class ColumnList;
class JsonPlace;
class JsonWriter;
struct ColumnKind;
struct FramePaste;
struct FrameShift;

/// Values that are numbers, one a frame: what an attribute with a number asks of the column that drives it.
class NumberValues {
public:
    virtual bool valueAt(double frame, double& value) const = 0; ///< False while the column has no value at all.
    /// Sets the value at a frame, with a key there where the kind has keys. With `constantSegment` the key holds its
    /// value up to the next one; without, that stays as it is. False when it is refused.
    virtual bool setValueAt(double frame, double value, bool constantSegment) = 0;
    virtual std::unique_ptr<CO_Command> setValueCommand(double frame, double value) = 0;

protected:
    ~NumberValues() = default;
};

/// Values that are positions in space, one a frame: what an attribute with a position asks of the column that drives
/// it.
class PositionValues {
public:
    virtual bool positionAt(double frame, Math::Point3d& position) const = 0; ///< False while there is none at all.
    /// Sets the position at a frame, with a keyframe there. With `constantSegment` it holds up to the next keyframe;
    /// without, that stays as it is. False when it is refused.
    virtual bool setPositionAt(double frame, const Math::Point3d& position, bool constantSegment) = 0;
    virtual std::unique_ptr<CO_Command> setPositionCommand(double frame, const Math::Point3d& position) = 0;

protected:
    ~PositionValues() = default;
};

/// The place at which an attribute of the open engine is linked to a column. It is a part of the attribute.
///
/// The column lists its links in the order of linking. An order number that only grows says where in the list a link
/// stands, so that a link that is cut and restored comes back to its place in logarithmic time, whatever their number.
class Socket final : public TUTvSocket {
public:
    using Order = unsigned long long;

    Socket(AT_Attr& attr, const AttributeMeta& meta) : m_attr(attr), m_meta(meta) {}
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() override;

    AT_Attr* attr() const override { return &m_attr; }
    TUTimedValue* linkedTimedValue() const override;
    bool columnName(QString& name, int) const override;

    const AttributeMeta& meta() const { return m_meta; }
    Column* column() const { return m_column; }
    NumberValues* numbers() const { return m_numbers; }       ///< The linked column's; null without one.
    PositionValues* positions() const { return m_positions; } ///< Likewise.
    Order order() const { return m_order; }                   ///< The place of the present link.

    Order link(Column& column);                ///< At the end of the column's links. Cuts the link that was.
    void restore(Column& column, Order order); ///< At the place that the link had. Cuts the link that was.
    void unlink();

private:
    friend class Column;

    AT_Attr& m_attr;
    const AttributeMeta& m_meta;
    Column* m_column = nullptr;
    NumberValues* m_numbers = nullptr;
    PositionValues* m_positions = nullptr;
    Order m_order = 0;
};

/// The part that all columns of the open engine share: a kind, a name, a scene and links. Its virtual operations are
/// what a kind of column is to the engine: which attributes it drives, how it follows its scene, how it is copied,
/// saved and read. A class of columns derives from this one and from its host class through HostColumn; `of` leads from
/// one to the other.
class Column {
public:
    Column(TUTimedValue& self, const ColumnKind& kind, const QString& name, bool anonymous);
    Column(const Column&) = delete;
    Column& operator=(const Column&) = delete;
    virtual ~Column();

    /// Null for null and for a column of another engine.
    static Column* of(TUTimedValue* timedValue) { return enginePart<Column>(timedValue); }
    static const Column* of(const TUTimedValue* timedValue) { return of(const_cast<TUTimedValue*>(timedValue)); }

    static std::unique_ptr<TUTimedValue> asTimedValue(std::unique_ptr<Column> column);

    TUTimedValue& timedValue() const { return m_self; }
    const ColumnKind& kind() const { return m_kind; }
    QString name() const; ///< Changed by the scene's ColumnList, and before it is in one.
    void setName(const QString& name) { m_name = name; }
    bool anonymous() const { return m_anonymous; }
    void setAnonymous(bool anonymous) { m_anonymous = anonymous; }
    /// Null while it is in no list of columns; of a part, that of the column which it belongs to.
    SC_SceneCommon* scene() const { return m_owner ? m_owner->scene() : m_scene; }
    /// The column that this one is a part of, or null. A part is in no list, drives nothing and is named by its owner.
    Column* owner() const { return m_owner; }
    virtual Column* part() const { return nullptr; } ///< The column that belongs to this one, or null.

    QString displayName() const; ///< The name; of an anonymous column, what it drives first: "Arm: position.x".
    int linkCount() const { return static_cast<int>(m_links.size()); }
    AT_Attr* linkedAttribute(unsigned int index) const; ///< Null beyond the end.
    bool isTaken(Socket::Order order) const { return m_links.contains(order); }
    std::vector<MO_Node*> nodes() const;
    bool drivesOnlySwitches() const { return m_switches > 0 && m_switches == linkCount(); }
    /// Tells each linked node, and the scene, that values changed; and those of the columns that read this one's.
    void tellLinked() const;
    void tellOwnLinks() const; ///< The same without the columns that read it.
    /// Makes all weak pointers to the column, and to its part, read null: it leaves the scene.
    void expire();

    virtual bool fits(const AttributeMeta& attribute) const = 0; ///< Whether it can drive the attribute.
    virtual NumberValues* numbers() = 0;                         ///< Null for a kind whose values are no numbers.
    virtual PositionValues* positions() { return nullptr; }      ///< Null for a kind whose values are no positions.

    /// The element whose drawings it shows; -1 for none.
    virtual int elementId() const { return -1; }
    virtual bool showsDrawing(const QString&) const { return false; } ///< Whether a cell names this drawing of it.
    /// Follows a drawing of its element that gets another name. Null when no cell names it.
    virtual std::unique_ptr<CO_Command> renameDrawingCommand(const QString& from, const QString& to);
    /// The names of the columns from whose values the column's own are computed.
    virtual QStringList sources() const { return {}; }

    /// Follows frames that come into the scene, or go with all that lies on them. Null when nothing lies there.
    virtual std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift& shift) = 0;
    /// Takes what lies on `count` frames behind frame `at`; all else stays where it is. Null when nothing lies there.
    virtual std::unique_ptr<CO_Command> clearFramesCommand(int at, int count) = 0;

    /// Writes frames of a column of the same kind over its own. Null where that has nothing to write.
    virtual std::unique_ptr<CO_Command> pasteCommand(const Column& source, const FramePaste& paste) = 0;

    /// Keeps `count` frames from `first` on, which become those from 1 on. Where keys beyond them shape the values, the
    /// first and the last one get keys that hold these. For a column that is in no scene yet.
    virtual void keepFrames(int first, int count) = 0;
    /// A new column of the kind with the same values, in no scene and without links.
    virtual std::unique_ptr<Column> copy(const QString& name, bool anonymous) const = 0;
    /// The fields of the kind in the file of its scene; the column that reads them is new.
    virtual void write(JsonWriter& json) const = 0;
    virtual void read(const JsonPlace& place) = 0;

protected:
    ColumnList* list() const { return m_list; } ///< Null while it is in none.
    void setOwner(Column& owner) { m_owner = &owner; }

private:
    friend class ColumnList;
    friend class Socket;

    void add(Socket& socket);
    void remove(Socket& socket);

    TUTimedValue& m_self;
    const ColumnKind& m_kind;
    Column* m_owner = nullptr;
    SC_SceneCommon* m_scene = nullptr;
    ColumnList* m_list = nullptr;
    QString m_name;
    bool m_anonymous = false;
    int m_place = 0; // where the list last had it
    int m_switches = 0;
    Socket::Order m_nextOrder = 1;
    std::map<Socket::Order, Socket*> m_links;
    mutable std::vector<Socket*> m_ordered; // the links by place; empty when out of date
};

/// Tells the attribute's node, and its scene, that its value changed.
void tellChanged(const AT_Attr& attr);

} // namespace brindle::engine
