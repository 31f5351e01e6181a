#include "engine/clipboard/drawingpaste.h"

#include "engine/clipboard/elementtransfer.h"

#include <algorithm>
#include <utility>

namespace brindle::engine {

namespace {

/// Adds a drawing to an element, and owns it while it isn't there.
class AddDrawing final : public CO_Command {
public:
    AddDrawing(ElementManager& elements, Element& element, std::unique_ptr<Drawing> drawing)
        : m_elements(elements),
          m_element(element),
          m_drawing(*drawing),
          m_taken(std::move(drawing))
    {}

    Status execute() override
    {
        if (m_element.drawings().named(m_drawing.name()))
            return kFail;
        m_element.drawings().insert(std::move(m_taken));
        m_elements.tellChanged();
        return kOk;
    }

    Status unexecute() override
    {
        if (m_drawing.isUnderEdit())
            return kFail;
        m_taken = m_element.drawings().take(m_drawing);
        m_elements.tellChanged();
        return kOk;
    }

private:
    ElementManager& m_elements;
    Element& m_element;
    Drawing& m_drawing;
    std::unique_ptr<Drawing> m_taken;
};

/// Exchanges the files of a drawing, and what is noted about it.
class ExchangeDrawing final : public CO_Command {
public:
    /// `state` has what the drawing gets; its name doesn't count.
    ExchangeDrawing(ElementManager& elements, Drawing& drawing, std::unique_ptr<Drawing> state)
        : m_elements(elements),
          m_drawing(drawing),
          m_state(std::move(state))
    {}

    Status execute() override
    {
        const std::vector<DrawingFile> before = m_drawing.files();
        const std::vector<DrawingFile> after = m_state->files();
        const bool isTaken = std::all_of(after.begin(), after.end(), [this](const DrawingFile& file) {
            return m_drawing.takesContent(file.layer, file.version, file.content);
        });
        if (!isTaken || m_drawing.isUnderEdit())
            return kFail;
        std::swap(m_drawing.version, m_state->version);
        std::swap(m_drawing.type, m_state->type);
        std::swap(m_drawing.scaleFactor, m_state->scaleFactor);
        give(before, after, m_drawing);
        give(after, before, *m_state);
        m_elements.tellChanged();
        return kOk;
    }
    Status unexecute() override { return execute(); }

private:
    static void give(const std::vector<DrawingFile>& before, const std::vector<DrawingFile>& after, Drawing& drawing)
    {
        for (const DrawingFile& file : after)
            drawing.setContent(file.layer, file.version, file.content);
        for (const DrawingFile& file : before) {
            const auto isSame = [&file](const DrawingFile& other) {
                return other.layer == file.layer && other.version == file.version;
            };
            if (std::none_of(after.begin(), after.end(), isSame))
                drawing.setContent(file.layer, file.version, nullptr);
        }
    }

    ElementManager& m_elements;
    Drawing& m_drawing;
    std::unique_ptr<Drawing> m_state;
};

class AddLayer final : public CO_Command {
public:
    AddLayer(Element& element, const EM_LayerInfo& layer) : m_element(element), m_layer(layer) {}

