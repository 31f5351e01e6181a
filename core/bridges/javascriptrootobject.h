#pragma once

#include "core/bridges/javascriptobject.h"

namespace OMC {

/// A script that was loaded: its global object, whose properties are the script's variables and functions, with its
/// source.
///
/// It stays one with the running script. One that is loaded with delay runs at its first use.
class BRINDLE_CORE_EXPORT JavascriptRootObject : public JavascriptObject {
    Q_OBJECT
    BRINDLE_COPYABLE(JavascriptRootObject)

    Q_PROPERTY(QString path READ getPath)
    Q_PROPERTY(QString script READ getScript WRITE setScript)
    Q_PROPERTY(bool loaded READ getLoaded)
    Q_PROPERTY(QString type READ getType)

public:
    /// An empty script is read from the file; an empty path is that of a script from a text.
    JavascriptRootObject(const QString& script, const QString& path);

    std::string __str__() const override;

    /// Runs the script once more, from its file where that is asked for and there is one.
    void reload(bool fromFile);

    virtual QString getPath() const; ///< The file; empty for a script from a text.
    QString getScript() const;       ///< The text. A new one runs at once; an empty one leaves nothing.
    void setScript(const QString& script);
    /// True for a script from a text. One from a file is read anew for it, which fails where it can't be read.
    virtual bool getLoaded() const;
    QString getSource() const override; ///< The path, or "memory".
    QString getType() const override;   ///< Always "ROOT".

    /// Runs the script, if it has not yet run.
    void delayedInitialize() const override;

private:
    void run() const;

    QString m_path;
    mutable QString m_script;
    mutable bool m_initialized = false;
};

} // namespace OMC
