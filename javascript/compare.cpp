#include "javascript/compare.h"

#include "core/bridges/javascriptobject.h"
#include "qtscript/qscriptvalueiterator.h"

#include <algorithm>
#include <vector>

namespace brindle::javascript {

namespace {

class Comparison {
public:
    bool areEqual(const QScriptValue& a, const QScriptValue& b)
    {
        if (a.isNull() != b.isNull() || a.isUndefined() != b.isUndefined() || a.isValid() != b.isValid() ||
            a.isFunction() != b.isFunction() || a.isArray() != b.isArray())
            return false;
        if (a.isArray())
            return descend(a, b, &Comparison::areArraysEqual);
        if (a.isVariant() != b.isVariant() || (a.isVariant() && a.toVariant() != b.toVariant()))
            return false;
        if (a.isString() != b.isString() || (a.isString() && a.toString() != b.toString()))
            return false;
        if (a.isBool() != b.isBool() || (a.isBool() && a.toBool() != b.toBool()))
            return false;
        if (a.isNumber() != b.isNumber() || (a.isNumber() && a.toNumber() != b.toNumber()))
            return false;
        if (a.isObject() != b.isObject())
            return false;
        return !a.isObject() || a.isVariant() || descend(a, b, &Comparison::areObjectsEqual);
    }

private:
    struct Pair {
        QScriptValue a;
        QScriptValue b;
    };
    static constexpr std::size_t deepest = 1000;

    /// Two objects that are being compared further up count as equal: a difference would be found there.
    bool descend(const QScriptValue& a, const QScriptValue& b,
                 bool (Comparison::*compare)(const QScriptValue&, const QScriptValue&))
    {
        if (a.strictlyEquals(b))
            return true;
        const bool isUnderWay = std::any_of(m_pairs.begin(), m_pairs.end(), [&](const Pair& pair) {
            return pair.a.strictlyEquals(a) && pair.b.strictlyEquals(b);
        });
        if (isUnderWay)
            return true;
        if (m_pairs.size() == deepest)
            throw OMC::Exception(OMC::JavascriptObject::tr("The values lie more than %1 levels deep.").arg(deepest));
        m_pairs.push_back({a, b});
        const bool isEqual = (this->*compare)(a, b);
        m_pairs.pop_back();
        return isEqual;
    }

    bool areArraysEqual(const QScriptValue& a, const QScriptValue& b)
    {
        const QString length = QStringLiteral("length");
        const double size = a.property(length).toInteger();
        if (size != b.property(length).toInteger())
            return false;
        for (quint32 i = 0; i < size; ++i) {
            if (!areEqual(a.property(i), b.property(i)))
                return false;
        }
        return true;
    }

    bool areObjectsEqual(const QScriptValue& a, const QScriptValue& b)
    {
        const QStringList names = QScriptValueIterator::namesOf(a);
        if (names.size() != QScriptValueIterator::namesOf(b).size())
            return false;
        return std::all_of(names.begin(), names.end(),
                           [&](const QString& name) { return areEqual(a.property(name), b.property(name)); });
    }

    std::vector<Pair> m_pairs;
};

} // namespace

bool areEqual(const QScriptValue& a, const QScriptValue& b)
{
    return Comparison().areEqual(a, b);
}

} // namespace brindle::javascript
