#include "svg/document.h"
#include "svg/shapedevice.h"

#include "core/frame/exception.h"

#include <QLoggingCategory>
#include <QSvgRenderer>

#include <cstring>

namespace {

QLoggingCategory::CategoryFilter earlierFilter = nullptr;

/// Qt's warnings about what it can't read are for people who write SVG readers.
void silenceSvg(QLoggingCategory* category)
{
    if (earlierFilter)
        earlierFilter(category);
    if (std::strcmp(category->categoryName(), "qt.svg") == 0)
        category->setEnabled(QtWarningMsg, false);
}

} // namespace

/// The library's entry: reads an SVG text (see OMC::svg::read).
extern "C" Q_DECL_EXPORT void brindleReadSvg(const QByteArray& text, OMC::svg::Picture& picture)
{
    using namespace brindle::svg;
    static const bool isSilent = (earlierFilter = QLoggingCategory::installFilter(&silenceSvg)) != nullptr;
    Q_UNUSED(isSilent);
    const Document document(text);
    picture.notCarried = document.notCarried();
    for (const std::vector<int>& part : document.parts()) {
        QSvgRenderer renderer;
        if (!renderer.load(document.textOf(part)))
            throw OMC::Exception(QStringLiteral("The SVG text can't be read: a value in it is wrong."));
        const QRectF view = renderer.viewBoxF();
        if (view.isEmpty())
            continue; // There is nothing to see in it.
        ShapeDevice device(view);
        QPainter painter(&device);
        renderer.render(&painter, view);
        painter.end();
        for (const QString& line : device.notCarried())
            if (!picture.notCarried.contains(line))
                picture.notCarried.append(line);
        if (OMC::svg::Layer layer = device.takeShapes(); !layer.empty())
            picture.layers.push_back(std::move(layer));
    }
}
