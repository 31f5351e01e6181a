#include "tests/engine/folder/randomproject.h"

#include "core/host/at_dynamicattr.h"
#include "core/host/cel_colorspace.h"
#include "core/host/mo_backdrop.h"
#include "core/host/pio_metadata.h"
#include "core/host/sc_advancedflags.h"
#include "core/host/sc_projectcmds.h"
#include "core/host/sc_scenemarker.h"
#include "core/host/sl_selection.h"
#include "core/host/tu_timedvalue.h"
#include "engine/curves/column.h"
#include "engine/curves/columnkinds.h"
#include "tests/engine/support/columnedits.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The text of a value that an attribute takes, made of a number and a text.
class AnyValue final : public AT_AttrVisitor {
public:
    AnyValue(double number, const QString& text) : m_number(number), m_text(text) {}

    using AT_AttrVisitor::visit;
    void visit(AT_BoolAttr& attr) override { value = attr.localValue() ? "false" : "true"; }
    void visit(AT_IntAttr&) override { value = QString::number(static_cast<int>(std::fmod(m_number, 1000))); }
    void visit(AT_DoubleAttr&) override { value = QString::number(m_number, 'g', QLocale::FloatingPointShortest); }
    void visit(AT_StringAttr&) override { value = m_text; }
    void visit(AT_EnumAttrBase& attr) override
    {
        const QStringList options = attr.options().values();
        value = options.at(static_cast<qsizetype>(std::abs(std::fmod(m_number, static_cast<double>(options.size())))));
    }
    QString value;

private:
    double m_number;
    QString m_text;
};

/// A new column for an attribute that takes one.
class NewColumn final : public AT_AttrVisitor {
public:
    using AT_AttrVisitor::visit;
    void visit(AT_BoolAttr& attr) override { column = attr.createTimedValue(); }
    void visit(AT_IntAttr& attr) override { column = attr.createTimedValue(); }
    void visit(AT_DoubleAttr& attr) override { column = attr.createTimedValue(); }
    TUTimedValue* column = nullptr;
};

} // namespace

void RandomProject::change(int steps)
{
    using Step = void (RandomProject::*)();
    constexpr Step all[] = {
        &RandomProject::addNode,        &RandomProject::addNode,        &RandomProject::addPort,
        &RandomProject::link,           &RandomProject::link,           &RandomProject::place,
        &RandomProject::addAttribute,   &RandomProject::addAttribute,   &RandomProject::removeAttribute,
        &RandomProject::setValue,       &RandomProject::setValue,       &RandomProject::linkColumn,
        &RandomProject::linkColumn,     &RandomProject::editColumn,     &RandomProject::editColumn,
        &RandomProject::editColumn,     &RandomProject::changeScene,    &RandomProject::removeNode,
        &RandomProject::changeSettings, &RandomProject::changeMarkers,  &RandomProject::changeViews,
        &RandomProject::changeScenes,   &RandomProject::changeMetadata, &RandomProject::changeBackdrops,
        &RandomProject::mark,           &RandomProject::explode,        &RandomProject::addColumn};
    for (; steps > 0; --steps)
        (this->*all[below(std::size(all))])();
}

double RandomProject::number()
{
    constexpr double odd[] = {0.0,
                              -0.0,
                              0.1,
                              1e300,
                              -1e-300,
                              std::numeric_limits<double>::denorm_min(),
                              std::numeric_limits<double>::max(),
                              1e15 + 0.3,
                              9007199254740993.0,
                              1.0 / 3};
    return below(3) == 0 ? odd[below(std::size(odd))] : std::uniform_real_distribution<double>(-200, 200)(m_random);
}

QString RandomProject::name()
{
    static const QStringList names = {"Arm",     "Bras gauche", "腕", "Hand\"s", "back\\slash",
                                      "Z\u0308", "\U0001F9B4",  "-0", "[3]",     "a.b"};
    return names.at(below(static_cast<int>(names.size()))) + (below(2) ? QString() : QString::number(below(20)));
}

TUGroup* RandomProject::group()
{
    for (int tries = 0; tries < 5; ++tries) {
        if (TUGroup* found = node()->group())
            return found;
    }
    return m_project.top();
}

MO_Node* RandomProject::node()
{
    std::vector<MO_Node*> nodes;
    m_project.top()->getRecursiveSubNodeList(nodes);
    nodes.push_back(m_project.top());
    return nodes[static_cast<std::size_t>(below(static_cast<int>(nodes.size())))];
}

