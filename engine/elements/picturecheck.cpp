#include "engine/elements/picturecheck.h"

#include "engine/elements/pixmapformats.h"

#include <QtEndian>

#include <iterator>

namespace brindle::engine {

namespace {

/// A number at an offset; 0 beyond the end.
template <typename Number>
Number littleAt(const QByteArray& bytes, qsizetype offset)
{
    return offset + qsizetype(sizeof(Number)) <= bytes.size() ? qFromLittleEndian<Number>(bytes.constData() + offset)
                                                              : Number(0);
}

template <typename Number>
Number bigAt(const QByteArray& bytes, qsizetype offset)
{
    return offset + qsizetype(sizeof(Number)) <= bytes.size() ? qFromBigEndian<Number>(bytes.constData() + offset)
                                                              : Number(0);
}

PictureState wholeIf(bool isWhole)
{
    return isWhole ? PictureState::Whole : PictureState::CutOff;
}

PictureState checkPng(const QByteArray& bytes)
{
    constexpr qsizetype aroundData = 12; // length, name and checksum
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return PictureState::OtherFormat;
    for (qsizetype chunk = 8; chunk + aroundData <= bytes.size();) {
        const qsizetype next = chunk + aroundData + qsizetype(bigAt<quint32>(bytes, chunk));
        if (bytes.mid(chunk + 4, 4) == "IEND")
            return wholeIf(next <= bytes.size());
        chunk = next;
    }
    return PictureState::CutOff;
}

PictureState checkJpeg(const QByteArray& bytes)
{
    return bytes.startsWith("\xff\xd8\xff") ? wholeIf(bytes.contains("\xff\xd9")) : PictureState::OtherFormat;
}

PictureState checkTiff(const QByteArray& bytes)
{
    const bool isLittle = bytes.startsWith("II");
    if (!isLittle && !bytes.startsWith("MM"))
        return PictureState::OtherFormat;
    const int version = isLittle ? littleAt<quint16>(bytes, 2) : bigAt<quint16>(bytes, 2);
    quint64 directory = 0;
    if (version == 42)
        directory = isLittle ? littleAt<quint32>(bytes, 4) : bigAt<quint32>(bytes, 4);
    else if (version == 43)
        directory = isLittle ? littleAt<quint64>(bytes, 8) : bigAt<quint64>(bytes, 8);
    else
        return PictureState::OtherFormat;
    return wholeIf(directory > 0 && directory + 2 <= quint64(bytes.size()));
}

PictureState checkTga(const QByteArray& bytes)
{
    constexpr qsizetype headSize = 18;
    if (bytes.size() < headSize)
        return bytes.isEmpty() ? PictureState::CutOff : PictureState::OtherFormat;
    const int kind = bytes.at(2);
    const int depth = bytes.at(16);
    const qint64 pixels = qint64(littleAt<quint16>(bytes, 12)) * littleAt<quint16>(bytes, 14);
    const bool isRunLength = kind >= 9 && kind <= 11;
    const bool isKnown = (kind >= 1 && kind <= 3) || isRunLength;
    if (!isKnown || pixels == 0 || (depth != 8 && depth != 15 && depth != 16 && depth != 24 && depth != 32))
        return PictureState::OtherFormat;
    const qint64 colours = qint64(littleAt<quint16>(bytes, 5)) * ((quint8(bytes.at(7)) + 7) / 8);
    const qint64 head = headSize + quint8(bytes.at(0)) + colours;
    return wholeIf(bytes.size() >= head + (isRunLength ? 1 : pixels * ((depth + 7) / 8)));
}

PictureState checkBmp(const QByteArray& bytes)
{
    constexpr qsizetype headSize = 14;
    if (!bytes.startsWith("BM"))
        return PictureState::OtherFormat;
    return wholeIf(bytes.size() >= headSize && qint64(littleAt<quint32>(bytes, 2)) <= bytes.size());
}

PictureState checkExr(const QByteArray& bytes)
{
    return bytes.startsWith("\x76\x2f\x31\x01") ? PictureState::Whole : PictureState::OtherFormat;
}

PictureState checkPsd(const QByteArray& bytes)
{
    constexpr qsizetype headSize = 26;
    return bytes.startsWith("8BPS") ? wholeIf(bytes.size() >= headSize) : PictureState::OtherFormat;
}

/// In the order of the formats' ids.
constexpr PictureState (*checks[])(const QByteArray&) = {checkPng, checkJpeg, checkTiff, checkTga,
                                                         checkBmp, checkExr,  checkPsd};
static_assert(std::size(checks) == pixmapFormatCount);

} // namespace

PictureState checkPicture(const QByteArray& bytes, int format)
{
    return bytes.isEmpty() ? PictureState::CutOff : checks[format](bytes);
}

} // namespace brindle::engine
