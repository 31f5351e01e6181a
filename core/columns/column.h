#pragma once

#include "core/frame/engineview.h"
#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"

#include <QList>

class CO_CommandManager;
class TUScene;
class TUTimedValue;

namespace OMC {

/// The size and the entries of a column, which a loop over it asks for.
class ColumnFrames : public EngineView<TUTimedValue> {
public:
    virtual std::size_t size() const = 0;
    virtual QVariant get(int frame) const = 0;

protected:
    using EngineView::EngineView;
};

/// A column of the exposure sheet: a value for each frame of the scene, counted from 1, and what it drives. A loop goes
/// over the values of all frames.
///
/// Frames count from 1; a fractional frame means what the column makes of it. A sub-column of -1 stands for 1. The
/// column belongs to its scene; once it is removed, every wrapper of it is invalid. Iterating a column walks its
/// frames.
class BRINDLE_CORE_EXPORT Column : public FlaggedList<ColumnFrames, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(Column)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString display_name READ getDisplayName)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(bool anonymous READ getAnonymous WRITE setAnonymous)
    Q_PROPERTY(QVariantList linked_nodes READ getLinkedNodes)
    Q_PROPERTY(QVariantList linked_attributes READ getLinkedAttributes)

public:
    static constexpr int firstIndex = 1; ///< The items are those of the frames, which count from 1.

    explicit Column(TUTimedValue* timedValue);

    std::string __str__() const override;
    bool filterDir(std::string& name) const override;

    virtual QString getType() const; ///< The kind of column: "BEZIER", "DRAWING", "SOUND", ...
    /// The cell of the exposure sheet at a frame; its form depends on the kind of column.
    virtual QVariant getEntry(double frame, int subColumn = -1) const;
    /// Writes a cell as if typed into the exposure sheet; in a repeated zone, what repeats the cell follows.
    virtual void setEntry(double frame, QVariant value, int subColumn = -1);
    virtual unsigned int nFrames() const; ///< The number of frames of the scene.

    bool __atend__() const override;

    std::size_t size() const override;                ///< The number of frames of the scene.
    virtual QVariant get(const QString& frame) const; ///< The entry at a frame, which may be given as text.
    QVariant get(int frame) const override;
    virtual void set(const QString& frame, const QVariant& value); ///< Writes the entry at a frame.
    virtual void set(int frame, const QVariant& value);
    /// Writes the entries at frames from `first` on, by steps, in one undo entry: column[1:61] = values.
    virtual void setEach(int first, int step, const QVariantList& values);
    /// As many empty values as the scene has frames, one more, and behind them the entries.
    virtual QList<QVariant> list() const;

    unsigned int getCurrentIndex() const; ///< The frame that an iteration stands at.
    void resetIterator();                 ///< Sets the iteration back to the first frame.

    /// Multiplies the values; `second` means what the column makes of it. Fails where the kind can't be scaled.
    void scale(double factor, unsigned int second);

    /// The engine's column, or null once it is gone.
    TUTimedValue* getTimedValue() const;
    /// A new wrapper of the column's kind, or null for null.
    static Column* getWrapped(TUTimedValue* timedValue);

    QString getName() const; ///< The name, which no other column of the scene has.
    void setName(const QString& name);
    QString getDisplayName() const; ///< The name as the exposure sheet shows it.
    bool getAnonymous() const;      ///< Whether the project named it, and shows it by what it drives.
    void setAnonymous(bool anonymous);
    QVariantList getLinkedNodes() const; ///< The nodes that the column drives; none for the kinds that drive nothing.
    /// The attributes that the column drives; none for the kinds that drive nothing.
    QVariantList getLinkedAttributes() const;

protected:
    /// The scene's command manager; throws the class's sentence when the scene isn't whole.
    CO_CommandManager& commandManager() const;
    const TUScene& scene() const;
    std::string described(const QString& pattern) const;

private:
    void beforeIteration() const override { validate(); }
    void beforeStep() const override { validate(); }
    void startIteration() override;
    quint64 firstPosition() const override { return firstIndex; }
    std::size_t iterationSize() const override;
    void throwNoMoreItems() const override {}
    bool stopsAtEnd() const override { return true; }
};

} // namespace OMC
