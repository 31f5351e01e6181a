#pragma once

#include "core/host/mo_node.h"

#include <QString>

/// The common part of nodes that belong to no engine: at the root of the scene graph, without attributes, at one place
/// and under one name for good.
template <typename Base>
class StandIn : public Base {
public:
    explicit StandIn(SC_SceneCommon* scene) : scene(scene) {}

    SC_SceneCommon* sceneCommon() const override { return scene; }
    TUGroup* parentGroup() const override { return nullptr; }
    QString qualifiedName() const override { return QStringLiteral("Top/") + this->instanceName(); }
    int x() const override { return 0; }
    int y() const override { return 0; }
    int z() const override { return 0; }
    void setX(int) override {}
    void setY(int) override {}
    void setZ(int) override {}
    void setScene(SC_SceneCommon* common) override { scene = common; }
    QString defaultInstanceName() const override { return this->instanceName(); }
    bool setInstanceName(const QString&) override { return false; }
    bool isNameAcceptable(const QString&) const override { return false; }
    bool isEnabled() const override { return true; }
    void setDirty() override {}
    void setNodeColor(const QColor&) override {}
    bool isCacheable() const override { return true; }
    const MO_CacheConfig& cacheConfig() const override { return cache; }
    bool canLock() const override { return lockable; }
    bool lock() const override { return false; }
    bool isShowTimelineThumbnails() const override { return false; }
    bool isModeMultiInPort() const override { return false; }
    AT_Attr* findAttributeByKeyword(const QString&) const override { return nullptr; }
    typename Base::AttrIterator attrsBegin() const override { return nullptr; }
    typename Base::AttrIterator attrsEnd() const override { return nullptr; }

    SC_SceneCommon* scene;
    MO_CacheConfig cache;
    bool lockable = true;
};
