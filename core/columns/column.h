#pragma once

#include "core/frame/obj.h"
#include "core/frame/unexpected.h"

#include <QList>

#include <memory>

class CO_CommandManager;
class TUScene;
class TUTimedValue;

namespace OMC {

/// A column of the exposure sheet: a value for each frame of the scene, and what it drives.
///
/// Frames count from 1; a fractional frame means what the column makes of it. A sub-column of -1 stands for 1. The
/// column belongs to its scene; once it is removed, every wrapper of it is invalid. Iterating a column walks its
/// frames.
class BRINDLE_CORE_EXPORT Column : public BaseObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString display_name READ getDisplayName)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(bool anonymous READ getAnonymous WRITE setAnonymous)
    Q_PROPERTY(QVariantList linked_nodes READ getLinkedNodes)
    Q_PROPERTY(QVariantList linked_attributes READ getLinkedAttributes)

public:
    static constexpr int firstIndex = 1; ///< Of the items, which are those of the frames.

    explicit Column(TUTimedValue* timedValue);
    Column(const Column& other);
    ~Column() override;

    BaseObject* copy() const override;
    std::string __str__() const override;
    bool filterDir(std::string& name) const override;

protected:
    void validate() const override;

public:
    virtual QString getType() const; ///< "DRAWING", "BEZIER", ...
    /// What the exposure sheet shows at a frame, as text.
    virtual QVariant getEntry(double frame, int subColumn = -1) const;
    /// Writes a cell as if typed into the exposure sheet. In a repeated zone, what repeats the cell follows.
    virtual void setEntry(double frame, QVariant value, int subColumn = -1);
    virtual unsigned int nFrames() const; ///< Of the scene.

    /// The cursor of an iteration is a frame.
    virtual QVariant __iterItem__() const;
    virtual void operator++();
    virtual void operator--();
    virtual bool __atend__() const;
    virtual Obj __iter__() const;

    virtual std::size_t size() const; ///< As nFrames.
    /// The entry at a frame, which may be given as text.
    virtual QVariant get(const QString& frame) const;
    virtual QVariant get(int frame) const;
    virtual void set(const QString& frame, const QVariant& value);
    virtual void set(int frame, const QVariant& value);
    /// As many invalid values as the scene has frames, one more, and behind them the entries.
    virtual QList<QVariant> list() const;

    unsigned int getCurrentIndex() const;
    void resetIterator();

    /// Multiplies the values; `second` means what the column makes of it. Throws where the kind can't be scaled.
    void scale(double factor, unsigned int second);

    /// The engine's column, or null once it is gone.
    TUTimedValue* getTimedValue() const;
    /// A new wrapper of the column's kind, or null for null.
    static Column* getWrapped(TUTimedValue* timedValue);

    QString getName() const;
    void setName(const QString& name);
    QString getDisplayName() const;
    bool getAnonymous() const;
    void setAnonymous(bool anonymous);
    /// What the column drives; empty for the kinds that drive nothing.
    QVariantList getLinkedNodes() const;
    QVariantList getLinkedAttributes() const;

protected:
    /// The checked engine column.
    TUTimedValue& timedValue() const;
    /// The engine column as one of class T; throws when it is gone or none.
    template <typename T>
    T& timedValueAs() const;
    /// The scene's command manager; throws the class's sentence when the scene isn't whole.
    CO_CommandManager& commandManager() const;
    const TUScene& scene() const;
    std::string described(const QString& pattern) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

template <typename T>
T& Column::timedValueAs() const
{
    auto* column = dynamic_cast<T*>(&timedValue());
    if (!column)
        unexpected::fail();
    return *column;
}

} // namespace OMC
