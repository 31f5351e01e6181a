#include "core/elements/metadatahandler.h"
#include "core/elements/metadatapair.h"
#include "core/host/pio_metadata.h"
#include "core/scene/scene.h"
#include "tests/core/support/changetest.h"
#include "tests/core/support/failure.h"
#include "tests/core/support/refusingmanager.h"
#include "tests/core/support/standins.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using OMC::MetaDataHandler;
using OMC::MetaDataPair;

const char* const several = "More than one metadata was found with supplied name -- please remove one and try again.";

class SceneMetaDataTest : public ChangeTest {
protected:
    SceneMetaDataTest() : handler(scene()) {}

    MetaDataPair pair(const QString& key) { return MetaDataPair(scene(), key); }

    /// Adds an entry as another program may have left it.
    void addEntry(PIO_Metadata::Type type, const QString& name, const QString& creator = {})
    {
        PIO_Metadata* entry = nullptr;
        PIO_MetadataFactory::impl()->create(type, name, &entry);
        ASSERT_NE(entry, nullptr);
        entry->setCreator(creator);
        ASSERT_TRUE(manager().execute(new AddSceneMetadataCmd(sceneCommon(), entry), "Add"));
    }

    MetaDataHandler handler;
};

/// An entry of another engine, of a type that scripts don't know.
class StandInEntry : public PIO_Metadata {
public:
    QString metaName() const override { return QStringLiteral("a"); }
    Type metaType() const override { return kOther; }
    QVariant value() const override { return content; }
    QString creator() const override { return {}; }
    QString version() const override { return {}; }
    void setCreator(const QString&) override {}
    void setVersion(const QString&) override {}

    QVariant content = QVariantList{1};
};

class StandInEntries : public PIO_Metadatas {
public:
    StandInEntries() : m_entry(std::make_unique<StandInEntry>()) {}
    Iterator begin() const override { return &m_entry; }
    Iterator end() const override { return &m_entry + 1; }
    std::vector<int> indexesOf(const QString& name) const override
    {
        return name.compare(m_entry->metaName(), Qt::CaseInsensitive) == 0 ? std::vector<int>{0} : std::vector<int>();
    }
    StandInEntry& entry() { return static_cast<StandInEntry&>(*m_entry); }

private:
    std::unique_ptr<PIO_Metadata> m_entry;
};

class SceneWithEntries : public StandInScene {
public:
    PIO_Metadatas* metadatas() const override { return entries; }

    PIO_Metadatas* entries = nullptr;
};

TEST_F(SceneMetaDataTest, AMissingKeyGivesAPairWithoutAValue)
{
    const auto pair = *OMC::objectIn<MetaDataPair>(handler.get(QStringLiteral("x")).value<OMC::Obj>());
    EXPECT_EQ(pair.getKey(), "x");
    EXPECT_FALSE(pair.getExists());
    EXPECT_EQ(pair.getType(), "NULL");
    EXPECT_FALSE(pair.getValue().isValid());
    EXPECT_EQ(failureOf([&] { pair.getCreator(); }), "Unable to find metadata.");
    EXPECT_EQ(failureOf([&] { pair.getVersion(); }), "Unable to find metadata.");
    EXPECT_EQ(pair.__str__(), "MetaDataPair(Scene, Scene-1, x)");
    EXPECT_EQ(handler.__str__(), "MetadataHandler(Scene, Scene-1)");
}

TEST_F(SceneMetaDataTest, EachKindOfValueIsKeptAndNamed)
{
    const std::pair<QVariant, const char*> rows[] = {
        {true, "BOOL"}, {7, "DOUBLE"}, {1.5, "DOUBLE"}, {QStringLiteral("text"), "TEXT"}};
    for (const auto& [value, type] : rows) {
        changes([&] { pair("a").setValue(value); }, "Set Scene Metadata :a");
        EXPECT_EQ(pair("a").getValue(), value);
        EXPECT_EQ(pair("a").getValue().typeId(), value.typeId());
        EXPECT_EQ(pair("a").getType(), type);
        EXPECT_EQ(pair("a").getCreator(), "brindle");
        EXPECT_EQ(pair("a").getVersion(), "");
    }
    EXPECT_EQ(handler.size(), 1U);
}

TEST_F(SceneMetaDataTest, AValueOfAnotherKindKeepsCreatorAndVersion)
{
    pair("a").setValue(QStringLiteral("text"));
    changes([&] { pair("a").setCreator(QStringLiteral("breakdown")); }, "Set Scene Metadata :a");
    changes([&] { pair("a").setVersion(QStringLiteral("1.2")); }, "Set Scene Metadata :a");
    changes([&] { pair("A").setValue(1.5); }, "Set Scene Metadata :A");
    EXPECT_EQ(pair("a").getType(), "DOUBLE");
    EXPECT_EQ(pair("a").getCreator(), "breakdown");
    EXPECT_EQ(pair("a").getVersion(), "1.2");
    EXPECT_EQ(handler.map(), (QMap<QString, QVariant>{{"A", 1.5}}));
}

