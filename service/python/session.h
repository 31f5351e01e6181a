#pragma once

#include "service/python/pyref.h"
#include "service/serviceapplication.h"

#include <QString>

namespace brindle::python {

/// The open project of the process, as the module's functions see it. Each gives a new reference or throws.
PyObject* createProject(const QString& path);
PyObject* openProject(const QString& path, bool readOnly);
/// The application whose project is open, or None.
PyObject* currentApplication();

/// The project's life from a script's side. Saving and closing give up Python's lock meanwhile.
void save(const ServiceApplication& application, const QString& path);
void saveAs(const ServiceApplication& application, const QString& path);
void close(const ServiceApplication& application);

/// Closes the project and drops the session; for the end of the interpreter.
void shutDown();

} // namespace brindle::python
