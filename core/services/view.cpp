#include "core/services/view.h"

#include "core/frame/found.h"
#include "core/host/lay_view.h"

#include <QStringList>

namespace OMC {

namespace {

[[noreturn]] void throwNoView(const QString& name)
{
    throw Exception(QStringLiteral("Unable to find view: %1").arg(name));
}

QVariant made(const ViewFactory& factory)
{
    return toVariant(factory.create());
}

} // namespace

std::string View::__str__() const
{
    return "View()";
}

void View::validate() const
{
    if (!hostView())
        throwInvalid();
}

LAY_View& View::view() const
{
    validate();
    return found(hostView());
}

QString View::getName() const
{
    return view().name();
}

QString View::getType() const
{
    validate();
    return QStringLiteral("Unknown");
}

QString View::getCaption() const
{
    return view().caption();
}

void View::setCaption(const QString& caption)
{
    view().setCaption(caption);
}

QString View::getDisplayName() const
{
    return view().displayName();
}

void View::setDisplayName(const QString& name)
{
    view().setDisplayName(name);
}

QVariant View::getWidget() const
{
    return view().widget();
}

QVariant View::getToolbar() const
{
    return view().toolbar();
}

QVariant View::getMenu() const
{
    QObject* menu = view().menu();
    return menu ? QVariant::fromValue(menu) : QVariant();
}

ViewFactory::~ViewFactory() = default;

ViewFactory::Factories& ViewFactory::registeredViews()
{
    static Factories factories;
    return factories;
}

bool ViewFactory::registerView(const QString& name, ViewFactory* factory)
{
    std::unique_ptr<ViewFactory> owned(factory);
    return registeredViews().try_emplace(name, std::move(owned)).second;
}

ViewMap* ViewMap::getInstance()
{
    static ViewMap instance;
    instance.setOwnership(OwnedByNative);
    return &instance;
}

ViewMap* ViewMap::copy() const
{
    return getInstance();
}

std::string ViewMap::__str__() const
{
    QStringList names;
    for (const auto& [name, factory] : ViewFactory::registeredViews())
        names.append(name);
    const QString all = names.isEmpty() ? QStringLiteral("No views loaded") : names.join(QStringLiteral(", "));
    return QStringLiteral("Brindle Views: (%1)").arg(all).toStdString();
}

std::size_t ViewMap::size() const
{
    return ViewFactory::registeredViews().size();
}

QVariant ViewMap::get(const QString& name) const
{
    const auto& factories = ViewFactory::registeredViews();
    const auto factory = factories.find(name);
    if (factory == factories.end())
        throwNoView(name);
    return made(*factory->second);
}

bool ViewMap::contains(const QVariant& value) const
{
    return ViewFactory::registeredViews().contains(value.toString());
}

QList<QVariant> ViewMap::list() const
{
    QList<QVariant> views;
    for (const auto& [name, factory] : ViewFactory::registeredViews())
        views.append(made(*factory));
    return views;
}

QVariant ViewMap::itemAt(quint64 position) const
{
    const auto& factories = ViewFactory::registeredViews();
    if (position >= factories.size())
        throwIndexOutOfRange();
    return made(*std::next(factories.begin(), static_cast<std::ptrdiff_t>(position))->second);
}

std::string ViewList::__str__() const
{
    return "InvalidView";
}

bool ViewList::contains(const QVariant& value) const
{
    if (value.typeId() != QMetaType::QString)
        throwInvalidArgument(0);
    throwNoView(value.toString());
}

QVariant ViewList::get(const QString& name) const
{
    throwNoView(name);
}

QVariant ViewList::get(int) const
{
    throw Exception(std::string("Unexpected error - invalid view."));
}

Obj ViewList::create()
{
    throw Exception(std::string("Invalid viewlist."));
}

void ViewList::remove(unsigned int)
{
    throw Exception(std::string("Unable to find view."));
}

} // namespace OMC
