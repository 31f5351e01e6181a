#include "core/nodes/cel.h"

#include "core/frame/found.h"
#include "core/host/celio_manager.h"
#include "core/host/pl_filespec.h"
#include "service/python/enginegate.h"
#include "service/python/family.h"
#include "service/python/session.h"

#include <QFile>

#include <array>

namespace brindle::python {

namespace {

/// The pixels that a buffer shows. They stay while it is held, whatever becomes of the cel.
struct PixelBuffer {
    CEL_PixmapPtr pixels;
    std::array<Py_ssize_t, 3> shape;
    std::array<Py_ssize_t, 3> strides;
};

constexpr Py_ssize_t channels = 4;

CEL_PixmapPtr bytesOf(const OMC::Cel& cel)
{
    return std::dynamic_pointer_cast<const CEL_Pixmap>(
        OMC::found(cel.cel()).convertTo(CEL_Representation::PIXMAP_RGBA8));
}

[[noreturn]] void throwBufferError(const char* sentence)
{
    PyErr_SetString(PyExc_BufferError, sentence);
    throw PythonError{};
}

int getBuffer(PyObject* self, Py_buffer* view, int flags)
{
    view->obj = nullptr;
    return guarded([&] {
        if ((flags & PyBUF_WRITABLE) == PyBUF_WRITABLE)
            throwBufferError("The pixels of a cel can't be written.");
        if ((flags & PyBUF_F_CONTIGUOUS) == PyBUF_F_CONTIGUOUS)
            throwBufferError("The pixels of a cel lie row by row.");
        const CEL_PixmapPtr pixels = bytesOf(static_cast<OMC::Cel&>(*objectOf(self)));
        if (!pixels)
            throwBufferError("The cel has no pixels.");
        const Py_ssize_t width = pixels->width();
        const Py_ssize_t height = pixels->height();
        auto* buffer = new PixelBuffer{pixels, {height, width, channels}, {width * channels, channels, 1}};
        const bool hasShape = (flags & PyBUF_ND) == PyBUF_ND;
        view->buf = const_cast<uchar*>(pixels->image().constBits());
        view->len = height * width * channels;
        view->itemsize = 1;
        view->readonly = 1;
        view->ndim = hasShape ? 3 : 1;
        view->format = (flags & PyBUF_FORMAT) == PyBUF_FORMAT ? const_cast<char*>("B") : nullptr;
        view->shape = hasShape ? buffer->shape.data() : nullptr;
        view->strides = (flags & PyBUF_STRIDES) == PyBUF_STRIDES ? buffer->strides.data() : nullptr;
        view->suboffsets = nullptr;
        view->internal = buffer;
        view->obj = Py_NewRef(self);
        return 0;
    });
}

void releaseBuffer(PyObject*, Py_buffer* view)
{
    delete static_cast<PixelBuffer*>(view->internal);
}

/// The picture as a PNG; None for a cel without pixels.
PyObject* pngOf(const OMC::Cel& cel)
{
    if (!bytesOf(cel))
        Py_RETURN_NONE;
    static PL_TemporaryDir folder;
    QFile file(folder.generateTemporaryName(QStringLiteral("png")));
    CELIO_WriteContext context(file.fileName(), QString(), cel.cel()->impl().colorProfile(), nullptr, QVariant());
    context.setFormat(CEL_Representation::PIXMAP_RGBA8);
    if (!CELIO_Manager::getInstance()->write(cel.cel(), context, QStringLiteral("png"), QString()) ||
        !file.open(QIODevice::ReadOnly))
        throw OMC::Exception(QStringLiteral("The picture can't be made into a PNG; the log says why."));
    const QByteArray bytes = file.readAll();
    file.remove();
    return PyBytes_FromStringAndSize(bytes.constData(), bytes.size());
}

/// Calls for a picture that may take long, without Python's lock.
template <typename Work>
auto away(Work work)
{
    EngineGate::Operation operation;
    return operation.run(work);
}

const OMC::Cel* celIn(const OMC::Obj& object)
{
    const auto* cel = OMC::objectIn<OMC::Cel>(object);
    if (object.get() && !cel)
        throwTypeError("A cel is compared with a cel or None, not with %s", object.get()->metaObject()->className());
    return cel;
}

bool compare(const OMC::Cel& cel, const OMC::Obj& other)
{
    return cel.compare(celIn(other));
}

bool compareExr(const OMC::Cel& cel, const OMC::Obj& other)
{
    return cel.compareExr(celIn(other));
}

void convertColorSpace(OMC::Cel& cel, const QString& from, const QString& to)
{
    beginSession();
    cel.convertColorSpace(from, to);
}

QString dataFile(OMC::Cel& cel)
{
    return cel.write();
}

void writeFile(OMC::Cel& cel, const QString& path, const QString& format, const QString& option)
{
    away([&] { cel.write(path, format, option); });
}

OMC::Cel* emptyCel()
{
    auto* cel = new OMC::Cel(static_cast<CEL_Cel*>(nullptr));
    cel->setEmpty();
    return cel;
}

OMC::Obj readCel(const QString& path)
{
    QDateTime time;
    QString error;
    QByteArray profile;
    std::vector<CEL_RepresentationPtr> representations;
    const bool isRead = away([&] {
        return CELIO_Manager::getInstance()->read(path, time, CEL_Context(), representations, &error, &profile);
    });
    if (!isRead)
        throw OMC::Exception(error);
    auto* cel = new CEL_Cel;
    OMC::Obj result(new OMC::Cel(cel));
    cel->impl().setColorProfile(profile);
    for (const CEL_RepresentationPtr& representation : representations) {
        if (representation->format() == CEL_Representation::PIXMAP_AREA_ZBUF)
            cel->addRepresentation(representation);
        else
            cel->setRepresentation(representation);
    }
    return result;
}

const Family family([]() -> std::vector<ClassTable> {
    using namespace OMC;
    return {
        Class<Cel>()
            .property("rect", "AllocatedRect2DI | None")
            .property("allocated_rect", "AllocatedRect2DI | None")
            .constructor<&emptyCel, "">()
            .buffer(&getBuffer, &releaseBuffer)
            .staticMethod<"read", StaticForm<&readCel, "path: str | PathLike[str] -> Cel">>(
                "The picture in a file: PNG, JPEG, OpenEXR, and by OpenImageIO TIFF, TGA, BMP, PSD and others.")
            .method<"compare", Form<&compare, "other: Cel | None">>()
            .method<"compare_exr", Form<&compareExr, "other: Cel | None">>()
            .method<"convert_color_space", Form<&convertColorSpace, "from_space, to_space">>()
            .method<"set_empty", Form<&Cel::setEmpty>>()
            .method<"set_image_file", Form<&Cel::setImageFile, "path: str | PathLike[str]">>()
            .method<"write", Form<&dataFile>,
                    Form<&writeFile, "path: str | PathLike[str], format='', write_option=''">>()
            .method<"working_copy", Form<&Cel::workingCopy>>()
            .method<"working_copy_as", Form<&Cel::workingCopyAs, "suffix, format='', write_option=''">>()
            .method<"_repr_png_", Form<&pngOf, "-> bytes | None">>("The picture as a PNG, as notebooks show it."),
    };
});

} // namespace

} // namespace brindle::python
