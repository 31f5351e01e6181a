#pragma once

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace brindle::engine {

/// A formula of the frame and of other columns, compiled once and evaluated often:
///
///     value("Wave") * 2 + value("Arm", frame - 3) + sin(frame / 12)
///
/// - `frame` is the frame, from 1 and maybe fractional. `value("column")` is another column's value at this frame,
///   `value("column", f)` at frame f. In the quotes, \" is a quote and \\ a backslash.
/// - Numbers are written as in C, with a point. `pi` and `e` are constants.
/// - Operators, from the tightest: ^ (power, from the right), - and + ahead of a value, * and /, + and -, < > <= >=
///   == !=, &&, ||, and condition ? one : other. What is true is 1, and any number but 0 counts as true.
/// - Functions: abs, acos, asin, atan, atan2(y, x), ceil, clamp(x, low, high), cos, cosh, degrees, exp, floor,
///   hypot(x, y), lerp(a, b, t), log (natural), log10, log2, max, min, mod(x, y) with the sign of y, pow(x, y),
///   radians, round (halves away from zero), sign, sin, sinh, sqrt, tan, tanh. Angles are in radians; max and min take
///   one argument or more.
///
/// It reaches nothing else: no files, no clock, no process.
///
/// Parsing and evaluation are muParser's. Of the libraries at hand it is the one that Debian packages; it is linked,
/// costs half a second where it is included, and evaluates from byte code: a formula of two columns takes 40 ns longer
/// than one of the columns alone. ExprTk is somewhat faster in long formulas, but it isn't packaged, is a header that
/// takes the compiler about a minute, and has loops, assignments and texts, which a formula must not have. What
/// muParser lacks, a function that takes a text and one number or two, is prepared here: the names of columns are
/// numbered before it sees the formula, and names that it doesn't know are told ahead of it, with their place.
class Expression {
public:
    /// Why a text is no expression, and the character (from 0) at which that shows.
    struct Fault {
        qsizetype place;
        QString reason;
    };
    /// A column that the expression reads, and the character at which its name stands first.
    struct Source {
        QString column;
        qsizetype place;
    };
    /// Gives the values of the columns. Throws nothing.
    class Reader {
    public:
        virtual double read(std::size_t source, double frame) = 0; ///< `source`: its place among `sources`.

    protected:
        ~Reader() = default;
    };

    static constexpr qsizetype longest = 10000; ///< Characters.

    explicit Expression(const QString& text); ///< Throws `Fault`. An empty text is 0.
    ~Expression();
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;

    const std::vector<Source>& sources() const; ///< Each column once.
    /// Those of a text, without compiling it; none for a text that is no expression.
    static std::vector<Source> sourcesOf(const QString& text);
    /// The text with other names of columns, from names to names; all else stays as it is.
    static QString renamed(const QString& text, const QHash<QString, QString>& names);
    /// The value at a frame, which may be infinite or no number. While it runs, it can't be called again.
    double evaluate(double frame, Reader& reader) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace brindle::engine
