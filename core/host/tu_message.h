#pragma once

#include "core/host/export.h"

/// Messages that stop a person's work until they are answered.
class BRINDLE_HOST_EXPORT TUMessage {
public:
    static TUMessage* instance();

    bool isQuiet() const { return m_isQuiet; } ///< Whether none are shown.
    void setQuiet(bool quiet) { m_isQuiet = quiet; }

private:
    bool m_isQuiet = false;
};
