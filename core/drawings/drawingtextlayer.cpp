#include "core/drawings/drawingtextlayer.h"

#include "core/drawings/drawingedit.h"
#include "core/drawings/drawingvalues.h"
#include "core/frame/finite.h"
#include "core/frame/found.h"

#include <algorithm>
#include <array>

namespace OMC {

namespace {

constexpr std::array alignments = {"Left", "Center", "Right", "Justify"};

/// Characters and not code units are counted: a selection never cuts one in two.
int characterCount(const QString& text)
{
    return static_cast<int>(text.toUcs4().size());
}

/// Where a character begins in a text.
qsizetype positionOf(const QString& text, int character)
{
    qsizetype position = 0;
    for (; character > 0 && position < text.size(); --character)
        position += text.at(position).isHighSurrogate() && position + 1 < text.size() ? 2 : 1;
    return position;
}

} // namespace

std::string DrawingTextLayer::__str__() const
{
    return "DrawingTextLayer()";
}

void DrawingTextLayer::validate() const
{
    DrawingLayer::validate();
    foundAs<GR_TextNode>(record()->getLayer());
}

const GR_TextLayer& DrawingTextLayer::layer() const
{
    validate();
    return found(foundAs<GR_TextNode>(record()->getLayer()).GetLayer());
}

void DrawingTextLayer::write(const GR_TextLayer::Data& changed)
{
    if (changed == data())
        return;
    drawingedit::run(record()->drawing(), record()->key(),
                     [&](GR_DrawingAccess& access) { access.SetText(record()->getLayer(), changed); });
}

template <typename Value>
void DrawingTextLayer::writeField(Value GR_TextLayer::Data::*field, const Value& value)
{
    GR_TextLayer::Data changed = data();
    if constexpr (std::is_same_v<Value, double>) {
        requireFinite(value, 0);
        if (value < 0)
            throwInvalidArgument(0);
    }
    changed.*field = value;
    write(changed);
}

QVariant DrawingTextLayer::getBoundingBox() const
{
    return drawingedit::onHost([this] { return drawingvalues::rectangle(layer().GetBox()); });
}

QVariant DrawingTextLayer::getBoundingBoxVisible() const
{
    return drawingedit::onHost([this] { return drawingvalues::rectangle(layer().GetOutlineBox()); });
}

QVariant DrawingTextLayer::getBoundingBoxLinestyle() const
{
    return drawingedit::onHost([this] { return drawingvalues::rectangle(layer().GetPlainBox()); });
}

// Required: the same as of a layer of strokes.
QString DrawingTextLayer::getType() const
{
    validate();
    return QStringLiteral("Vector");
}

QVariant DrawingTextLayer::getMatrix() const
{
    return toVariant(drawingvalues::newMatrix(data().matrix));
}

QVariant DrawingTextLayer::getColourMatrix() const
{
    const GR_TextLayer::Data& text = data();
    return toVariant(drawingvalues::newMatrix(text.colour ? text.colour->GetMatrix() : Math::Matrix2x3()));
}

void DrawingTextLayer::setColourMatrix(const QVariant& matrix)
{
    GR_TextLayer::Data changed = data();
    const Math::Matrix2x3 plane = drawingvalues::matrixArgument(matrix);
    const GR_Color present = changed.colour ? *changed.colour : GR_Color();
    changed.colour = present.CopyWithDifferentGradientMatrix(plane);
    write(changed);
}

double DrawingTextLayer::getWidth() const
{
    return data().width;
}

void DrawingTextLayer::setWidth(double width)
{
    writeField(&GR_TextLayer::Data::width, width);
}

double DrawingTextLayer::getWidthFixed() const
{
    return data().fixedWidth;
}

void DrawingTextLayer::setWidthFixed(double width)
{
    writeField(&GR_TextLayer::Data::fixedWidth, width);
}

QString DrawingTextLayer::getAlignment() const
{
    return QLatin1String(alignments[data().alignment]);
}

void DrawingTextLayer::setAlignment(const QString& alignment)
{
    validate();
    const auto name = std::ranges::find_if(alignments, [&](const char* candidate) {
        return alignment.compare(QLatin1String(candidate), Qt::CaseInsensitive) == 0;
    });
    if (name == alignments.end())
        throwInvalidArgument(0);
    writeField(&GR_TextLayer::Data::alignment, static_cast<GR_TextLayer::Alignment>(name - alignments.begin()));
}

int DrawingTextLayer::getMarginLeft() const
{
    return data().marginLeft;
}

void DrawingTextLayer::setMarginLeft(int margin)
{
    writeField(&GR_TextLayer::Data::marginLeft, margin);
}

int DrawingTextLayer::getMarginRight() const
{
    return data().marginRight;
}

void DrawingTextLayer::setMarginRight(int margin)
{
    writeField(&GR_TextLayer::Data::marginRight, margin);
}

int DrawingTextLayer::getIndent() const
{
    return data().indent;
}

void DrawingTextLayer::setIndent(int indent)
{
    writeField(&GR_TextLayer::Data::indent, indent);
}

int DrawingTextLayer::getLineSpace() const
{
    return data().lineSpace;
}

void DrawingTextLayer::setLineSpace(int space)
{
    writeField(&GR_TextLayer::Data::lineSpace, space);
}

int DrawingTextLayer::getCharacterCount() const
{
    return characterCount(data().text);
}

int DrawingTextLayer::requireCharacter(int index) const
{
    if (index < 0 || index > getCharacterCount())
        throwInvalidArgument(0);
    return index;
}

int DrawingTextLayer::getCharacterSelectionFrom() const
{
    return data().selectionFrom;
}

void DrawingTextLayer::setCharacterSelectionFrom(int index)
{
    GR_TextLayer::Data changed = data();
    changed.selectionFrom = requireCharacter(index);
    changed.selectionTo = std::max(changed.selectionTo, index);
    write(changed);
}

int DrawingTextLayer::getCharacterSelectionTo() const
{
    return data().selectionTo;
}

void DrawingTextLayer::setCharacterSelectionTo(int index)
{
    GR_TextLayer::Data changed = data();
    changed.selectionTo = requireCharacter(index);
    changed.selectionFrom = std::min(changed.selectionFrom, index);
    write(changed);
}

QString DrawingTextLayer::getText() const
{
    return data().text;
}

void DrawingTextLayer::setText(const QString& text)
{
    GR_TextLayer::Data changed = data();
    const int count = characterCount(text);
    changed.text = text;
    changed.selectionFrom = std::min(changed.selectionFrom, count);
    changed.selectionTo = std::min(changed.selectionTo, count);
    write(changed);
}

QString DrawingTextLayer::getTextSelected() const
{
    const GR_TextLayer::Data& text = data();
    const qsizetype from = positionOf(text.text, text.selectionFrom);
    return text.text.mid(from, positionOf(text.text, text.selectionTo) - from);
}

void DrawingTextLayer::setTextSelected(const QString& text)
{
    GR_TextLayer::Data changed = data();
    const qsizetype from = positionOf(changed.text, changed.selectionFrom);
    changed.text.replace(from, positionOf(changed.text, changed.selectionTo) - from, text);
    changed.selectionTo = changed.selectionFrom + characterCount(text);
    write(changed);
}

} // namespace OMC
