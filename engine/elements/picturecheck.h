#pragma once

#include <QByteArray>

namespace brindle::engine {

enum class PictureState {
    Whole,
    OtherFormat, ///< It doesn't begin as a file of the format.
    CutOff       ///< It ends too early.
};

/// Looks at the head of a picture's file, and at the end that its format foretells, without decoding it; `format` is an
/// id of TUPixmapFormatList. The formats: PNG (ISO/IEC 15948: chunks up to IEND), JPEG (ITU-T T.81: from SOI to EOI),
/// TIFF 6.0 and BigTIFF (the first directory lies in the file), TGA 2.0 and BMP (the head tells the size). Of OpenEXR
/// and PSD only the head is looked at.
///
/// An import of thousands of frames so costs their reading and no decoder's library. The pixels are decoded when a
/// picture is drawn, which tells of a file that is damaged inside, or became so later, by its name.
PictureState checkPicture(const QByteArray& bytes, int format);

} // namespace brindle::engine
