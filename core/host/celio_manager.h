#pragma once

#include "core/host/cel_cel.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

/// The format key of the handlers of 3D objects.
inline constexpr char CELIO_3dFormat[] = "3D";

/// How a picture is written. A plain value.
class BRINDLE_HOST_EXPORT CELIO_WriteContext {
public:
    using Texts = QMap<QString, QString>;

    /// `option` has what one format leaves open, as "key=value" separated by commas: "quality=90" (1 to 100),
    /// "depth=half" or "depth=float", "depth=8" or "depth=16" of a PNG, "compression=zip"; a key that the format
    /// doesn't know is a failure. `colorProfile` is the ICC profile of the colours, empty for none. `texts` go into the
    /// file beside the picture where its format has room for them. The open engine reads nothing of the last one.
    CELIO_WriteContext(const QString& path, const QString& option, const QByteArray& colorProfile, const Texts* texts,
                       const QVariant&)
        : m_path(path),
          m_option(option),
          m_colorProfile(colorProfile),
          m_texts(texts ? *texts : Texts())
    {}

    const QString& path() const { return m_path; }
    const QString& option() const { return m_option; }
    const QByteArray& colorProfile() const { return m_colorProfile; }
    const Texts& texts() const { return m_texts; }

    /// The representation that is written, where the cel has it; else the deepest pixels that it has.
    const std::optional<CEL_Representation::CelFormat>& format() const { return m_format; }
    void setFormat(CEL_Representation::CelFormat format) { m_format = format; }

    /// The bits of a channel, 8 or 16, of a format of whole numbers, where neither the option nor the representation
    /// says it; 0 for those of the pixels.
    int depth() const { return m_depth; }
    void setDepth(int bits) { m_depth = bits; }

    /// Where a failure is told, in the place of the log; null for the log.
    QString* failure() const { return m_failure; }
    void setFailure(QString* failure) { m_failure = failure; }

private:
    QString m_path;
    QString m_option;
    QByteArray m_colorProfile;
    Texts m_texts;
    int m_depth = 0;
    QString* m_failure = nullptr;
    std::optional<CEL_Representation::CelFormat> m_format;
};

/// What reads and writes the files of a format.
class BRINDLE_HOST_EXPORT CELIO_Handler {
public:
    virtual ~CELIO_Handler() = default;
    virtual QString formatKey() const = 0; ///< "PNG", "OPENEXR"; CELIO_3dFormat for 3D objects.
    virtual bool canWrite() const = 0;
};

/// Reads and writes files of pictures. Any thread may use it.
class BRINDLE_HOST_EXPORT CELIO_Manager {
public:
    static CELIO_Manager* getInstance();

    virtual ~CELIO_Manager() = default;

    /// The handler of files with this ending, in any case of letters; null where there is none.
    virtual CELIO_Handler* findHandler(const QString& suffix) const = 0;

    /// Reads a picture: fills the list with its representations, and `modified` with when the file was changed. False,
    /// with the reason in `error` and the list as it was, where that fails, as for a folder. `colorProfile` gets the
    /// ICC profile that the file has.
    virtual bool read(const QString& path, QDateTime& modified, const CEL_Context& context,
                      std::vector<CEL_RepresentationPtr>& representations, QString* error,
                      QByteArray* colorProfile) = 0;

    /// Writes a picture in the format that a file's ending stands for, or in the one of this name ("PNG"), where that
    /// isn't empty. The file is there whole or not at all, and one that stood there is replaced. False where that
    /// fails; the log, or the context's text for it, says why.
    virtual bool write(CEL_Cel* cel, const CELIO_WriteContext& context, const QString& suffix,
                       const QString& formatKey) = 0;
};
