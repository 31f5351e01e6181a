#pragma once

#include "core/frame/baseobject.h"

namespace OMC {

/// What a script runs in: the version, the platform, the application of the product family, and its mode. It is always
/// valid, and on any thread.
class BRINDLE_CORE_EXPORT About : public BaseObject {
    Q_OBJECT
    BRINDLE_COPYABLE(About)

    Q_PROPERTY(QString flavor_string READ getFlavorString)
    Q_PROPERTY(QString flavor_string_translated READ getFlavorStringTranslated)
    Q_PROPERTY(int version_major READ getVersionMajor)
    Q_PROPERTY(int version_minor READ getVersionMinor)
    Q_PROPERTY(int version_patch READ getVersionPatch)
    Q_PROPERTY(int build_number READ getBuildNumber)
    Q_PROPERTY(QString product_name READ getProductName)
    Q_PROPERTY(bool cadence READ isCadence)
    Q_PROPERTY(bool cadence_gold READ isCadenceGold)
    Q_PROPERTY(bool cadence_bronze READ isCadenceBronze)
    Q_PROPERTY(bool cadence_silver READ isCadenceSilver)
    Q_PROPERTY(bool sequencer READ isSequencer)
    Q_PROPERTY(bool arch_windows READ isArchWindows)
    Q_PROPERTY(bool arch_linux READ isArchLinux)
    Q_PROPERTY(bool arch_mac READ isArchMac)
    Q_PROPERTY(bool arch_mac_intel READ isArchMacIntel)
    Q_PROPERTY(bool arch_mac_ppc READ isArchMacPpc)
    Q_PROPERTY(bool arch_mac_m1 READ isArchMacM1)
    Q_PROPERTY(bool interactive READ isInteractive)
    Q_PROPERTY(bool app_workbench READ isAppWorkbench)
    Q_PROPERTY(bool app_digitiser READ isAppDigitiser)
    Q_PROPERTY(bool app_primary READ isAppPrimary)
    Q_PROPERTY(bool app_contol_hub READ isAppContolHub)
    Q_PROPERTY(bool mode_inking READ isModeInking)
    Q_PROPERTY(bool mode_exposure READ isModeExposure)
    Q_PROPERTY(bool mode_server READ isModeServer)
    Q_PROPERTY(QString path_application READ getPathApplication)
    Q_PROPERTY(QString path_binary READ getPathBinary)
    Q_PROPERTY(QString path_resources READ getPathResources)
    Q_PROPERTY(QString user_name READ getUserName)
    Q_PROPERTY(bool mode_python READ isModePython)
    Q_PROPERTY(bool mode_batch READ isModeBatch)

public:
    About() = default;
    About(const About& other) = default;

    std::string __str__() const override;

    virtual QString getFlavorString() const;           ///< The flavour of the product.
    virtual QString getFlavorStringTranslated() const; ///< The same in the person's language.
    virtual int getVersionMajor() const;               ///< The first number of the version.
    virtual int getVersionMinor() const;               ///< The second number of the version.
    virtual int getVersionPatch() const;               ///< The third number of the version.
    virtual int getBuildNumber() const;                ///< The number of the build; 0 where no build server gave one.
    virtual QString getProductName() const;            ///< The full name of the application.
    virtual bool isCadence() const; ///< Whether it is the gold product, or the silver one on a project in a database;
                                    ///< false without a session.
    virtual bool isCadenceGold() const;   ///< Whether it is the gold product.
    virtual bool isCadenceBronze() const; ///< Whether it is the bronze product.
    virtual bool isCadenceSilver() const; ///< Whether it is the silver product.
    virtual bool isSequencer() const;     ///< Whether the application is the sequencer.
    virtual bool isArchWindows() const;   ///< Whether it was built for Windows.
    virtual bool isArchLinux() const;     ///< Whether it was built for Linux.
    virtual bool isArchMac() const;       ///< Whether it was built for macOS.
    virtual bool isArchMacIntel() const;  ///< Whether it was built for macOS on Intel's processors.
    virtual bool isArchMacPpc() const;    ///< Whether it was built for macOS on PowerPC.
    virtual bool isArchMacM1() const;     ///< Whether it was built for macOS on Apple's processors.
    virtual bool isInteractive() const;   ///< Whether a person works with it in windows.
    virtual bool isAppWorkbench() const;  ///< Whether the application is the workbench.
    virtual bool isAppDigitiser() const;  ///< Whether the application is the digitiser.
    virtual bool isAppPrimary() const;    ///< Whether the application is one of those for scenes.
    virtual bool isAppContolHub() const;  ///< Whether the application is the control hub.
    virtual bool isModeInking() const;    ///< Whether it runs for inking.
    virtual bool isModeExposure() const;  ///< Always false.
    virtual bool isModeServer() const;    ///< Whether the project lies in a database; false without a session.
    virtual QString getPathApplication()
        const; ///< The file of the running program, or "noapplication" where there is no Qt application.
    virtual QString getPathBinary() const;    ///< The folder of the application's libraries.
    virtual QString getPathResources() const; ///< The folder of the application's resources.
    virtual QString getUserName() const;      ///< The name of the person who runs it.
    virtual bool isModePython() const;        ///< Whether it runs a script of Python as a batch.
    virtual bool isModeBatch() const;         ///< Whether it runs a script or renders as a batch.
};

} // namespace OMC
