#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"
#include "core/host/gr_thicknesspath.h"

namespace OMC {

/// The varying width of a line: a list of keys (DrawingVectorThicknessPathPoint) in the order of their positions. Each
/// edge runs from key to key on a cubic curve that the handles of the keys shape; without handles it is a straight
/// line.
///
/// A value: a change reaches no drawing until the path is set on a stroke. Strokes on which the same path is set share
/// it, until the path is changed; what they have stays as it was. Copies share it in the same way, clone() gives a path
/// of its own. Thicknesses are distances of one edge from the centre line, in units of the drawing.
class BRINDLE_CORE_EXPORT DrawingVectorThicknessPath : public CountedList<ListQVar, IterableQVar> {
    Q_OBJECT
    BRINDLE_COPYABLE(DrawingVectorThicknessPath)
    Q_PROPERTY(bool empty READ getEmpty)
    Q_PROPERTY(bool thickness_constant READ getThicknessConstant)
    Q_PROPERTY(bool closed READ getClosed WRITE setClosed)
    Q_PROPERTY(double thickness_min READ getMinThickness)
    Q_PROPERTY(double thickness_min_inner READ getMinThicknessInner)
    Q_PROPERTY(double thickness_max READ getMaxThickness)
    Q_PROPERTY(double thickness_max_inner READ getMaxThicknessInner)
    Q_PROPERTY(QVariant tip_from_bezier READ getTipFromBezier WRITE setTipFromBezier)
    Q_PROPERTY(QVariant tip_to_bezier READ getTipToBezier WRITE setTipToBezier)

public:
    DrawingVectorThicknessPath(); ///< Without keys.
    DrawingVectorThicknessPath(const DrawingVectorThicknessPath& other);
    explicit DrawingVectorThicknessPath(const GR_ThicknessPath* path); ///< A copy. Null gives one without keys.
    DrawingVectorThicknessPath& operator=(const DrawingVectorThicknessPath& other);

    /// A new object for a path of the engine itself; without keys for null.
    ///
    /// The caller owns it.
    static DrawingVectorThicknessPath* createShared(GR_ThicknessPathPtr path);

    std::string __str__() const override;

    bool operator==(const DrawingVectorThicknessPath& other) const { return *m_path == *other.m_path; }

    std::size_t size() const override;
    using ListQVar::get;
    QVariant get(int index) const override;
    using ListQVar::set;
    /// Replaces a key by a point, whose position must lie between the neighbouring keys, or by a number: the width on
    /// both sides at the position of the key, with its handles at the key.
    void set(int index, const QVariant& value) override;
    QList<QVariant> list() const override;
    bool contains(const QVariant& point) const override; ///< Whether a key is equal to the point, handles included.

    /// Adds a key, or each of those in a list, and gives its index, or a list of them: a point, a Point2d, or
    /// [position, thickness]. A key that stands at the very same position is replaced.
    QVariant insert(const QVariant& points);
    void remove(const QVariant& point); ///< Removes all keys that are equal to a point, or the key at an index.

    Obj clone() const;   ///< An equal path that shares nothing with this one.
    Obj reverse() const; ///< The path as a new one for a line in the other direction: left and right change places.
    /// The stretch between two positions as a new path; positions stay as they are.
    Obj truncate(double from, double to) const;
    void transform(double factor, double offset); ///< Moves each position p to p * factor + offset; factor above 0.

    bool getEmpty() const;             ///< Whether there are no keys.
    bool getThicknessConstant() const; ///< Whether each edge has one thickness all along.
    /// Whether the line is closed: the thickness goes on from the last key to the first, and there are no tips.
    bool getClosed() const;
    void setClosed(bool closed);
    double getMinThickness() const;      ///< The least thickness that an edge has anywhere.
    double getMinThicknessInner() const; ///< The least thickness that a key has.
    double getMaxThickness() const;      ///< The greatest thickness that an edge has anywhere.
    double getMaxThicknessInner() const; ///< The greatest thickness that a key has.
    /// The form of the line beyond its start, a Bezier from its left edge to its right one: x outwards and y to the
    /// left, in thicknesses. One whose points are all in one place, as in a new path, stands for none, and the tip's
    /// type counts; null makes it so.
    QVariant getTipFromBezier() const;
    void setTipFromBezier(const QVariant& curve);
    QVariant getTipToBezier() const; ///< As tip_from_bezier, beyond the end of the line.
    void setTipToBezier(const QVariant& curve);

    const GR_ThicknessPathPtr& path() const { return m_path; } ///< The engine's path, shared. Never null.

private:
    struct Shared {};
    DrawingVectorThicknessPath(Shared, GR_ThicknessPathPtr path);

    template <typename Edit>
    auto edit(const Edit& edit);
    void requireIndex(int index) const;

    GR_ThicknessPathPtr m_path;
};

} // namespace OMC
