#pragma once

#include "core/frame/iterable.h"
#include "core/frame/listiteration.h"
#include "core/frame/listqvar.h"

#include <map>
#include <memory>

class LAY_View;

namespace OMC {

/// A view of the application's windows. Programs derive from it for each kind of view that they have; a plain one shows
/// none and is invalid. What it shows is the program's.
class BRINDLE_CORE_EXPORT View : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(View)

    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString type READ getType)
    Q_PROPERTY(QString caption READ getCaption WRITE setCaption)
    Q_PROPERTY(QString display_name READ getDisplayName WRITE setDisplayName)
    Q_PROPERTY(QVariant widget READ getWidget)
    Q_PROPERTY(QVariant toolbar READ getToolbar)
    Q_PROPERTY(QVariant menu READ getMenu)

public:
    View() = default;
    View(const View& other) = default;

    std::string __str__() const override;

protected:
    /// The program's view behind the object, or null.
    virtual LAY_View* hostView() const { return nullptr; }

public:
    virtual QString getName() const;    ///< The name that the view was stored with.
    virtual QString getType() const;    ///< The kind of view.
    virtual QString getCaption() const; ///< The title of the view.
    virtual void setCaption(const QString& caption);
    virtual QString getDisplayName() const; ///< The name that a person sees.
    virtual void setDisplayName(const QString& name);
    virtual QVariant getWidget() const;  ///< The widget.
    virtual QVariant getToolbar() const; ///< The description of the toolbar.
    virtual QVariant getMenu() const;    ///< The menu; there may be none.

protected:
    void validate() const override;

private:
    LAY_View& view() const;
};

/// Makes the views of a kind.
class BRINDLE_CORE_EXPORT ViewFactory {
public:
    virtual ~ViewFactory();
    virtual View* create() const = 0; ///< New; the caller's.

    using Factories = std::map<QString, std::unique_ptr<ViewFactory>>;
    static Factories& registeredViews(); ///< By name; filled while the service library is loaded.
    /// Takes the factory. False where the name is taken: the first registration stays, and the factory is destroyed.
    static bool registerView(const QString& name, ViewFactory* factory);
};

/// The kinds of views of the application, by name: each access makes a view of the kind. There is one map for all.
class BRINDLE_CORE_EXPORT ViewMap : public CountedList<ListQVar, IterableQVar> {
    Q_OBJECT

public:
    /// Owned natively, so that a handle only borrows it.
    static ViewMap* getInstance();

    ViewMap* copy() const override; ///< The same map.
    std::string __str__() const override;

    std::size_t size() const override;                   ///< The number of kinds.
    QVariant get(const QString& name) const override;    ///< A new view of the kind.
    bool contains(const QVariant& value) const override; ///< Whether there is a kind of that name.
    QList<QVariant> list() const override;               ///< A new view of each kind, in the order of their names.

protected:
    QVariant itemAt(quint64 position) const override;

private:
    ViewMap() = default;
};

/// The open views. There is no access to them yet: it is empty, and says so.
class BRINDLE_CORE_EXPORT ViewList : public ListQVar, public IterableQVar {
    Q_OBJECT
    BRINDLE_COPYABLE(ViewList)

public:
    ViewList() = default;
    ViewList(const ViewList& other) : ListQVar(other), IterableQVar(other) {}

    std::string __str__() const override;

    std::size_t size() const override { return 0; } ///< None.
    bool contains(const QVariant& value) const override;
    QVariant get(const QString& name) const override; ///< Always fails.
    QVariant get(int index) const override;

    Obj create();                    ///< Always fails.
    void remove(unsigned int index); ///< Always fails.
};

} // namespace OMC
