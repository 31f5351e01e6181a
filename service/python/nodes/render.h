#pragma once

#include "core/frame/obj.h"
#include "service/python/pyref.h"

#include <QVariant>

namespace brindle::python {

/// What the module brindle.render is made of. A job is a capsule, which Python code hands from one of these to the
/// next: `prepareRendering` reads the project, `renderJob` works without it and without Python's lock, so that threads
/// can work on several jobs. Each throws what a function of the module throws.
PyObject* prepareRendering(const OMC::Obj& node, double frame, const QVariant& size);
PyObject* remarksOfJob(PyObject* job); ///< A list of texts.
PyObject* renderJob(PyObject* job, int threads);
/// Draws a job on the calling thread, and writes the picture as a file of so many bits a channel, 8 or 16, where its
/// format leaves that open.
void writeJob(PyObject* job, const QString& path, int depth);

/// Lets go of the pictures that were remembered: the project that they show is about to be closed.
void forgetPictures();

} // namespace brindle::python
