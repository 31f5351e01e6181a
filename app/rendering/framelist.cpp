#include "app/rendering/framelist.h"

#include <QRegularExpression>
#include <QStringList>

namespace app {

namespace {

constexpr std::size_t kMostFrames = 1000000;

const QRegularExpression& placeholder()
{
    static const QRegularExpression expression(QStringLiteral("%(?:%|0?([0-9]{0,2})d)"));
    return expression;
}

} // namespace

std::optional<std::vector<int>> framesOf(const QString& text, int last, QString& error)
{
    static const QRegularExpression range(QStringLiteral("^\\s*([0-9]{1,9})\\s*(?:-\\s*([0-9]{1,9})\\s*)?$"));
    std::vector<int> frames;
    for (const QString& part : text.split(u',')) {
        const QRegularExpressionMatch match = range.match(part);
        if (!match.hasMatch()) {
            error = QStringLiteral("\"%1\" is no list of frames, as 1-60,72 is one.").arg(text);
            return std::nullopt;
        }
        const int first = match.captured(1).toInt();
        const int end = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        for (const int frame : {first, end})
            if (frame < 1 || frame > last) {
                error = QStringLiteral("The scene has no frame %1; its frames are 1 to %2.").arg(frame).arg(last);
                return std::nullopt;
            }
        const int step = first <= end ? 1 : -1;
        for (int frame = first; frame != end + step; frame += step) {
            if (frames.size() == kMostFrames) {
                error = QStringLiteral("A run draws at most %1 frames.").arg(kMostFrames);
                return std::nullopt;
            }
            frames.push_back(frame);
        }
    }
    return frames;
}

QString framePath(const QString& pattern, int frame)
{
    QString path;
    qsizetype from = 0;
    auto matches = placeholder().globalMatch(pattern);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        path += pattern.mid(from, match.capturedStart() - from);
        if (match.captured() == u"%%")
            path += u'%';
        else
            path += QString::number(frame).rightJustified(match.captured(1).toInt(),
                                                          match.captured().startsWith(u"%0") ? u'0' : u' ');
        from = match.capturedEnd();
    }
    return path + pattern.mid(from);
}

bool isFramePattern(const QString& pattern)
{
    int places = 0;
    auto matches = placeholder().globalMatch(pattern);
    while (matches.hasNext())
        places += matches.next().captured() == u"%%" ? 0 : 1;
    return places == 1 && !QString(pattern).remove(placeholder()).contains(u'%');
}

} // namespace app