AT_Attr* RandomProject::attribute()
{
    const MO_Node* of = node();
    if (of->attrsBegin() == of->attrsEnd())
        return nullptr;
    AT_Attr* attr = of->attrsBegin()[below(static_cast<int>(of->attrsEnd() - of->attrsBegin()))];
    while (const auto* complex = dynamic_cast<const AT_ComplexAttr*>(attr))
        attr = complex->nAttrs() > 0 ? complex->attrsBegin()[below(static_cast<int>(complex->nAttrs()))] : nullptr;
    return attr;
}

TUTimedValue* RandomProject::column()
{
    const brindle::engine::Scene& scene = m_project.scene();
    const int count = scene.timedValueCount();
    return count > 0 ? scene.timedValuesBegin()[below(count)] : nullptr;
}

void RandomProject::addNode()
{
    static const QStringList types = {"READ",          "PEG",        "PEG",   "CAMERA", "DISPLAY",
                                      "COMPOSITE",     "WRITE",      "GROUP", "GROUP",  "MULTIPORT_IN",
                                      "MULTIPORT_OUT", "COLOR_CARD", "BLUR",  "CUTTER"};
    m_project.add(types.at(below(static_cast<int>(types.size()))), below(3) ? name() : QString(), group());
}

void RandomProject::addPort()
{
    MO_Node* to = node();
    auto port = below(2) ? MO_Port::createImagePort() : MO_Port::createMatrixPort();
    if (below(2))
        m_project.run(new tu_node::AddInPortCmd(to, below(static_cast<int>(to->nInPorts()) + 1), std::move(port)));
    else
        m_project.run(new tu_node::AddOutPortCmd(to, below(static_cast<int>(to->nOutPorts()) + 1), std::move(port)));
    if (below(4) == 0 && to->nInPorts() > 0)
        m_project.run(new tu_node::DeleteInPortCmd(to, below(static_cast<int>(to->nInPorts()))));
}

void RandomProject::link()
{
    const TUGroup* in = group();
    const int count = static_cast<int>(in->nSubNodes());
    for (int tries = 0; count > 1 && tries < 10; ++tries) {
        MO_Node* from = in->subNode(below(count));
        MO_Node* to = in->subNode(below(count));
        if (from->nOutPorts() > 0 && to->nInPorts() > 0)
            m_project.link(from, to, below(static_cast<int>(from->nOutPorts())),
                           below(static_cast<int>(to->nInPorts())));
    }
}

