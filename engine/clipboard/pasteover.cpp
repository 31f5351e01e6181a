#include "engine/clipboard/pasteover.h"

#include "engine/attributes/attributeset.h"
#include "engine/attributes/drawingattribute.h"
#include "engine/clipboard/drawingpaste.h"
#include "engine/curves/framepaste.h"
#include "engine/exposure/exposurecolumn.h"
#include "engine/session/projectcommon.h"

#include <algorithm>
#include <limits>
#include <variant>

namespace brindle::engine {

namespace {

/// The flags of a mode that let values of attributes be pasted, by the first keyword.
struct AttributeFlag {
    QStringView keyword;
    bool DD_DropMode::*flag;
};
constexpr AttributeFlag attributeFlags[] = {
    {u"position", &DD_DropMode::addRemoveMotionKeyframe}, {u"angle", &DD_DropMode::addRemoveAngleKeyframe},
    {u"rotation", &DD_DropMode::addRemoveAngleKeyframe},  {u"skew", &DD_DropMode::addRemoveSkewKeyframe},
    {u"scale", &DD_DropMode::addRemoveScalingKeyframe},
};

Column* columnOf(const AT_Attr& attr)
{
    const auto* socket = static_cast<const Socket*>(attr.socket());
    return socket ? socket->column() : nullptr;
}

/// Gives an attribute the local value that another one of its kind stores.
class StoreValue final : public CO_Command {
public:
    StoreValue(AT_Attr& attr, AttributeValue value) : m_attr(attr), m_value(std::move(value)) {}

    Status execute() override
    {
        const AttributeKind& kind = metaOf(m_attr).kind();
        AttributeValue before = kind.stored(m_attr);
        if (before == m_value)
            return kNoop;
        kind.store(m_attr, m_value);
        m_value = std::move(before);
        tellChanged(m_attr);
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    AT_Attr& m_attr;
    AttributeValue m_value; ///< That it gets next.
};

std::optional<double> numberIn(const AttributeValue& value)
{
    if (const bool* flag = std::get_if<bool>(&value))
        return *flag ? 1 : 0;
    if (const int* number = std::get_if<int>(&value))
        return *number;
    if (const double* number = std::get_if<double>(&value))
        return *number;
    return std::nullopt;
}

class PasteOver {
public:
    PasteOver(Scene& scene, const DragScene& content, const DD_DropMode& mode, const FrameSpan& frames, int at,
              ProjectCommon& project)
        : m_scene(scene),
          m_content(content),
          m_mode(mode),
          m_frames(frames),
          m_paste{.at = at,
                  .count = frames.end - frames.first,
                  .fixesEnds = mode.forceBeginningEndKeyframe,
                  .offsets = mode.offsetKeyframes,
                  .extends = mode.extendsExposure(),
                  .substitutes = mode.substitutesDrawings()},
          m_transfer(content.scene(), scene,
                     {.frames = cutFrames(content, frames),
                      .at = at,
                      .keepsColumnNames = mode.tvPreserveName,
                      .elements = elementTerms(content, project, mode)}),
          m_elements(project.elements()),
          m_drawings(m_elements, mode.drawingMode())
    {}

    bool run(const std::vector<NodePair>& pairs, const std::set<const Column*>& columns)
    {
        m_columns = &columns;
        for (const auto& [source, target] : pairs)
            pasteNode(*source, *target);
        execute(m_transfer.take(nullptr));
        for (const Link& link : m_links)
            execute(std::make_unique<tu_tv_socket::LinkCmd>(link.target->socket(), &link.column->timedValue()));
        return !m_hasFailed;
    }

    const std::map<int, int>& elements() const { return m_transfer.elements().ids(); }

private:
    /// Each step is worked out on what those before it left, and so executed at once.
    void execute(std::unique_ptr<CO_Command> command)
    {
        if (command && !m_hasFailed)
            m_hasFailed = !m_scene.commandManager()->execute(command.release(), QString());
    }

    void pasteNode(const Node& source, Node& target)
    {
        if (!source.hasAttributes())
            return;
        const AttributeSet& from = source.attributes();
        const AttributeSet& to = target.attributes();
        const bool showsDrawings = from.find(u"drawing") >= 0;
        const bool pivotsOnly = showsDrawings && m_mode.updatePivot && !m_mode.exposureAdd;
        if (showsDrawings && m_mode.exposureAdd)
            pasteDrawings(from, to);
        for (int place = 0; place < from.count(); ++place) {
            const AT_Attr& attr = from.at(place);
            const QString& path = metaOf(attr).fullKeyword();
            const QStringView top = QStringView(path).left(path.contains(u'.') ? path.indexOf(u'.') : path.size());
            const bool isMeant = pivotsOnly ? top == u"pivot" : top != u"drawing" && isPasted(top);
            const int there = isMeant ? to.find(path) : -1;
            if (there >= 0 && &metaOf(to.at(there)).kind() == &metaOf(attr).kind())
                pasteAttribute(attr, to.at(there));
        }
    }

