#pragma once

#include "core/host/export.h"

#include <QString>

/// What the process is: the build, the product, and how it was started. All of it is there before any session.
class BRINDLE_HOST_EXPORT ID_Identity {
public:
    static int family();      ///< 1 bronze, 2 silver, 3 gold.
    static int application(); ///< The number of the program within the product family; 1 is the application for scenes.
    static int mode();        ///< 2 for inking; 0 for none of the special ones.
    static bool isInteractive();

    static QString flavor(); ///< The product's flavour, as "Brindle".
    static QString flavorTranslated();
    static QString productName(); ///< The full name of the application.

    /// The build's version, a short decimal text each.
    static const char* majorVersion();
    static const char* minorVersion();
    static const char* patchVersion();
    static int buildNumber();

    static QString userName(); ///< Of the person who runs the process.
};
