#include "engine/curves/columnkinds.h"

#include "core/host/sc_scene.h"
#include "engine/curves/columnlist.h"
#include "engine/curves/frameshift.h"
#include "engine/curves/hostcolumn.h"
#include "engine/folder/columntext.h"
#include "engine/folder/jsonplace.h"
#include "engine/folder/jsonwriter.h"
#include "engine/folder/scenefile.h"
#include "tests/engine/support/columnproject.h"

#include <map>

namespace {

using brindle::engine::AttributeMeta;
using brindle::engine::Column;
using brindle::engine::ColumnKind;
using brindle::engine::columnKinds;
using brindle::engine::ColumnList;
using brindle::engine::FolderFailure;
using brindle::engine::FramePaste;
using brindle::engine::FrameShift;
using brindle::engine::HostColumn;
using brindle::engine::JsonFile;
using brindle::engine::JsonPlace;
using brindle::engine::JsonWriter;
using brindle::engine::makeColumn;
using brindle::engine::numberColumnKind;
using brindle::engine::NumberValues;
using brindle::engine::readColumn;
using brindle::engine::sceneText;

/// A kind without numbers and without keys: a name a frame, as drawings have.
class NameColumn final : public HostColumn<TUTimedValue> {
public:
    explicit NameColumn(const QString& name, bool anonymous = false);

    void getValueForXsheet(double frame, int, QString* text, bool&, bool&, bool&, bool&) const override
    {
        const auto cell = names.find(static_cast<int>(frame));
        *text = cell == names.end() ? QString() : cell->second;
    }
    int setValuesFromXsheet(double, int, const QString&, int) override { return 1; }
    void scale(double, int, CO_Command** command) override { *command = nullptr; }
    bool takesValues() const override { return true; }
    CO_Command* spliceCommand(double, bool) override { return nullptr; }
    std::unique_ptr<TUCellMemo> remember(double) override { return nullptr; }

    bool fits(const AttributeMeta&) const override { return false; }
    NumberValues* numbers() override { return nullptr; }
    std::unique_ptr<CO_Command> shiftFramesCommand(const FrameShift&) override { return nullptr; }
    std::unique_ptr<CO_Command> clearFramesCommand(int, int) override { return nullptr; }
    std::unique_ptr<CO_Command> pasteCommand(const Column&, const FramePaste&) override { return nullptr; }
    void keepFrames(int, int) override {}
    std::unique_ptr<Column> copy(const QString& name, bool anonymous) const override
    {
        auto made = std::make_unique<NameColumn>(name, anonymous);
        made->names = names;
        return made;
    }
    void write(JsonWriter& json) const override
    {
        json.key("names").beginArray();
        for (const auto& [frame, name] : names) {
            json.beginArray(JsonWriter::Inline);
            json.integer(frame);
            json.text(name);
            json.endArray();
        }
        json.endArray();
    }
    void read(const JsonPlace& place) override
    {
        const JsonPlace cells = place.field("names");
        for (int i = 0; i < cells.size(); ++i)
            names[cells.item(i).item(0).integer(1, 1000)] = cells.item(i).item(1).text();
    }

    std::map<int, QString> names;
};

constexpr const char* nameFields[] = {"names"};
constexpr ColumnKind nameKind{TUTimedValue::kTiming, "NAMES", nameFields, &makeColumn<NameColumn>};

NameColumn::NameColumn(const QString& name, bool anonymous) : HostColumn(nameKind, name, anonymous) {}

class ColumnKindsTest : public ColumnTest {
protected:
    static QByteArray textOf(const Column& column)
    {
        JsonWriter json;
        json.beginObject();
        column.write(json);
        json.endObject();
        return json.result();
    }

    NameColumn* addNames()
    {
        auto* column = new NameColumn("names");
        column->names = {{1, "a"}, {7, "b"}};
        EXPECT_TRUE(run(new SC_SceneCmds::AddTimedValueCmd(scene().sceneCommon(), column, -1, -1)));
        return column;
    }
};

TEST_F(ColumnKindsTest, EachKindMakesColumnsThatSayWhatTheyAre)
{
    std::set<QString> words;
    std::set<int> types;
    for (const ColumnKind* kind : columnKinds()) {
        const auto column = kind->make("made", true);
        EXPECT_EQ(&column->kind(), kind);
        EXPECT_EQ(column->timedValue().type(), kind->type);
        EXPECT_EQ(column->name(), "made");
        EXPECT_TRUE(column->anonymous());
        EXPECT_TRUE(words.insert(kind->word).second) << kind->word;
        EXPECT_TRUE(types.insert(kind->type).second) << kind->word;
    }
}

TEST_F(ColumnKindsTest, EachKindWritesTheFieldsThatItNamesAndReadsThem)
{
    for (const ColumnKind* kind : columnKinds()) {
        const auto column = kind->make("made", false);
        const QByteArray text = textOf(*column);
        const JsonFile file("made.json", text);
        file.root().requireOnly({}, kind->fields);
        const auto again = kind->make("again", false);
        again->read(file.root());
        EXPECT_EQ(textOf(*again), text);
        EXPECT_EQ(textOf(*column->copy("copy", false)), text);
    }
}

TEST_F(ColumnKindsTest, AnAttributeWithANumberIsGivenAKindOfNumbers)
{
    const auto column = numberColumnKind().make("made", true);
    ASSERT_TRUE(column->numbers());
    double value = 0;
    EXPECT_FALSE(column->numbers()->valueAt(1, value)) << "there is no key yet";
    EXPECT_TRUE(column->numbers()->setValueAt(1, 2.5, false));
    EXPECT_TRUE(column->numbers()->valueAt(1, value));
    EXPECT_EQ(value, 2.5);
}

TEST_F(ColumnKindsTest, AColumnOfAnotherKindIsSavedAsItsKindSays)
{
    addNames();
    const QByteArray text = sceneText(scene());
    const QByteArray wanted = R"(
    {
      "name": "names",
      "type": "NAMES",
      "names": [
        [1, "a"],
        [7, "b"]
      ]
    })";
    EXPECT_NE(text.indexOf(wanted), -1) << text.toStdString();
}

TEST_F(ColumnKindsTest, AColumnOfAnotherKindIsInTheSceneAsOthersAre)
{
    const NameColumn* column = addNames();
    EXPECT_EQ(column->type(), TUTimedValue::kTiming);
    EXPECT_EQ(scene().findTimedValue("names", 0), column);
    EXPECT_EQ(column->getNumLinks(), 0u);
    AT_Attr& angle = *attribute(add("PEG", "Arm"), "angle");
    EXPECT_FALSE(drive(angle, const_cast<NameColumn*>(column))) << "an angle is no name";
    EXPECT_TRUE(column->copy("copy", false)->kind().type == TUTimedValue::kTiming);
}

TEST_F(ColumnKindsTest, AFileOfAKindThatIsUnknownIsRefusedWithItsPlace)
{
    const JsonFile file("scene.json", "{\"name\": \"c\", \"type\": \"NAMES\"}");
    ColumnList columns(*scene().sceneCommon());
    try {
        readColumn(file.root(), columns);
        FAIL() << "it was read";
    } catch (const FolderFailure& failure) {
        QStringList words;
        for (const ColumnKind* kind : columnKinds())
            words.append('"' + QString(kind->word) + '"');
        EXPECT_TRUE(failure.reason.contains("type is not " + words.join(" or "))) << failure.reason.toStdString();
    }
}

} // namespace
