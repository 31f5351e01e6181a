#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace brindle::engine {

/// The values of a JSON text, in one array: the items of a list stand side by side, the fields of an object likewise,
/// each as its name and its value. A value remembers its place in the text.
///
/// It accepts what QJsonDocument accepts, and names a fault in the same words and at the same offset; a test compares
/// the two over every truncation of a file and many random changes. It stands beside Qt's reader because a scene is
/// read value by value: a QJsonValue is an object that is counted and copied, knows no place in the text, and has lost
/// a field that stood there twice. Opening 10,000 linked nodes with a key each took 870 million instructions with Qt's
/// reader and takes 300 million with this one.
class JsonTree {
public:
    /// Why a text is no JSON, and the offset at which that shows.
    struct Fault {
        qsizetype offset;
        QString reason;
    };

    /// A value; those of lists and objects lead to what is in them.
    struct Value {
        std::uint32_t begin; ///< Offset in the text.
        std::uint32_t size;  ///< Of a text its bytes between the quotes; the items of a list, the fields of an object.
        union {
            double number;
            std::uint32_t first; ///< Of a list or an object: the place of the first item or field name.
            bool hasEscapes;     ///< Of a text.
        };
    };

    explicit JsonTree(const QByteArray& text); ///< Throws `Fault`.
    JsonTree(const JsonTree&) = delete;
    JsonTree& operator=(const JsonTree&) = delete;

    const QByteArray& bytes() const { return m_text; }
    const Value& root() const { return m_root; }

    bool isObject(const Value& value) const { return sign(value) == '{'; }
    bool isList(const Value& value) const { return sign(value) == '['; }
    bool isText(const Value& value) const { return sign(value) == '"'; }
    bool isFlag(const Value& value) const { return sign(value) == 't' || sign(value) == 'f'; }
    bool isNumber(const Value& value) const { return sign(value) >= '-' && sign(value) <= '9'; }

    /// Of a list its items; of an object name, value, name, value, ...
    std::span<const Value> content(const Value& value) const
    {
        return {m_values.data() + value.first, isObject(value) ? 2 * std::size_t(value.size) : value.size};
    }
    bool flag(const Value& value) const { return sign(value) == 't'; }
    QString text(const Value& value) const;
    bool isText(const Value& value, std::string_view text) const { return isText(value) && isSame(value, text); }
    /// Whether a text, as the name of a field is one, is that text.
    bool isSame(const Value& value, std::string_view text) const
    {
        return value.hasEscapes ? isSameUnescaped(value, text) : raw(value) == text;
    }

    /// The name that a field has of which another of its object has the same, the first such in the text; or null.
    const Value* repeatedName() const;

private:
    class Parser;

    char sign(const Value& value) const { return m_text.constData()[value.begin]; }
    std::string_view raw(const Value& text) const { return {m_text.constData() + text.begin + 1, text.size}; }
    bool isSameUnescaped(const Value& value, std::string_view text) const;
    bool areSame(const Value& one, const Value& other) const
    {
        return one.hasEscapes || other.hasEscapes ? text(one) == text(other) : raw(one) == raw(other);
    }
    const Value* repeatedName(const Value& object) const;

    const QByteArray m_text;
    std::vector<Value> m_values;
    Value m_root = {};
};

} // namespace brindle::engine
