#include "core/drawings/drawing.h"
#include "app/arguments.h"
#include "core/drawings/svgfile.h"
#include "core/elements/element.h"
#include "core/elements/elementdrawing.h"
#include "core/elements/elementdrawinglist.h"
#include "core/elements/elementlist.h"
#include "core/frame/exception.h"
#include "core/host/cm_palettemanager.h"
#include "core/host/sc_session.h"
#include "core/palettes/palette.h"
#include "core/palettes/palettelist.h"
#include "engine/engine.h"

#include <QFileInfo>

#include <limits>
#include <memory>

namespace app {

namespace {

/// Which drawing, which picture, and which way.
struct Task {
    bool isImport = false;
    QString picture;
    QString project;
    QString element;
    QString drawing;
    QString palette; ///< Empty: of the picture's name.
};

/// The element of a name; made, for vector drawings, where there is none.
std::unique_ptr<OMC::Element> elementFor(const QString& name)
{
    OMC::ElementList elements;
    if (OMC::Element* element = elements.newItem(name))
        return std::unique_ptr<OMC::Element>(element);
    elements.create(name, QStringLiteral("COLOR"), 12, QStringLiteral("PNG"), QStringLiteral("BVG"));
    return std::unique_ptr<OMC::Element>(elements.newItem(name));
}

constexpr unsigned int kAtTheEnd = std::numeric_limits<unsigned int>::max();

/// The palette of a name on the project's list; made where there is none.
std::unique_ptr<OMC::Palette> paletteFor(SC_ProjectCommon* project, const QString& name)
{
    OMC::PaletteList list(CM_PaletteManager::GetInstance()->paletteLists().front(), project);
    for (const OMC::Obj& item : list.list())
        if (const auto* palette = OMC::objectIn<OMC::Palette>(item); palette && palette->getName() == name)
            return std::make_unique<OMC::Palette>(*palette);
    const OMC::Obj made = list.create(QStringLiteral("Colour"), name, false, kAtTheEnd, QString());
    return std::make_unique<OMC::Palette>(*OMC::objectIn<OMC::Palette>(made));
}

QString lines(const QStringList& remarks)
{
    QString text;
    for (const QString& remark : remarks)
        text += QString("  %1\n").arg(remark);
    return text;
}

/// Throws OMC::Exception.
void importPicture(const Task& task, SC_ProjectManager& projects, SC_Project& project)
{
    const OMC::svg::Picture picture = OMC::svg::readFile(task.picture);
    const auto element = elementFor(task.element);
    OMC::ElementDrawingList drawings(element->getId());
    if (drawings.contains(task.drawing))
        throw OMC::Exception(
            QString("The element \"%1\" has a drawing \"%2\" already.").arg(task.element, task.drawing));
    drawings.create(task.drawing, false, false);
    OMC::ElementDrawing drawing(element->getId(), task.drawing, QString());
    const QVariant content = drawing.initialize();
    const auto* composite = OMC::objectFrom<OMC::Drawing>(content);
    if (!composite)
        throw OMC::Exception(QString("The element \"%1\" has no vector drawings.").arg(task.element));
    const QString name = task.palette.isEmpty() ? QFileInfo(task.picture).completeBaseName() : task.palette;
    const auto palette = paletteFor(project.projectCommon(), name);
    const QStringList remarks = OMC::svg::draw(picture, composite->get(QStringLiteral("line")),
                                               QVariant::fromValue(OMC::Obj(new OMC::Palette(*palette))));
    QString error;
    if (!projects.saveProject(error))
        throw OMC::Exception(error);
    print(QString("Drew %1 as \"%2\" of the element \"%3\", with the colours of the palette \"%4\"\n")
              .arg(task.picture, task.drawing, task.element, palette->getName()) +
          lines(remarks));
}

/// Throws OMC::Exception.
void exportPicture(const Task& task)
{
    const std::unique_ptr<OMC::Element> element(OMC::ElementList().newItem(task.element));
    if (!element)
        throw OMC::Exception(QString("There is no element \"%1\".").arg(task.element));
    OMC::ElementDrawingList drawings(element->getId());
    if (!drawings.contains(task.drawing))
        throw OMC::Exception(QString("The element \"%1\" has no drawing \"%2\".").arg(task.element, task.drawing));
    const QVariant content = OMC::ElementDrawing(element->getId(), task.drawing, QString()).getDrawing();
    if (!OMC::objectFrom<OMC::Drawing>(content))
        throw OMC::Exception(QString("The drawing \"%1\" is no vector drawing, or is empty.").arg(task.drawing));
    const QStringList remarks = OMC::svg::exportFile(task.picture, content);
    print(QString("Wrote %1\n").arg(task.picture) + lines(remarks));
}

int perform(const Task& task)
{
    const auto session = SC_SessionContext::create();
    QString error;
    SC_ProjectManager* projects = session->projectManager();
    SC_Project* project =
        task.isImport ? projects->openProject(task.project, error) : projects->openProjectReadOnly(task.project, error);
    if (!project)
        return fail(error, failed);
    try {
        if (task.isImport)
            importPicture(task, *projects, *project);
        else
            exportPicture(task);
        return done;
    } catch (const OMC::Exception& exception) {
        return fail(QString::fromStdString(exception.message()), failed);
    }
}

} // namespace

int drawing(const QList<QByteArray>& given)
{
    Task task;
    QStringList places;
    Arguments arguments(drawingUsage, given);
    while (arguments.next()) {
        if (!arguments.isOption()) {
            places.append(arguments.folder());
        } else if (arguments.value() == "--palette") {
            if (arguments.takeFor("--palette needs the name of a palette."))
                task.palette = arguments.folder();
        } else {
            arguments.refuse();
        }
    }
    if (arguments.isHelpAsked()) {
        print(helpOf(drawingUsage));
        return done;
    }
    if (places.size() != 5 || (places[0] != u"import" && places[0] != u"export"))
        arguments.misfit();
    if (!arguments.error().isEmpty())
        return fail(arguments.error(), misused);
    task.isImport = places[0] == u"import";
    task.picture = places[1];
    task.project = places[2];
    task.element = places[3];
    task.drawing = places[4];
    return perform(task);
}

} // namespace app
