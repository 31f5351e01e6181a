#pragma once

#include "core/host/at_attr.h"

#include <QStringList>

#include <memory>

namespace OMC {

class Attribute;

/// Chooses the wrapper class for an engine attribute. A kind without a class of its own gets the general one.
class AttributeWrapperVisitor final : public AT_AttrVisitorWithFallback {
public:
    explicit AttributeWrapperVisitor(const QStringList& parentPath);
    ~AttributeWrapperVisitor() override;

    using AT_AttrVisitorWithFallback::visit;
    void visit(AT_Attr& attr) override;
    void visit(AT_BoolAttr& attr) override;
    void visit(AT_IntAttr& attr) override;
    void visit(AT_DoubleAttr& attr) override;
    void visit(AT_StringAttr& attr) override;

    /// The wrapper made last; the caller owns it.
    Attribute* take();

private:
    template <typename Wrapper>
    void make(AT_Attr& attr);

    const QStringList& m_parentPath;
    std::unique_ptr<Attribute> m_wrapper;
};

} // namespace OMC
