#pragma once

#include "core/host/celio_manager.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace brindle::render {

/// What a file of a picture holds.
struct FileContent {
    std::vector<CEL_RepresentationPtr> representations;
    QByteArray colorProfile; ///< ICC; empty for none and for sRGB.
};

/// Read and write the files of one family of formats. A failure is the reason, without the path; nothing has changed
/// then. Colours stay the numbers that they are: nothing is converted from or to a profile.
class ImageFile {
public:
    virtual ~ImageFile() = default;

    virtual bool read(const QString& path, FileContent& content, QString& error) const = 0;
    /// Writes to a path where nothing is kept yet.
    virtual bool write(const QString& path, const CEL_Pixmap& picture, const CELIO_WriteContext& context,
                       QString& error) const = 0;

    /// By the key of a format.
    static const ImageFile& of(const QString& formatKey);

    /// The longest side of a picture that is read.
    static constexpr int mostPixels = 32768;
    static bool isReadable(qint64 width, qint64 height, QString& error);

    /// The pixels in a format of the whole picture. Throws std::bad_alloc where memory doesn't suffice.
    static QImage pixelsOf(const CEL_Pixmap& picture, CEL_Representation::CelFormat format);
};

/// PNG (8 and 16 bits, ICC, texts), read by Qt and written by libpng, in a third of the time that Qt takes.
const ImageFile& pngFile();
/// JPEG, by Qt.
const ImageFile& jpegFile();
/// Half and float, and depths, by OpenEXR.
const ImageFile& exrFile();
/// All others, by OpenImageIO, whose library is loaded at the first of them.
const ImageFile& otherFile();

} // namespace brindle::render
