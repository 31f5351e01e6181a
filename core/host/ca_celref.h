#pragma once

#include "core/host/ca_celkey.h"
#include "core/host/cel_cel.h"

/// A counted reference on a cel, or on none, together with what the cel was asked for. A plain value.
class BRINDLE_HOST_EXPORT CA_CelRef {
public:
    explicit CA_CelRef(CEL_Cel* cel = nullptr, const CEL_Context& context = CEL_Context())
        : m_cel(cel),
          m_context(context)
    {}

    CEL_Cel* cel() const { return m_cel.data(); } ///< Null for none.
    void setCel(CEL_Cel* cel) { m_cel.reset(cel); }
    const CEL_Context& context() const { return m_context; }
    void setContext(const CEL_Context& context) { m_context = context; }

private:
    QExplicitlySharedDataPointer<CEL_Cel> m_cel;
    CEL_Context m_context;
};

/// The cel of a key.
class BRINDLE_HOST_EXPORT CA_CelPtr {
public:
    CA_CelPtr() = default; ///< Of no cel.
    explicit CA_CelPtr(CEL_Cel* cel) : m_cel(cel) {}
    /// What the key names: an empty cel for CA_CelKeySpecial::emptyCel(), no cel for anything else; cels of drawings
    /// come from the cache of cels.
    CA_CelPtr(const CA_CelKey& key, const CEL_Context& context);

    CEL_Cel* cel() const { return m_cel.data(); } ///< Null for none.
    explicit operator bool() const { return m_cel.data() != nullptr; }

private:
    QExplicitlySharedDataPointer<CEL_Cel> m_cel;
};
