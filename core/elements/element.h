#pragma once

#include "core/elements/elementguard.h"
#include "core/frame/obj.h"

#include <QString>

class CO_Command;
class TUElement;
class TUPixmapFormatList;

namespace OMC {

class ElementDrawingList;

/// An element: a folder of drawings, which drawing columns show.
///
/// An object holds the element's number and finds the element anew at each call. It is invalid while the element is not
/// in the project; an undo that brings the element back makes it valid again.
class BRINDLE_CORE_EXPORT Element : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(Element)
    Q_PROPERTY(int id READ getId)
    Q_PROPERTY(QString name READ getName WRITE setName)
    Q_PROPERTY(QString scan_type READ getScantype WRITE setScantype)
    Q_PROPERTY(double field_chart READ getFieldChart WRITE setFieldChart)
    Q_PROPERTY(QString vector_type READ getVectorType WRITE setVectorType)
    Q_PROPERTY(QString pixmap_format READ getPixmapFormat WRITE setPixmapFormat)
    Q_PROPERTY(QString folder READ getFolder)
    Q_PROPERTY(QString folder_complete READ getFolderComplete)
    Q_PROPERTY(OMC::Obj drawings READ getDrawings)
    Q_PROPERTY(QString physical_name READ getPhysicalName)
    Q_PROPERTY(double opacity READ getOpacity WRITE setOpacity)
    Q_PROPERTY(bool locked READ getLocked)
    Q_PROPERTY(bool temp_directory_located READ getTempDirectoryLocated)
    Q_PROPERTY(bool deleted READ getDeleted)
    Q_PROPERTY(bool linked READ getLinked)

public:
    /// An element of the open project; without one of that number, an object that fails at its first use.
    explicit Element(int id) : m_id(id) {}

    std::string __str__() const override;

    virtual int getId() const;       ///< The number of the element in its project; no other element ever gets it.
    virtual QString getName() const; ///< The name, which no other element has, but for deleted ones.
    virtual void setName(const QString& name);
    virtual QString getScantype() const; ///< "COLOR", "GRAY_SCALE" or "BW"; it is written in any case of letters.
    virtual void setScantype(const QString& scanType);
    virtual double getFieldChart() const; ///< The number of fields across the drawings, above 0.
    virtual void setFieldChart(double fieldChart);
    /// The form of vector drawings, "PNT" or "BVG". Any other text makes an element of pictures, which reads "NONE". It
    /// can't change once a drawing has a file.
    virtual QString getVectorType() const;
    virtual void setVectorType(const QString& vectorType);
    /// The format of pictures, such as "PNG". It can't change once a drawing has a file.
    virtual QString getPixmapFormat() const;
    virtual void setPixmapFormat(const QString& format);
    virtual QString getFolder() const;         ///< The element's folder within the folder of the project.
    virtual QString getFolderComplete() const; ///< The whole path of the element's folder, which comes with a file.
    virtual Obj getDrawings() const;           ///< The drawings.
    /// The same, for a caller that takes the wrapper itself.
    ElementDrawingList* newDrawings() const;
    /// The name of the folder. It is made of the element's first name and stays when the element is renamed.
    virtual QString getPhysicalName() const;
    virtual double getOpacity() const; ///< The opacity of the drawings in whole percents, 0 to 100.
    virtual void setOpacity(double opacity);
    virtual bool getLocked() const;               ///< Whether this process holds the element's lock.
    virtual bool getTempDirectoryLocated() const; ///< Whether its files wait in a temporary folder for the next save.
    virtual bool getDeleted() const;              ///< Whether it was removed and its files were kept.
    virtual bool getLinked() const;               ///< Whether a column shows it.

    /// Makes an element of a new name, with a copy of each drawing.
    virtual Obj duplicate(const QString& newName);

    /// Takes the element's lock, which tells other processes who works on the drawings, up to `release` or the end of
    /// the project. Fails where another process has it, which the log names, or where nothing can be written.
    virtual void lock();
    virtual void release(); ///< Gives the lock back.

    /// The same as `getId`, for a look whether it is there; -1 once the project is closed.
    int findId() const { return m_guard.findProject() ? m_id : -1; }

    /// The names of the formats that an element can have.
    static const TUPixmapFormatList& formatList();

private:
    const TUElement& element() const;
    template <typename Change>
    void modify(const QString& label, const QString& failure, Change change);

    ElementGuard m_guard;
    int m_id;
};

} // namespace OMC
