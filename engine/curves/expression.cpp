#include "engine/curves/expression.h"

#include "core/host/math_constants.h"
#include "engine/engine.h"

#include <muParser.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>

namespace brindle::engine {

namespace {

double clamped(double x, double low, double high)
{
    return std::fmax(low, std::fmin(x, high));
}
double degrees(double angle)
{
    return angle * 180 / std::numbers::pi;
}
double radians(double angle)
{
    return angle * std::numbers::pi / 180;
}
double lerp(double a, double b, double t)
{
    return a + (b - a) * t;
}
double mod(double x, double y)
{
    const double rest = std::fmod(x, y);
    return rest != 0 && (rest < 0) != (y < 0) ? rest + y : rest;
}
double sign(double x)
{
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}
double largest(const double* values, int count)
{
    return *std::max_element(values, values + count);
}
double smallest(const double* values, int count)
{
    return *std::min_element(values, values + count);
}

template <typename Call>
struct NamedFunction {
    const char* name;
    Call* call;
};

constexpr NamedFunction<double(double)> ofOne[] = {
    {"abs", std::fabs},  {"acos", std::acos},   {"asin", std::asin},  {"atan", std::atan},  {"ceil", std::ceil},
    {"cos", std::cos},   {"cosh", std::cosh},   {"degrees", degrees}, {"exp", std::exp},    {"floor", std::floor},
    {"log", std::log},   {"log10", std::log10}, {"log2", std::log2},  {"radians", radians}, {"round", std::round},
    {"sign", sign},      {"sin", std::sin},     {"sinh", std::sinh},  {"sqrt", std::sqrt},  {"tan", std::tan},
    {"tanh", std::tanh},
};
constexpr NamedFunction<double(double, double)> ofTwo[] = {
    {"atan2", std::atan2}, {"hypot", std::hypot}, {"mod", mod}, {"pow", std::pow}};
constexpr NamedFunction<double(double, double, double)> ofThree[] = {{"clamp", clamped}, {"lerp", lerp}};
constexpr NamedFunction<double(const double*, int)> ofAny[] = {{"max", largest}, {"min", smallest}};
constexpr std::pair<const char*, double> constants[] = {{"pi", std::numbers::pi}, {"e", std::numbers::e}};
constexpr std::string_view frameName = "frame";
constexpr std::string_view valueName = "value";

/// The functions that stand for `value` in the text for muParser: they take a column's number.
constexpr char valueNow[] = "_now";
constexpr char valueAt[] = "_at";

bool isKnown(std::string_view name)
{
    const auto has = [name](const auto& table) {
        return std::any_of(std::begin(table), std::end(table), [name](const auto& row) { return row.name == name; });
    };
    const auto isConstant = [name](const auto& row) { return row.first == name; };
    return name == frameName || has(ofOne) || has(ofTwo) || has(ofThree) || has(ofAny) ||
           std::any_of(std::begin(constants), std::end(constants), isConstant);
}

[[noreturn]] void fail(qsizetype place, const QString& reason)
{
    throw Expression::Fault{place, reason};
}

[[noreturn]] void failUnexpected(qsizetype place, const QString& sign)
{
    fail(place, u'"' + shown(sign) + QStringLiteral("\" is unexpected"));
}

bool isDigit(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}
bool isLetter(QChar sign)
{
    return (sign >= u'a' && sign <= u'z') || (sign >= u'A' && sign <= u'Z') || sign == u'_';
}

/// Turns the text into one for muParser: the column names numbered, `value` by its arguments. Knows for each character
/// of that one where it comes from.
class Preparation {
public:
    explicit Preparation(const QString& text) : m_text(text)
    {
        if (text.size() > Expression::longest)
            fail(Expression::longest, QStringLiteral("it is longer than %1 characters").arg(Expression::longest));
        while (skipSpace())
            takeToken();
    }

    const std::string& prepared() const { return m_prepared; }
    std::vector<Expression::Source> takeSources() { return std::move(m_sources); }
    /// The place in the given text of a character of the prepared one.
    qsizetype placeOf(int at) const
    {
        return at >= 0 && static_cast<std::size_t>(at) < m_places.size() ? m_places[static_cast<std::size_t>(at)]
                                                                         : m_text.size();
    }
    /// The last such sign ahead of a character of the prepared text.
    qsizetype lastBefore(char sign, int at) const
    {
        return placeOf(static_cast<int>(m_prepared.rfind(sign, static_cast<std::size_t>(at))));
    }
    /// The word that begins there, or the sign.
    QString wordAt(qsizetype place) const
    {
        qsizetype end = place;
        while (end < m_text.size() && (isLetter(m_text[end]) || isDigit(m_text[end]) || m_text[end] == u'.'))
            ++end;
        return m_text.mid(place, std::max<qsizetype>(end - place, 1));
    }

private:
    QChar current() const { return m_at < m_text.size() ? m_text[m_at] : QChar(); }
    bool skipSpace() ///< False at the end.
    {
        while (current().isSpace())
            ++m_at;
        return m_at < m_text.size();
    }

