#include "app/palettes/gimppalette.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace app::gimp {

namespace {

const QString firstLine = QStringLiteral("GIMP Palette");
const QString nameField = QStringLiteral("Name:");
const QString columnsField = QStringLiteral("Columns:");

/// A colour of one marker; null for a line that tells none.
std::shared_ptr<CM_Color> colourIn(const QString& line)
{
    static const QRegularExpression form(QStringLiteral(R"(^\s*(\d{1,3})\s+(\d{1,3})\s+(\d{1,3})(?:\s+(.*))?$)"));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return nullptr;
    const int channels[] = {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
    for (const int channel : channels) {
        if (channel > 255)
            return nullptr;
    }
    const QString name = match.captured(4).trimmed();
    auto colour = std::make_shared<CM_Color>(CM_Color::kSolid, name.isEmpty() ? QStringLiteral("Default") : name);
    colour->AddColorMarker({0, CM_Rgba(channels[0], channels[1], channels[2], 255)});
    return colour;
}

QByteArray lineOf(const CM_Rgba& rgba, const QString& name)
{
    return QStringLiteral("%1 %2 %3\t%4\n")
        .arg(rgba.red(), 3)
        .arg(rgba.green(), 3)
        .arg(rgba.blue(), 3)
        .arg(name.simplified())
        .toUtf8();
}

} // namespace

bool read(const QByteArray& bytes, CM_Palette& palette, QString& error)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError()) {
        error = QStringLiteral("it is no text in UTF-8");
        return false;
    }
    const QStringList lines = text.split(u'\n');
    if (lines.first().trimmed() != firstLine) {
        error = QStringLiteral("its first line is not \"%1\"").arg(firstLine);
        return false;
    }
    for (qsizetype number = 1; number < lines.size(); ++number) {
        const QString line = lines[number].trimmed();
        if (line.isEmpty() || line.startsWith(u'#') || line.startsWith(columnsField))
            continue;
        if (line.startsWith(nameField)) {
            palette.SetName(line.mid(nameField.size()).trimmed());
            continue;
        }
        const auto colour = colourIn(line);
        if (!colour) {
            error = QStringLiteral("line %1 is no colour of three numbers from 0 to 255 and a name").arg(number + 1);
            return false;
        }
        palette.AddColor(colour);
    }
    return true;
}

QByteArray textOf(const CM_Palette& palette)
{
    QByteArray text = QStringLiteral("%1\n%2 %3\n%4 0\n#\n")
                          .arg(firstLine, nameField, palette.GetName().simplified(), columnsField)
                          .toUtf8();
    for (const CM_Palette::Entry& entry : palette.colors()) {
        const auto colour = CM_CastToColor(entry);
        if (!colour)
            continue;
        if (colour->GetColorType() == CM_Color::kSolid) {
            text += lineOf(colour->GetGradientColor(0), colour->GetColorName());
            continue;
        }
        for (const CM_GradientData& marker : colour->gradientDataCol())
            text += lineOf(
                marker.rgba,
                QStringLiteral("%1 (%2%)").arg(colour->GetColorName(), QString::number(marker.position * 100, 'g', 4)));
    }
    return text;
}

} // namespace app::gimp