    bool isPasted(QStringView keyword) const
    {
        return std::all_of(std::begin(attributeFlags), std::end(attributeFlags), [&](const AttributeFlag& attribute) {
            return attribute.keyword != keyword || m_mode.*attribute.flag;
        });
    }

    bool isChosen(const AT_Attr& target) const { return m_columns->empty() || m_columns->contains(columnOf(target)); }

    void pasteAttribute(const AT_Attr& source, AT_Attr& target)
    {
        if (!isChosen(target))
            return;
        const Column* column = columnOf(source);
        if (!column) {
            pasteValue(source, target);
            return;
        }
        if (column->kind().type == TUTimedValue::kVeloBased && !m_mode.addRemoveVelocityKeyframe)
            return;
        Column* present = columnOf(target);
        if (!present || m_mode.createNewColumn) {
            link(*column, target);
        } else if (m_mode.writeMode == DD_DropMode::kWriteNothing) {
            return;
        } else if (!present->timedValue().takesValues() || !column->timedValue().takesValues()) {
            if (m_mode.replaceExpressionColumns)
                link(*column, target);
        } else {
            write(*column, *present);
        }
    }

    /// The local value of an attribute that nothing drives.
    void pasteValue(const AT_Attr& source, AT_Attr& target)
    {
        const AttributeValue value = metaOf(source).kind().stored(source);
        if (!m_mode.fullTransfer || std::holds_alternative<std::monostate>(value))
            return;
        Column* present = columnOf(target);
        if (!present) {
            execute(std::make_unique<StoreValue>(target, value));
            return;
        }
        const std::optional<double> number = numberIn(value);
        if (!number || !present->numbers() || !present->timedValue().takesValues() ||
            m_mode.writeMode == DD_DropMode::kWriteNothing || !m_written.emplace(nullptr, present).second)
            return;
        const std::unique_ptr<Column> constant = present->kind().make(QString(), false);
        constant->numbers()->setValueAt(1, *number, false);
        constant->numbers()->setValueAt(m_paste.count, *number, false);
        addWrite(*constant, *present);
    }

    /// Lets a new column drive an attribute.
    void link(const Column& source, AT_Attr& target) { m_links.push_back({&m_transfer.addColumn(source), &target}); }

    void write(const Column& source, Column& present)
    {
        if (!m_written.emplace(&source, &present).second)
            return;
        const std::unique_ptr<Column> frames = cut(source);
        if (&source.kind() == &present.kind()) {
            addWrite(*frames, present);
            return;
        }
        // A column of another kind takes the values at the keys.
        const auto* keyed = dynamic_cast<const AT_FncTimedValue*>(&frames->timedValue());
        if (!keyed || !frames->numbers() || !present.numbers())
            return;
        const std::unique_ptr<Column> converted = present.kind().make(QString(), false);
        double value = 0;
        for (const int frame : keyed->keyframes()) {
            if (frames->numbers()->valueAt(frame, value))
                converted->numbers()->setValueAt(frame, value, false);
        }
        addWrite(*converted, present);
    }

    /// The frames of a column that are pasted, as the frames from 1 on.
    std::unique_ptr<Column> cut(const Column& source) const
    {
        std::unique_ptr<Column> frames = source.copy(QString(), false);
        if (const FrameSpan span = cutFrames(m_content, m_frames); span.end > span.first)
            frames->keepFrames(span.first, span.end - span.first);
        return frames;
    }

    void addWrite(const Column& frames, Column& present)
    {
        if (m_prepared.insert(&present).second)
            prepare(present);
        execute(present.pasteCommand(frames, m_paste));
    }

    /// Makes room on a column, once, whatever is written to it.
    void prepare(Column& present)
    {
        const int ahead = m_paste.first() - 1;
        if (m_mode.deleteMode == DD_DropMode::kRemove)
            execute(present.shiftFramesCommand({ahead, -m_paste.count}));
        else if (m_mode.deleteMode == DD_DropMode::kEmpty)
            execute(present.clearFramesCommand(ahead, m_paste.count));
        if (m_mode.writeMode == DD_DropMode::kInsert)
            execute(present.shiftFramesCommand({ahead, m_paste.count}));
    }

