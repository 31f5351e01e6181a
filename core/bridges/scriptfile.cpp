#include "core/bridges/scriptfile.h"

#include "core/host/ut_path.h"

#include <QFile>
#include <QStringDecoder>

namespace OMC {

std::optional<QString> readScript(const QString& path)
{
    QFile file(oswRemapPath::RemapPath2(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;
    const QByteArray content = file.readAll();
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(content);
    if (file.error() != QFile::NoError || decoder.hasError())
        return std::nullopt;
    return text.isNull() ? QString(QLatin1String("")) : text;
}

} // namespace OMC