TEST_F(SceneMetaDataTest, SeveralEntriesOfANameAreReadAndNotWritten)
{
    addEntry(PIO_Metadata::kInt, "a", "one");
    addEntry(PIO_Metadata::kBool, "A", "two");
    EXPECT_EQ(pair("a").getType(), "MULTIPLE");
    EXPECT_EQ(pair("A").getValue(), (QVariantList{0, false}));
    EXPECT_TRUE(pair("a").getExists());
    EXPECT_EQ(pair("A").getCreator(), "one");
    refuses([&] { pair("a").setValue(1); }, several);
    refuses([&] { pair("a").setCreator("x"); }, several);
    refuses([&] { pair("a").setVersion("x"); }, several);
    refuses([&] { handler.remove("a"); }, several);
}

TEST_F(SceneMetaDataTest, ANullValueRemovesTheEntry)
{
    pair("a").setValue(1);
    changes([&] { handler.remove("a"); }, "Set Scene Metadata :a");
    EXPECT_FALSE(handler.contains(QStringLiteral("a")));
    leaves([&] { handler.remove("x"); });
    leaves([&] { pair("x").setValue(QVariantList{1}); });
}

TEST_F(SceneMetaDataTest, TheNameOfAPresentValueIsRefusedWhereNoEntryCanHaveIt)
{
    refuses([&] { pair("").setValue(1); }, "Failed to create the metadata.");
    EXPECT_FALSE(pair("").getExists());
    EXPECT_EQ(failureOf([&] { pair("").getCreator(); }), "Unable to find metadata.");
    refuses([&] { pair("x").setCreator("me"); }, "Unable to find the original metadata value.");
}

TEST_F(SceneMetaDataTest, ARefusedValueLeavesThePresentOne)
{
    pair("a").setValue(QStringLiteral("text"));
    refuses([&] { pair("a").setValue(std::numeric_limits<double>::quiet_NaN()); }, "Failed to update the metadata.");
}

TEST_F(SceneMetaDataTest, TheListGoesByIndexAndKey)
{
    for (const char* key : {"one", "two", "three"})
        handler.set(QString::fromLatin1(key), QString::fromLatin1(key));
    EXPECT_EQ(handler.size(), 3U);
    EXPECT_EQ(handler.list().size(), 3);
    handler.set(1, 2);
    // An entry of another kind is a new one, behind the others.
    EXPECT_EQ(std::unique_ptr<MetaDataPair>(handler.createMetadataPairAtIdx(2))->getKey(), "two");
    for (const int index : {-1, 3}) {
        EXPECT_EQ(failureOf([&] { handler.createMetadataPairAtIdx(index); }), "Index is out of range.");
        EXPECT_EQ(failureOf([&] { handler.get(index); }), "Index is out of range.");
        refuses([&] { handler.set(index, 1); }, "Index is out of range.");
    }
    EXPECT_TRUE(handler.contains(QStringLiteral("TWO")));
    EXPECT_FALSE(handler.contains(2));

    const OMC::Obj loop = handler.__iter__();
    auto& iterator = *OMC::objectIn<MetaDataHandler>(loop);
    QStringList keys;
    for (; !iterator.__atend__(); ++iterator)
        keys.append(OMC::objectIn<MetaDataPair>(iterator.__iterItem__().value<OMC::Obj>())->getKey());
    EXPECT_EQ(keys, (QStringList{"one", "three", "two"}));
    EXPECT_EQ(failureOf([&] { iterator.__iterItem__(); }), "Index is out of range.");
}

TEST_F(SceneMetaDataTest, ASceneThatIsGoneTakesItsMetadataAlong)
{
    const MetaDataPair gone = pair("a");
    close();
    for (const std::function<void()>& call : std::initializer_list<std::function<void()>>{
             [&] { handler.size(); }, [&] { handler.list(); }, [&] { handler.map(); }, [&] { handler.__str__(); },
             [&] { handler.get("a"); }, [&] { handler.__iter__(); }, [&] { gone.getKey(); }, [&] { gone.getType(); },
             [&] { gone.getExists(); }, [&] { gone.__str__(); }})
        EXPECT_EQ(failureOf(call), objectGone);
    EXPECT_EQ(failureOf([] { MetaDataHandler(static_cast<TUScene*>(nullptr)).size(); }), objectGone);
}

TEST(SceneMetaDataOfAnotherEngineTest, WhatIsMissingIsTold)
{
    RefusingManager manager;
    SceneWithEntries scene;
    MetaDataPair pair(&scene, QStringLiteral("a"));
    EXPECT_EQ(failureOf([&] { pair.setValue(1); }), "An unexpected error has occurred.");
    scene.commands = &manager;
    EXPECT_EQ(pair.getType(), "NULL");
    EXPECT_EQ(MetaDataHandler(&scene).size(), 0U);
    EXPECT_EQ(failureOf([&] { pair.getCreator(); }), "Unable to find metadata.");
    EXPECT_EQ(failureOf([&] { pair.setValue(1); }), "Failed to find metadata information.");
    EXPECT_EQ(failureOf([&] { pair.setCreator("x"); }), "Failed to find metadata information.");

    StandInEntries entries;
    scene.entries = &entries;
    EXPECT_EQ(pair.getType(), "UNSUPPORTED");
    EXPECT_EQ(failureOf([&] { pair.setValue(1); }), "Failed to remove previous metadata.");
    EXPECT_EQ(failureOf([&] { pair.setVersion("x"); }), "Failed to update the metadata -- invalid type supplied.");
    EXPECT_EQ(failureOf([&] { MetaDataPair(&scene, "b").setValue(1); }), "Failed to create the metadata.");
    EXPECT_EQ(manager.openScopes, 0);
    EXPECT_EQ(manager.cancelledScopes, 2);
}

} // namespace
