#include "engine/curves/expressioncolumn.h"

#include "core/host/msg_scope.h"
#include "engine/attributes/attributemeta.h"
#include "engine/curves/columnlist.h"
#include "engine/curves/curvecolumn.h"
#include "engine/engine.h"
#include "engine/folder/folderio.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"

#include <cmath>
#include <limits>
#include <map>
#include <unordered_set>

namespace brindle::engine {

namespace {

constexpr int deepest = 500;
constexpr int mostSteps = 100'000;

class SetExpression final : public CO_Command {
public:
    SetExpression(ExpressionColumn* column, const QString& text) : m_column(column), m_text(text) {}

    Status execute() override
    {
        if (!m_column || !m_column->faultOf(m_text).isEmpty())
            return kFail;
        m_isChange = m_text != m_column->expression();
        return exchange();
    }
    Status unexecute() override { return exchange(); }

private:
    Status exchange()
    {
        if (!m_isChange)
            return kNoop;
        const QString before = m_column->expression();
        m_column->setExpression(m_text);
        m_text = before;
        return kOk;
    }

    ExpressionColumn* m_column;
    QString m_text; ///< The text that the column gets next.
    bool m_isChange = false;
};

QString told(const Expression::Fault& fault)
{
    return QStringLiteral("character %1: ").arg(fault.place + 1) + fault.reason;
}

} // namespace

constinit const ColumnKind expressionKind{TUTimedValue::kExpression, "EXPR", ExpressionColumn::fieldNames,
                                          &makeColumn<ExpressionColumn>};

/// The columns that the evaluation of one of them has gone through.
struct ExpressionColumn::Evaluation {
    int depth = 0;
    int steps = 0;
    bool isGivenUp = false;
    std::map<std::pair<const ExpressionColumn*, double>, double> values;
};

constinit thread_local ExpressionColumn::Evaluation* ExpressionColumn::running = nullptr;

class ExpressionColumn::SourceReader final : public Expression::Reader {
public:
    explicit SourceReader(const std::vector<NumberValues*>& numbers) : m_numbers(numbers) {}

