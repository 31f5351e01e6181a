#include "app/arguments.h"

#include "core/host/pr_preference.h"
#include "core/services/preferences.h"
#include "engine/engine.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace app {

namespace {

enum class Deed { List, Show, Set, Reset };

struct PreferenceOptions {
    Deed deed = Deed::List;
    QString name;
    QString value;
};

PreferenceOptions optionsIn(Arguments& arguments)
{
    PreferenceOptions options;
    while (arguments.next()) {
        const QByteArray option = arguments.value();
        if (options.deed != Deed::List) {
            arguments.misfit();
        } else if (!arguments.isOption()) {
            options.deed = Deed::Show;
            options.name = QString::fromUtf8(option);
        } else if (option == "--reset") {
            if (arguments.takeFor("--reset needs a name."))
                options.name = QString::fromUtf8(arguments.value());
            options.deed = Deed::Reset;
        } else if (option == "--set") {
            if (arguments.takeFor("--set needs a name and a value."))
                options.name = QString::fromUtf8(arguments.value());
            const QList<QByteArray> rest = arguments.takeRest();
            if (rest.size() != 1)
                arguments.fail("--set needs a name and a value.");
            else
                options.value = QString::fromUtf8(rest.first());
            options.deed = Deed::Set;
        } else {
            arguments.refuse();
        }
    }
    return options;
}

std::optional<QColor> colourIn(const QString& text)
{
    static const QRegularExpression form("^#([0-9a-fA-F]{6})([0-9a-fA-F]{2})?$");
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return QColor('#' + (match.captured(2).isEmpty() ? QString("ff") : match.captured(2)) + match.captured(1));
}

/// The text as a value of a kind; invalid where it is none.
QVariant valueOf(const QString& text, int kind)
{
    bool isRight = false;
    switch (kind) {
    case PR_PrefItem::Bool:
        return text == "true" || text == "false" ? QVariant(text == "true") : QVariant();
    case PR_PrefItem::Int: {
        const int number = text.toInt(&isRight);
        return isRight ? QVariant(number) : QVariant();
    }
    case PR_PrefItem::Double: {
        const double number = text.toDouble(&isRight);
        return isRight ? QVariant(number) : QVariant();
    }
    case PR_PrefItem::Rgba: {
        const std::optional<QColor> colour = colourIn(text);
        return colour ? QVariant(*colour) : QVariant();
    }
    default:
        return text;
    }
}

QVariant newValue(const QString& text)
{
    for (const int kind : {PR_PrefItem::Bool, PR_PrefItem::Int, PR_PrefItem::Double, PR_PrefItem::Rgba}) {
        if (const QVariant value = valueOf(text, kind); value.isValid())
            return value;
    }
    return text;
}

/// As --set reads it.
QString textOf(const PR_PrefItem& item)
{
    if (const auto* flag = dynamic_cast<const PR_BoolItem*>(&item))
        return flag->value() ? "true" : "false";
    if (const auto* whole = dynamic_cast<const PR_IntItem*>(&item))
        return QString::number(whole->value());
    if (const auto* number = dynamic_cast<const PR_DoubleItem*>(&item))
        return QString::number(number->value(), 'g', QLocale::FloatingPointShortest);
    if (const auto* text = dynamic_cast<const PR_StringItem*>(&item))
        return text->value();
    const auto* colour = dynamic_cast<const PR_RgbaItem*>(&item);
    const PR_Rgba rgba = colour ? colour->value() : PR_Rgba();
    return QString::asprintf("#%02x%02x%02x%02x", rgba.red, rgba.green, rgba.blue, rgba.alpha);
}

void listPreferences()
{
    QString lines;
    std::for_each(tuPref()->constBegin(), tuPref()->constEnd(), [&lines](const PR_PrefItem* item) {
        lines += QString("%1 %2 %3\n")
                     .arg(brindle::engine::shown(item->name()), OMC::Preferences::prefToType(item),
                          brindle::engine::shown(textOf(*item)));
    });
    print(lines);
}

int saved()
{
    return tuPref()->save() ? done : failed;
}

int change(const PreferenceOptions& options)
{
    PR_PrefItem* item = tuPref()->find(options.name);
    if (options.deed == Deed::Set) {
        const QVariant value = item ? valueOf(options.value, item->type()) : newValue(options.value);
        if (!value.isValid())
            return fail(
                QString("\"%1\" is no value of type %2.").arg(options.value, OMC::Preferences::prefToType(item)),
                misused);
        OMC::Preferences::setPref(options.name, value);
        return saved();
    }
    if (!item)
        return fail(QString("There is no preference \"%1\".").arg(options.name), failed);
    if (options.deed == Deed::Reset) {
        item->restoreDefault();
        return saved();
    }
    print(textOf(*item) + '\n');
    return done;
}

} // namespace

int preferences(const QList<QByteArray>& given)
{
    Arguments arguments(preferencesUsage, given);
    const PreferenceOptions options = optionsIn(arguments);
    if (arguments.isHelpAsked()) {
        print(helpOf(preferencesUsage));
        return done;
    }
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    if (options.deed != Deed::List)
        return change(options);
    listPreferences();
    return done;
}

} // namespace app
