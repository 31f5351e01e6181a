#pragma once

#include "core/frame/found.h"
#include "core/frame/obj.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <span>
#include <string_view>
#include <type_traits>
#include <variant>

/// The forms that all objects of options share: they are read from a dictionary or from a positional text, and print
/// themselves as such a text.
namespace OMC::options {

/// A field of an object of options: a flag, a whole number, a text, or a text that goes through its setter.
template <typename Options>
struct Field {
    std::string_view key;
    std::variant<bool Options::*, int Options::*, QString Options::*, void (Options::*)(const QString&)> member;
};

/// The values in a positional text, in lower case, without blanks and double quotes.
///
/// Required: a text with brackets is cut to its last i characters, i being the place of the last "[", and then to the
/// first j, j being the place of the last "]". That isn't the text between the brackets.
BRINDLE_CORE_EXPORT QStringList pieces(const QString& text);

inline QString word(bool flag)
{
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}
inline QString word(int number)
{
    return QString::number(number);
}
inline QString word(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

template <typename Options, typename Flag, typename Number, typename Text>
void set(Options& options, const Field<Options>& field, Flag flag, Number number, Text text)
{
    std::visit(
        [&](auto member) {
            if constexpr (std::is_same_v<decltype(member), bool Options::*>)
                options.*member = flag();
            else if constexpr (std::is_same_v<decltype(member), int Options::*>)
                options.*member = number();
            else if constexpr (std::is_same_v<decltype(member), QString Options::*>)
                options.*member = text();
            else
                (options.*member)(text());
        },
        field.member);
}

/// Writes the fields that a value tells: a dictionary by its keys in any case of letters, whose unknown keys are passed
/// over, or a text by the positions. Fields that it doesn't tell, and those of any other value, stay as they are.
template <typename Options>
void read(Options& options, const QVariant& value, std::span<const Field<Options>> keys,
          std::span<const Field<Options>> positions)
{
    if (value.typeId() == QMetaType::QVariantMap) {
        const auto& map = *static_cast<const QVariantMap*>(value.constData());
        for (auto entry = map.begin(); entry != map.end(); ++entry) {
            const std::string key = entry.key().toLower().toStdString();
            for (const Field<Options>& field : keys) {
                if (field.key == key)
                    set(
                        options, field, [&] { return entry->toBool(); }, [&] { return entry->toInt(); },
                        [&] { return entry->toString(); });
            }
        }
    } else if (value.typeId() == QMetaType::QString) {
        const QStringList values = pieces(value.toString());
        const auto count = std::min(positions.size(), static_cast<std::size_t>(values.size()));
        for (std::size_t place = 0; place < count; ++place) {
            const QString& piece = values.at(static_cast<qsizetype>(place));
            set(
                options, positions[place], [&] { return piece == QLatin1String("true"); },
                [&] { return piece.toInt(nullptr, 10); }, [&] { return piece; });
        }
    }
}

/// Calls a function with each field that has no setter, and with its value.
template <typename Options, typename Function>
void forEachValue(const Options& options, std::span<const Field<Options>> fields, Function function)
{
    for (const Field<Options>& field : fields) {
        std::visit(
            [&](auto member) {
                if constexpr (std::is_member_object_pointer_v<decltype(member)>)
                    function(field, options.*member);
            },
            field.member);
    }
}

/// The fields without a setter, by their keys.
template <typename Options>
QVariantMap values(const Options& options, std::span<const Field<Options>> fields)
{
    QVariantMap told;
    forEachValue(options, fields, [&told](const Field<Options>& field, const auto& value) {
        told.insert(QString::fromLatin1(field.key.data(), static_cast<qsizetype>(field.key.size())), value);
    });
    return told;
}

/// "CopyOptions([True,True,True,1,0])": the name of the class, and the fields without a setter.
template <typename Options>
std::string text(const char* name, const Options& options, std::span<const Field<Options>> fields)
{
    QStringList words;
    forEachValue(options, fields, [&words](const Field<Options>&, const auto& value) { words.append(word(value)); });
    return QStringLiteral("%1([%2])").arg(QLatin1String(name), words.join(u',')).toStdString();
}

/// The options of a class in a handle; null where it is empty. Another object fails with the sentence (see found.h).
template <typename Options, typename Sentence>
Options* in(const Obj& handle, const Sentence& otherClass)
{
    return handle.get() ? &found(objectIn<Options>(handle), otherClass) : nullptr;
}

} // namespace OMC::options