    void pasteDrawings(const AttributeSet& from, const AttributeSet& to)
    {
        const auto* source = drawingIn(from);
        const auto* target = drawingIn(to);
        if (!source || !target)
            return;
        const Column* shown = Column::of(source->linkedTimedValue());
        AT_Attr& attr = *target->drawingAttr();
        if (!shown || !isChosen(attr))
            return;
        Column* present = columnOf(attr);
        const bool isSameForm = source->getElementMode() == target->getElementMode();
        if (!present || m_mode.createNewColumn) {
            if (isSameForm)
                link(*shown, attr);
            return;
        }
        if (m_mode.writeMode == DD_DropMode::kWriteNothing || !m_written.emplace(shown, present).second)
            return;
        const std::unique_ptr<Column> frames = cut(*shown);
        nameDrawings(*source, *target, *present, const_cast<ExposureSheet&>(*ExposureSheet::of(*frames)));
        addWrite(*frames, *present);
    }

    static const DrawingAttribute* drawingIn(const AttributeSet& attributes)
    {
        const int place = attributes.find(u"drawing");
        return place < 0 ? nullptr : dynamic_cast<const DrawingAttribute*>(&attributes.at(place));
    }

    /// Lets copied exposures name the drawings of the target's element, which get there as the mode says.
    void nameDrawings(const DrawingAttribute& source, const DrawingAttribute& target, const Column& present,
                      ExposureSheet& frames)
    {
        const Element* from = m_content.elements().find(source.getElementId());
        const int id = target.getElementId();
        Element* to = m_elements.find(id);
        if (!from)
            return;
        const auto origin = m_content.origins.find(from->id());
        const bool isOriginHere = origin != m_content.origins.end() && isFromHere() && m_elements.find(origin->second);
        auto* column = dynamic_cast<TUElementTimedValue*>(&present.timedValue());
        if (m_mode.drawingMode() == DD_DropMode::kShare && isOriginHere && (!to || origin->second == id)) {
            if (!to && column)
                execute(std::make_unique<tu_timedvalue::element::SetElementIdCmd>(column, origin->second));
            return;
        }
        if (!to)
            return;
        auto commands = std::make_unique<CO_AndCommand>();
        frames.exposures() =
            frames.exposures().mapped(m_drawings.paste(*from, *to, frames.exposures().drawings(), *commands));
        execute(std::move(commands));
    }

    bool isFromHere() const { return m_content.source == m_scene.projectCommon()->id(); }

    struct Link {
        Column* column; ///< A new one.
        AT_Attr* target;
    };

    Scene& m_scene;
    const DragScene& m_content;
    const DD_DropMode& m_mode;
    FrameSpan m_frames;
    FramePaste m_paste;
    Transfer m_transfer;
    ElementManager& m_elements;
    DrawingPaste m_drawings;
    const std::set<const Column*>* m_columns = nullptr;
    std::vector<Link> m_links;
    std::set<std::pair<const Column*, const Column*>> m_written; ///< Pairs of a source and what it is written to.
    std::set<const Column*> m_prepared;
    bool m_hasFailed = false;
};

} // namespace

std::vector<Node*> pasteOver(Scene& scene, const DragScene& content, const PasteTargets& targets,
                             const DD_DropMode& mode, const DD_SelectionUtil::CompositionOptions& options, int at,
                             int most)
{
    ProjectCommon* project = engineProjectCommon(scene.projectCommon());
    const int toEnd = mode.extendScene ? SceneTiming::maxCount : scene.getNumberOfFrames() - at + 1;
    const std::optional<FrameSpan> frames = at < 1 ? std::nullopt : pastedFrames(content, mode, std::min(most, toEnd));
    const std::vector<NodePair> pairs =
        matchNodes(content.scene().graph().root(), targets.nodes, targets.match, options);
    if (!project || !frames || pairs.empty())
        return {};
    CO_CommandManager& manager = *scene.commandManager();
    CO_CommandAccumScope scope(&manager, QStringLiteral("Paste"), nullptr, CO_CommandAccumScope::kDefault);
    PasteOver paste(scene, content, mode, *frames, at, *project);
    if (!paste.run(pairs, targets.columns) ||
        !finishPaste(scene, content, mode, paste.elements(), nullptr, at + frames->end - frames->first - 1)) {
        scope.cancel();
        return {};
    }
    std::vector<Node*> pasted;
    pasted.reserve(pairs.size());
    for (const auto& [source, target] : pairs)
        pasted.push_back(target);
    return pasted;
}

} // namespace brindle::engine
