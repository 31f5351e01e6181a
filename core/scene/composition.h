#pragma once

#include "core/frame/obj.h"

#include <vector>

namespace OMC {

/// The layers that a scene shows. No scene gives one yet.
///
/// The family holds nothing: `Scene::compositions` fails; none of its objects can be copied, and what they would lead
/// to is refused.
class BRINDLE_CORE_EXPORT Composition : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;

    virtual Obj getBase() const;                ///< Always fails.
    virtual std::vector<Obj> getLayers() const; ///< Always fails.
    virtual bool render();                      ///< Always false.
};

/// A layer of a composition.
class BRINDLE_CORE_EXPORT CompositionLayer : public BaseObject {
    Q_OBJECT

public:
    std::string __str__() const override;
};

/// The layer of an attribute.
class BRINDLE_CORE_EXPORT AttributeLayer : public CompositionLayer {
    Q_OBJECT

public:
    virtual Obj getAttribute() const; ///< Always fails.
};

/// The layer of a node.
class BRINDLE_CORE_EXPORT NodeLayer : public CompositionLayer {
    Q_OBJECT

public:
    virtual Obj getNode() const; ///< Always fails.
};

/// The layer of a sound.
class BRINDLE_CORE_EXPORT SoundLayer : public CompositionLayer {
    Q_OBJECT

public:
    virtual Obj getSound() const; ///< Always fails.
};

/// The layer of a drawing.
class BRINDLE_CORE_EXPORT DrawingCompLayer : public CompositionLayer {
    Q_OBJECT
};

/// The layer of a group.
class BRINDLE_CORE_EXPORT GroupLayer : public CompositionLayer {
    Q_OBJECT
};

} // namespace OMC