    double read(std::size_t source, double frame) override
    {
        if (!std::isfinite(frame))
            return std::numeric_limits<double>::quiet_NaN();
        double value = 0;
        return m_numbers[source]->valueAt(frame, value) ? value : 0;
    }

private:
    const std::vector<NumberValues*>& m_numbers;
};

ExpressionColumn::ExpressionColumn(const QString& name, bool anonymous) : HostColumn(expressionKind, name, anonymous) {}

ExpressionColumn::~ExpressionColumn() = default;

double ExpressionColumn::evaluate(double frame) const
{
    if (running)
        return evaluateWithin(*running, frame);
    struct Run {
        Evaluation evaluation;
        Run() { running = &evaluation; }
        ~Run() { running = nullptr; }
    } run;
    const double value = compute(frame);
    if (!run.evaluation.isGivenUp)
        return value;
    log(QStringLiteral("it goes through too many columns"));
    return 0;
}

double ExpressionColumn::evaluateWithin(Evaluation& evaluation, double frame) const
{
    const std::pair key(this, frame);
    const auto known = evaluation.values.find(key);
    if (known != evaluation.values.end())
        return known->second;
    if (evaluation.depth == deepest || evaluation.steps == mostSteps)
        evaluation.isGivenUp = true;
    if (evaluation.isGivenUp)
        return 0;
    ++evaluation.depth;
    ++evaluation.steps;
    const double value = compute(frame);
    --evaluation.depth;
    evaluation.values.emplace(key, value);
    return value;
}

double ExpressionColumn::compute(double frame) const
{
    if (!isReady())
        return 0;
    SourceReader reader(m_numbers);
    const double value = m_expression->evaluate(frame, reader);
    if (std::isfinite(value))
        return value;
    log(QStringLiteral("its value is no finite number"));
    return 0;
}

bool ExpressionColumn::isReady() const
{
    const std::uint64_t revision = list() ? list()->readers().revision() : 0;
    if (m_revision != revision || revision == 0) {
        prepare();
        m_revision = revision;
    }
    return m_isReady;
}

void ExpressionColumn::prepare() const
{
    m_isReady = false;
    try {
        if (!m_expression)
            m_expression = std::make_unique<Expression>(m_text);
        m_numbers = numbersOf(*m_expression);
        m_isReady = true;
        m_logged.clear();
    } catch (const Expression::Fault& fault) {
        log(told(fault));
    }
}

std::vector<NumberValues*> ExpressionColumn::numbersOf(const Expression& expression) const
{
    std::vector<NumberValues*> numbers;
    for (const Expression::Source& source : expression.sources()) {
        const QString name = quoted(source.column);
        const auto fail = [&](const QString& reason) { throw Expression::Fault{source.place, reason}; };
        Column* column = list() ? Column::of(list()->find(source.column)) : nullptr;
        if (!column)
            fail(QStringLiteral("there is no column named ") + name);
        if (!column->numbers())
            fail(QStringLiteral("the values of the column ") + name + QStringLiteral(" are no numbers"));
        if (column == this)
            fail(QStringLiteral("a column can't read its own values"));
        if (isReadBy(*column))
            fail(QStringLiteral("the column ") + name + QStringLiteral(" reads the values of this one"));
        numbers.push_back(column->numbers());
    }
    return numbers;
}

bool ExpressionColumn::isReadBy(const Column& column) const
{
    std::vector<const Column*> ahead = {&column};
    std::unordered_set<const Column*> known = {&column};
    while (!ahead.empty()) {
        const QStringList sources = ahead.back()->sources();
        ahead.pop_back();
        for (const QString& name : sources) {
            const Column* source = Column::of(list()->find(name));
            if (source == this)
                return true;
            if (source && known.insert(source).second)
                ahead.push_back(source);
        }
    }
    return false;
}

void ExpressionColumn::log(const QString& reason) const
{
    if (reason == m_logged)
        return;
    m_logged = reason;
    MSG_Scope(QStringLiteral("The expression of the column %1 is 0: ").arg(quoted(name())) + reason + u'.',
              MSG_Scope::kError);
}

QString ExpressionColumn::faultOf(const QString& text) const
{
    try {
        numbersOf(Expression(text));
        return {};
    } catch (const Expression::Fault& fault) {
        return QStringLiteral("Invalid expression at ") + told(fault) + u'.';
    }
}

void ExpressionColumn::setExpression(const QString& text)
{
    if (list())
        list()->readers().remove(*this);
    keep(text);
    if (list())
        list()->readers().add(*this);
    tellLinked();
}

void ExpressionColumn::keep(const QString& text)
{
    m_text = text;
    m_sources.clear();
    for (const Expression::Source& source : Expression::sourcesOf(text))
        m_sources.append(source.column);
    m_expression.reset();
    m_logged.clear();
    m_revision = 0;
}

void ExpressionColumn::getValueForXsheet(double frame, int, QString* text, bool& isKey, bool& isHeld, bool& isBlank,
                                         bool& isLocked) const
{
    isKey = isHeld = false;
    isBlank = m_text.isEmpty();
    isLocked = true;
    if (text)
        *text = isBlank ? QString() : cellText(evaluate(frame));
}

bool ExpressionColumn::fits(const AttributeMeta& attribute) const
{
    return attribute.isLinkable() && attribute.kind().drivenBy == DrivenBy::Numbers;
}

bool ExpressionColumn::valueAt(double frame, double& value) const
{
    value = evaluate(frame);
    return true;
}

std::unique_ptr<CO_Command> ExpressionColumn::setValueCommand(double, double)
{
    return std::make_unique<RefusedCommand>();
}

void ExpressionColumn::renameSources(const QHash<QString, QString>& names)
{
    keep(Expression::renamed(m_text, names));
}

std::unique_ptr<Column> ExpressionColumn::copy(const QString& name, bool anonymous) const
{
    auto made = std::make_unique<ExpressionColumn>(name, anonymous);
    made->keep(m_text);
    return made;
}

void ExpressionColumn::write(JsonWriter& json) const
{
    json.key("expression").text(m_text);
}

void ExpressionColumn::read(const JsonPlace& place)
{
    keep(place.field("expression").text());
}

} // namespace brindle::engine

namespace tu_timedvalue::expr {

SetExprCmd::SetExprCmd(TUExprTimedValue* column, const QString& text)
    : CO_EngineCommand(std::make_unique<brindle::engine::SetExpression>(
          dynamic_cast<brindle::engine::ExpressionColumn*>(column), text))
{}

} // namespace tu_timedvalue::expr
