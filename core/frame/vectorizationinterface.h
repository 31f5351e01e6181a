#pragma once

#include "core/frame/export.h"

class BAPP_ScriptHost;
class BAPP_VectorizationInterface;
class SC_SessionContext;

namespace OMC {

/// The maker of the vectorisation service, which the service library installs.
class BRINDLE_CORE_EXPORT VectorizationInterfaceGenerator {
public:
    virtual ~VectorizationInterfaceGenerator();

    /// New, the caller's, and registered with the host by itself; null where the library has no such service.
    virtual BAPP_VectorizationInterface* create(BAPP_ScriptHost* host) = 0;
};

/// How a host attaches the vectorisation service to itself, beside scripting and under the same conditions
/// (core/frame/scriptenginegenerator.h).
namespace VectorizationInterface {

/// Takes the generator and destroys the one before. The service library calls it while it is loaded.
BRINDLE_CORE_EXPORT void setGenerator(VectorizationInterfaceGenerator* generator);

/// Has the service made in a Python batch with a session, or registers the one that there is. Does nothing elsewhere.
BRINDLE_CORE_EXPORT void loadInterface(SC_SessionContext* session);
/// Takes the service off the application and destroys it. Without an application to take it off, it stays.
BRINDLE_CORE_EXPORT void unloadInterface();

} // namespace VectorizationInterface

} // namespace OMC