    /// Words are apart, except a function and its bracket.
    void append(std::string_view prepared, qsizetype from)
    {
        if (!m_prepared.empty() && prepared != "(")
            m_prepared += ' ';
        m_prepared += prepared;
        m_places.resize(m_prepared.size(), from);
    }

    void takeToken()
    {
        const qsizetype from = m_at;
        const QChar sign = current();
        if (isDigit(sign) || (sign == u'.' && m_at + 1 < m_text.size() && isDigit(m_text[m_at + 1])))
            takeNumber();
        else if (isLetter(sign))
            takeName();
        else if (!takeOperator())
            failUnexpected(from, wordAt(from));
    }

    void takeNumber()
    {
        const qsizetype from = m_at;
        const auto skipDigits = [this] {
            while (isDigit(current()))
                ++m_at;
        };
        skipDigits();
        if (current() == u'.') {
            ++m_at;
            skipDigits();
        }
        if (current().toLower() == u'e') {
            const qsizetype behind = m_at;
            ++m_at;
            if (current() == u'-' || current() == u'+')
                ++m_at;
            if (isDigit(current()))
                skipDigits();
            else
                m_at = behind;
        }
        const std::string digits = m_text.mid(from, m_at - from).toStdString();
        double number = 0;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
            fail(from, u'"' + QString::fromStdString(digits) + QStringLiteral("\" is no number"));
        append(digits, from);
    }

    bool takeOperator()
    {
        static constexpr std::u16string_view operators[] = {u"<=", u">=", u"==", u"!=", u"&&", u"||", u"+", u"-", u"*",
                                                            u"/",  u"^",  u"<",  u">",  u"?",  u":",  u"(", u")", u","};
        const QStringView rest = QStringView(m_text).mid(m_at);
        for (const std::u16string_view sign : operators) {
            if (rest.startsWith(QStringView(sign.data(), qsizetype(sign.size())))) {
                countBracket(sign.front());
                append(std::string(sign.begin(), sign.end()), m_at);
                m_at += static_cast<qsizetype>(sign.size());
                return true;
            }
        }
        return false;
    }

    /// muParser takes several expressions, one behind the other, for one.
    void countBracket(char16_t sign)
    {
        m_depth += (sign == u'(') - (sign == u')');
        if (sign == u',' && m_depth <= 0)
            failUnexpected(m_at, QStringLiteral(","));
    }

    void takeName()
    {
        const qsizetype from = m_at;
        while (isLetter(current()) || isDigit(current()))
            ++m_at;
        const std::string name = m_text.mid(from, m_at - from).toStdString();
        if (name == valueName)
            takeValue(from);
        else if (isKnown(name))
            append(name, from);
        else
            fail(from, u'"' + QString::fromStdString(name) + QStringLiteral("\" is no name that an expression knows"));
    }

    /// Behind `value`: the bracket and the name of a column.
    void takeValue(qsizetype from)
    {
        skipSpace();
        const qsizetype bracket = m_at;
        if (current() == u'(') {
            ++m_at;
            skipSpace();
        }
        const qsizetype quote = m_at;
        if (bracket == quote || current() != u'"')
            fail(from, QStringLiteral("\"value\" needs the name of a column, in brackets and in quotes"));
        const std::size_t source = sourceOf(takeText(), quote);
        if (!skipSpace() || (current() != u',' && current() != u')'))
            fail(m_at, QStringLiteral("the name of a column is followed by \",\" or \")\""));
        append(current() == u',' ? valueAt : valueNow, from);
        append("(", bracket);
        ++m_depth;
        append(std::to_string(source), quote);
    }

    QString takeText() ///< From its quote to behind its other one.
    {
        const qsizetype from = m_at;
        QString text;
        for (++m_at; current() != u'"'; ++m_at) {
            if (m_at < m_text.size() && current() == u'\\')
                ++m_at;
            if (m_at >= m_text.size())
                fail(from, QStringLiteral("a name has no end"));
            text += current();
        }
        ++m_at;
        return text;
    }

    std::size_t sourceOf(const QString& column, qsizetype place)
    {
        const auto isIt = [&](const Expression::Source& source) { return source.column == column; };
        const auto found = std::find_if(m_sources.begin(), m_sources.end(), isIt);
        const auto source = static_cast<std::size_t>(found - m_sources.begin());
        if (found == m_sources.end())
            m_sources.push_back({column, place});
        return source;
    }