    Status execute() override
    {
        m_element.addLayer(m_layer);
        return kOk;
    }
    Status unexecute() override
    {
        m_element.removeLayer(m_layer.id);
        return kOk;
    }

private:
    Element& m_element;
    EM_LayerInfo m_layer;
};

/// A drawing with the files and notes of another one, which are shared.
std::unique_ptr<Drawing> stateOf(const Drawing& drawing)
{
    auto state = std::make_unique<Drawing>(drawing.name());
    state->version = drawing.version;
    state->type = drawing.type;
    state->scaleFactor = drawing.scaleFactor;
    for (const DrawingFile& file : drawing.files())
        state->setContent(file.layer, file.version, file.content);
    return state;
}

/// Whether two drawings show the same at their present versions.
bool showSame(const Drawing& a, const Drawing& b, const std::unordered_map<EM_LayerId, EM_LayerId>& layers)
{
    const auto shown = [](const Drawing& drawing) {
        return std::count_if(drawing.files().begin(), drawing.files().end(),
                             [&](const DrawingFile& file) { return file.version == drawing.version; });
    };
    return shown(a) == shown(b) && std::all_of(a.files().begin(), a.files().end(), [&](const DrawingFile& file) {
               if (file.version != a.version)
                   return true;
               const auto layer = layers.find(file.layer);
               const ContentPointer other = b.content(layer == layers.end() ? file.layer : layer->second, b.version);
               return other && other->bytes() == file.content->bytes();
           });
}

int highestVersion(const Drawing& drawing)
{
    int highest = drawing.version;
    for (const DrawingFile& file : drawing.files())
        highest = std::max(highest, file.version);
    return highest;
}

} // namespace

QHash<QString, QString> DrawingPaste::paste(const Element& from, Element& to, const QStringList& drawings,
                                            CO_AndCommand& commands)
{
    Pair& pair = m_pairs[{&from, &to}];
    QHash<QString, QString> names;
    for (const QString& name : drawings) {
        auto known = pair.names.constFind(name);
        if (known == pair.names.cend()) {
            const Drawing* drawing = from.drawings().named(name);
            // A cell may name a drawing that its element has not.
            const QString brought = drawing ? bring(*drawing, from, to, pair, commands) : name;
            known = pair.names.insert(name, brought);
        }
        names.insert(name, *known);
    }
    return names;
}

QString DrawingPaste::bring(const Drawing& drawing, const Element& from, Element& to, Pair& pair,
                            CO_AndCommand& commands)
{
    const QString& name = drawing.name();
    Drawing* present = to.drawings().named(name);
    if (m_mode == DD_DropMode::kNeverCreate)
        return present ? name : QString();
    if (!isTaken(name, to)) {
        add(drawing, name, from, to, pair, commands);
        return name;
    }
    if (m_mode == DD_DropMode::kAlwaysCreate || !present) {
        const QString free = freeName(name, to);
        add(drawing, free, from, to, pair, commands);
        return free;
    }

    if (m_mode == DD_DropMode::kOnlyCreateIfMissing || m_mode == DD_DropMode::kShare)
        return name;

    const Layers& layers = layersOf(from, to, pair, commands);
    const std::unique_ptr<Drawing> pasted = copyDrawing(drawing, name, m_elements.contents(), layers);
    std::unique_ptr<Drawing> state = stateOf(m_mode == DD_DropMode::kReplaceExisting ? *pasted : *present);
    if (m_mode == DD_DropMode::kAlwaysCreateAndVersion) {
        if (showSame(drawing, *present, layers))
            return name;
        state->version = highestVersion(*present) + 1;
    }
    for (const DrawingFile& file : pasted->files()) {
        const bool isShown = file.version == pasted->version;
        if (m_mode == DD_DropMode::kOnlyCreateIfMissingAndMerge) {
            if (!state->content(file.layer, file.version))
                state->setContent(file.layer, file.version, file.content);
        } else if (m_mode != DD_DropMode::kReplaceExisting && isShown) {
            state->setContent(file.layer, state->version, file.content);
        }
    }
    commands.add(new ExchangeDrawing(m_elements, *present, std::move(state)));
    return name;
}

void DrawingPaste::add(const Drawing& drawing, const QString& name, const Element& from, Element& to, Pair& pair,
                       CO_AndCommand& commands)
{
    const Layers& layers = layersOf(from, to, pair, commands);
    commands.add(new AddDrawing(m_elements, to, copyDrawing(drawing, name, m_elements.contents(), layers)));
    m_added[&to].insert(name);
}

/// Layers go by their names; those that the target lacks are made.
const DrawingPaste::Layers& DrawingPaste::layersOf(const Element& from, Element& to, Pair& pair,
                                                   CO_AndCommand& commands)
{
    if (std::exchange(pair.hasLayers, true))
        return pair.layers;
    EM_LayerId& last = m_lastLayers[&to];
    for (const EM_LayerInfo& layer : to.layers())
        last = std::max(last, layer.id);
    for (const EM_LayerInfo& layer : from.layers()) {
        if (const EM_LayerInfo* same = to.findLayer(layer.name)) {
            pair.layers.emplace(layer.id, same->id);
            continue;
        }
        pair.layers.emplace(layer.id, ++last);
        commands.add(new AddLayer(to, {last, layer.name}));
    }
    return pair.layers;
}

bool DrawingPaste::isTaken(const QString& name, const Element& to) const
{
    const auto added = m_added.find(&to);
    return to.drawings().named(name) || (added != m_added.end() && added->second.contains(name));
}

QString DrawingPaste::freeName(const QString& name, const Element& to) const
{
    constexpr qsizetype longest = 240; // A number fits behind it.
    QString free;
    int number = 0;
    do {
        free = name.left(longest) + u'_' + QString::number(++number);
    } while (isTaken(free, to));
    return free;
}

} // namespace brindle::engine
