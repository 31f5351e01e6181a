#pragma once

#include "service/python/pyref.h"
#include "service/serviceapplication.h"

#include <QString>

namespace brindle::python {

/// The open project of the process, as the module's functions see it. Each gives a new reference or throws. A project
/// that is open with unsaved changes is closed for another one only where they are to be discarded.
PyObject* createProject(const QString& path, bool discard);
PyObject* openProject(const QString& path, bool readOnly, bool discard);
/// The application whose project is open, or None.
PyObject* currentApplication();

/// Makes the session where there is none: for what needs one, but no project.
void beginSession();

/// The project's life from a script's side. Saving and closing give up Python's lock meanwhile.
void save(const ServiceApplication& application, const QString& path);
void saveAs(const ServiceApplication& application, const QString& path);
void close(const ServiceApplication& application);

/// Called by a host with a session of its own when a project was opened in it, or is about to be closed. On the main
/// thread.
void hostOpenedProject(SC_SessionContext* session);
void hostClosesProject();

/// Lets go of the project, and closes it with the session where that is our own; for the end of the interpreter. From
/// then on no other thread gets into the engine.
void shutDown();

} // namespace brindle::python