    const QString& m_text;
    qsizetype m_at = 0;
    int m_depth = 0; ///< The depth of the brackets.
    std::string m_prepared;
    std::vector<qsizetype> m_places; ///< The place in the given text of each character of the prepared one.
    std::vector<Expression::Source> m_sources;
};

[[noreturn]] void fail(const mu::ParserError& error, const Preparation& preparation)
{
    const qsizetype place = preparation.placeOf(error.GetPos());
    switch (error.GetCode()) {
    case mu::ecUNEXPECTED_EOF:
        fail(preparation.placeOf(-1), QStringLiteral("something is missing at the end"));
    case mu::ecMISSING_PARENS:
        fail(preparation.placeOf(-1), QStringLiteral("a \")\" is missing"));
    case mu::ecMISSING_ELSE_CLAUSE:
        fail(preparation.placeOf(-1), QStringLiteral("a \":\" is missing"));
    case mu::ecMISPLACED_COLON:
        failUnexpected(preparation.lastBefore(':', error.GetPos()), QStringLiteral(":"));
    case mu::ecUNEXPECTED_ARG:
        failUnexpected(preparation.lastBefore(',', error.GetPos()), QStringLiteral(","));
    case mu::ecTOO_MANY_PARAMS:
        fail(preparation.lastBefore(')', error.GetPos()), QStringLiteral("a function has too many arguments"));
    case mu::ecTOO_FEW_PARAMS:
        fail(preparation.lastBefore(')', error.GetPos()), QStringLiteral("a function has too few arguments"));
    default:
        failUnexpected(place, preparation.wordAt(place));
    }
}

} // namespace

struct Expression::Private {
    mu::Parser parser;
    std::vector<Source> sources;
    double frame = 0;
    Reader* reader = nullptr;

    double read(double source, double at) { return reader->read(static_cast<std::size_t>(source), at); }
};

QString Expression::renamed(const QString& text, const QHash<QString, QString>& names)
{
    // The only texts in an expression are names of columns.
    QString renamed;
    for (qsizetype at = 0; at < text.size(); ++at) {
        renamed += text[at];
        if (text[at] != u'"')
            continue;
        QString name;
        qsizetype end = at + 1;
        for (; end < text.size() && text[end] != u'"'; ++end) {
            if (text[end] == u'\\' && end + 1 < text.size())
                ++end;
            name += text[end];
        }
        name = names.value(name, name);
        name.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
        renamed += name;
        if (end < text.size())
            renamed += u'"';
        at = end;
    }
    return renamed;
}

Expression::Expression(const QString& text) : d(std::make_unique<Private>())
{
    Preparation preparation(text);
    d->sources = preparation.takeSources();
    if (preparation.prepared().empty()) {
        d->parser.SetExpr("0");
        return;
    }
    mu::Parser& parser = d->parser;
    parser.ClearFun();
    parser.ClearConst();
    const auto define = [&parser](const auto& table) {
        for (const auto& row : table)
            parser.DefineFun(row.name, row.call);
    };
    define(ofOne);
    define(ofTwo);
    define(ofThree);
    define(ofAny);
    for (const auto& [name, value] : constants)
        parser.DefineConst(name, value);
    parser.DefineVar(std::string(frameName), &d->frame);
    // Not to be evaluated once and for all where the arguments are constant.
    constexpr bool isOptimised = false;
    const auto now = [](void* self, double source) {
        auto& d = *static_cast<Private*>(self);
        return d.read(source, d.frame);
    };
    const auto at = [](void* self, double source, double frame) {
        return static_cast<Private*>(self)->read(source, frame);
    };
    parser.DefineFunUserData(valueNow, static_cast<mu::fun_userdata_type1>(now), d.get(), isOptimised);
    parser.DefineFunUserData(valueAt, static_cast<mu::fun_userdata_type2>(at), d.get(), isOptimised);

    struct Nothing final : Reader {
        double read(std::size_t, double) override { return 0; }
    } nothing;
    try {
        parser.SetExpr(preparation.prepared());
        evaluate(1, nothing); // The first evaluation compiles.
    } catch (const mu::ParserError& error) {
        fail(error, preparation);
    }
}

Expression::~Expression() = default;

const std::vector<Expression::Source>& Expression::sources() const
{
    return d->sources;
}

std::vector<Expression::Source> Expression::sourcesOf(const QString& text)
{
    try {
        return Preparation(text).takeSources();
    } catch (const Fault&) {
        return {};
    }
}

double Expression::evaluate(double frame, Reader& reader) const
{
    d->frame = frame;
    d->reader = &reader;
    return d->parser.Eval();
}

} // namespace brindle::engine