void RandomProject::place()
{
    constexpr int numbers[] = {0, 7, -300, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    MO_Node* of = node();
    m_project.run(new tu_node::SetXYZCmd(of, numbers[below(5)], numbers[below(5)], numbers[below(5)]));
    m_project.run(new tu_node::EnabledNodeCmd(of, below(3) > 0));
    m_project.run(new tu_node::SetInstanceNameCmd(of, name()));
}

void RandomProject::mark()
{
    MO_Node* of = node();
    const QColor colour = QColor::fromRgba(static_cast<unsigned int>(m_random()));
    m_project.run(new tu_node::SetNodeColorCmd(of, below(3) ? colour : QColor()));
    m_project.run(new tu_node::CacheNodeCmd(of, below(2)));
    m_project.run(new tu_node::LockNodeCmd(of, below(2)));
    m_project.run(new tu_node::ShowHideTimelineThumb(of, below(2)));
}

void RandomProject::explode()
{
    if (below(4) > 0)
        return;
    SL_Selection selection(m_project.scene().changeManager());
    SL_SelectionUtil::addToSelection(selection, group());
    modulenetwork_utils::selExplodeGroups(nullptr, &selection);
}

void RandomProject::addAttribute()
{
    MO_Node* to = node();
    const QStringList types = AT_AttrFactorySingleton().keys();
    const QString type = below(3) ? types.at(below(static_cast<int>(types.size()))) : AT_DynGroupAttr::TypeString();
    const AT_AttrMeta meta(name(), below(2) ? name() : QString(), below(4) ? 13 : 14);
    const bool linkable = below(2);
    std::vector<AT_AttrDesc> all;
    to->getFullAttrList(all);
    std::erase_if(all, [](const AT_AttrDesc& desc) { return !dynamic_cast<AT_DynGroupAttr*>(desc.attr); });
    if (all.empty() || below(3) == 0)
        m_project.run(new tu_node::CreateAttrCmd(to, meta, type, linkable));
    else
        m_project.run(new Attr::DynGroup::CreateAttrCmd(
            dynamic_cast<AT_DynGroupAttr*>(all[static_cast<std::size_t>(below(static_cast<int>(all.size())))].attr),
            meta, type, linkable));
}

void RandomProject::removeAttribute()
{
    MO_Node* from = node();
    if (from->attrsBegin() == from->attrsEnd())
        return;
    AT_Attr* attr = from->attrsBegin()[below(static_cast<int>(from->attrsEnd() - from->attrsBegin()))];
    auto* group = dynamic_cast<AT_DynGroupAttr*>(attr);
    if (group && group->nAttrs() > 0 && below(2))
        m_project.run(
            new Attr::DynGroup::RemoveAttrCmd(group, group->attrsBegin()[below(static_cast<int>(group->nAttrs()))]));
    else
        m_project.run(new tu_node::RemoveAttrCmd(from, attr));
}

void RandomProject::setValue()
{
    if (AT_Attr* attr = attribute()) {
        AnyValue value(number(), name() + QStringLiteral("\n\t\u0001 ") + name());
        attr->accept(value);
        if (CO_Command* command = attr->setTextCommand(1 + below(60), value.value))
            m_project.run(command);
    }
}

void RandomProject::linkColumn()
{
    AT_Attr* attr = attribute();
    if (!attr || !attr->socket())
        return;
    TUTimedValue* to = below(2) ? column() : nullptr;
    if (!to) {
        NewColumn made;
        attr->accept(made);
        to = made.column;
        if (!m_project.run(new SC_SceneCmds::AddTimedValueCmd(m_project.scene().sceneCommon(), to, -1, -1)))
            return;
    }
    m_project.run(new tu_tv_socket::LinkCmd(attr->socket(), to));
    if (below(4) == 0)
        m_project.run(new tu_timedvalue::timedvalue::SetAnonymous(to, below(2)));
    if (below(6) == 0)
        m_project.run(new tu_tv_socket::UnlinkCmd(attr->socket(), 0));
}

void RandomProject::addColumn()
{
    const auto kinds = brindle::engine::columnKinds();
    const auto* kind = kinds[static_cast<std::size_t>(below(static_cast<int>(kinds.size())))];
    auto made = brindle::engine::Column::asTimedValue(kind->make(name(), below(2)));
    m_project.run(new SC_SceneCmds::AddTimedValueCmd(m_project.scene().sceneCommon(), made.release(), -1, -1));
    editColumn();
}

void RandomProject::editColumn()
{
    TUTimedValue* edited = column();
    for (int edits = 8; edited && edits > 0; --edits) {
        if (auto command = randomEdit(*edited, m_random))
            m_project.run(command.release());
    }
    if (edited && below(5) == 0)
        m_project.run(new tu_timedvalue::timedvalue::RenameCmd(edited, name()));
}

void RandomProject::changeScene()
{
    brindle::engine::Scene& scene = m_project.scene();
    scene.setNumberOfFrames(below(50), below(30) - 12, below(2), true);
    scene.setStartFrame(1 + below(20));
    scene.setStopFrame(20 + below(60));
    m_project.run(new SC_SceneCmds::SetFrameRateCmd(scene.sceneCommon(), UT_FrameRate(std::abs(number()))));
}

void RandomProject::changeSettings()
{
    namespace edit = SC_ProjectCmds;
    const auto fit = below(2) ? TUDbResolution::kFitHeight : TUDbResolution::kFitWidth;
    const auto projection = below(2) ? TUDbResolution::kPerspective : TUDbResolution::kOrthogonal;
    const auto side = [this] { return static_cast<unsigned int>(below(4) ? below(5000) : below(2'000'000'000)); };
    SC_AdvancedFlags flags = common()->advancedFlags();
    flags.setPixelPerModelUnitForBitmapLayers(number());
    flags.setPixelPerModelUnitForVectorLayers(std::abs(number()));
    const QStringList spaces = common()->colorSpaceManager()->colorSpaceNames({});
    switch (below(7)) {
    case 0:
        m_project.run(new edit::SetProjectResolutionByValueCmd(common(), side(), side(), fit, number(), projection));
        break;
    case 1:
        m_project.run(new edit::SetProjectResolutionByNameCmd(common(), below(3) ? "PAL" : "HD_1080"));
        break;
    case 2:
        m_project.run(new edit::SetProjectColorSpaceCmd(common(), spaces.at(below(static_cast<int>(spaces.size())))));
        break;
    case 3:
        m_project.run(new edit::SetAdvancedFlagsCmd(common(), flags));
        break;
    case 4:
        m_project.run(new edit::SetDesignAspectRatioCmd(common(), below(20), below(20)));
        break;
    case 5:
        m_project.run(new edit::SetDesignFieldChartCmd(common(), std::abs(number()), 1 + below(30), 0.5 + below(9)));
        break;
    default:
        m_project.run(new edit::SetCoordinatesAtCenterCmd(common(), below(9) - 4, below(2'000'000'000)));
    }
}

void RandomProject::changeMarkers()
{
    SC_SceneCommon* scene = m_project.scene().sceneCommon();
    const SC_SceneMarker marker{name(), 1 + below(60), 1 + below(9), static_cast<unsigned int>(m_random()),
                                below(2) ? QString() : name() + '\n' + name()};
    const int place = below(static_cast<int>(scene->sceneMarkers().size()) + 1);
    if (below(3) > 0)
        m_project.run(new SC_SceneCmds::AddSceneMarkerCmd(scene, marker));
    else if (below(2))
        m_project.run(new SC_SceneCmds::SetSceneMarkerCmd(scene, place, marker));
    else
        m_project.run(new SC_SceneCmds::RemoveSceneMarkerCmd(scene, place));
}

void RandomProject::changeMetadata()
{
    SC_SceneCommon* scene = m_project.scene().sceneCommon();
    const int count = m_project.scene().metadatas()->count();
    if (count > 0 && below(4) == 0) {
        m_project.run(new RemoveSceneMetadataCmd(scene, below(count)));
        return;
    }
    PIO_Metadata* entry = nullptr;
    PIO_MetadataFactory::impl()->create(static_cast<PIO_Metadata::Type>(below(4)), name(), &entry);
    if (below(2))
        entry->setCreator(name());
    if (below(2))
        entry->setVersion(name() + QStringLiteral("\n\t\u0001"));
    m_project.run(new AddSceneMetadataCmd(scene, entry));
    m_project.run(new SetBoolValueCmd(common(), entry, below(2)));
    m_project.run(new SetIntValueCmd(common(), entry, below(1000) - 500));
    m_project.run(new SetDoubleValueCmd(common(), entry, number()));
    m_project.run(new SetGenericValueCmd(common(), entry, name()));
}

void RandomProject::changeBackdrops()
{
    TUGroup* owner = group();
    MO_BackdropProperties properties;
    properties.rect = {number(), number(), number(), number()};
    properties.title = {name(), name(), 1.0 + below(40), QColor::fromRgba(m_random())};
    properties.description.text = name();
    properties.colour = QColor::fromRgba(m_random());
    const auto& backdrops = owner->backdrops();
    MO_Backdrop* backdrop = backdrops.empty()
                                ? nullptr
                                : backdrops[static_cast<std::size_t>(below(static_cast<int>(backdrops.size())))].get();
    if (!backdrop || below(2)) {
        auto added = std::make_shared<MO_Backdrop>(owner, owner->sceneCommon());
        added->setProperties(properties);
        m_project.run(new tu_backdrop::AddBackdropCmd(owner, added));
    } else if (below(3)) {
        m_project.run(new tu_backdrop::SetPropertiesCmd(backdrop, properties));
    } else {
        m_project.run(new tu_backdrop::RemoveBackdropCmd(owner, backdrop));
    }
}

void RandomProject::changeViews()
{
    SC_SceneCommon* scene = m_project.scene().sceneCommon();
    std::vector<MO_Node*> nodes;
    m_project.top()->getRecursiveSubNodeList(nodes);
    nodes.push_back(nullptr);
    std::shuffle(nodes.begin(), nodes.end(), m_random);
    for (MO_Node* node : nodes) {
        auto* camera = dynamic_cast<TUCameraModule*>(node);
        auto* display = dynamic_cast<TUDisplayModule*>(node);
        if (camera || !node)
            m_project.run(new SC_SceneCmds::SetDefaultCameraCmd(scene, camera));
        else if (display)
            m_project.run(new SC_SceneCmds::SetDefaultDisplayCmd(scene, display));
        if (camera || display || !node)
            return;
    }
}

void RandomProject::changeScenes()
{
    const int count = m_project.project().sceneCount();
    if (below(3) > 0)
        m_project.run(new SC_ProjectCmds::AddSceneCmd(common(), name(), below(count + 1) - 1));
    else
        m_project.run(new SC_ProjectCmds::RemoveSceneCmd(common(), m_project.project().sceneAt(below(count))->id()));
}

void RandomProject::removeNode()
{
    if (below(2))
        m_project.remove({node()}, below(2), below(2));
    else
        m_project.undo(static_cast<unsigned int>(below(3)));
}
