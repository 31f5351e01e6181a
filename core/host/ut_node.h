#pragma once

#include "core/host/export.h"

#include <QtGlobal>

/// A node of the tree that an art layer's content hangs in: the root, or a leaf for each of its layers.
///
/// A leaf keeps its address and its id as long as its drawing lives, also while it is out of the tree because a layer
/// was removed: no other leaf ever has them. A leaf that was removed in an edit session shows what it held until the
/// session ends.
class BRINDLE_HOST_EXPORT UT_Node {
public:
    UT_Node() = default;
    UT_Node(const UT_Node&) = delete;
    UT_Node& operator=(const UT_Node&) = delete;
    virtual ~UT_Node() = default;

    /// The id of the leaf's layer, unique in its composite drawing and kept over undo and saves; 0 for the root.
    virtual quint32 id() const = 0;
    /// The first leaf for the root, the next one (the layer above) for a leaf. Null behind the last one, and for a leaf
    /// that is out of the tree.
    virtual UT_Node* GetNextLeaf() const = 0;
};
