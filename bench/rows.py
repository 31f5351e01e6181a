"""What the table says: the operations of either side, the floor that stands beside each, the limit and the aim."""

from dataclasses import dataclass

NS = 1e-9
MS = 1e-3


@dataclass(frozen=True)
class Row:
    title: str
    key: str  # of the measurement
    floor: str = ""  # the measurement that it is compared with
    floor_title: str = ""
    items: int = 1  # how many operations the figure is for
    most_ratio: float = 0.0  # the limit, as a multiple of the floor
    most: float = 0.0  # the limit, in seconds
    aim: float = 0.0  # in seconds


@dataclass(frozen=True)
class Count:
    title: str
    key: str
    aim: int  # in instructions of the processor


INSTRUCTIONS = (
    Count("integer property", "read int", 300),
    Count("object property", "read list", 900),
    Count("look-up by path", "look up", 1200),
    Count("attribute by keyword", "attribute by keyword", 1200),
    Count("value at a frame", "value", 400),
    Count("chain scene to value", "chain by keyword", 4000),
    Count("a point of two numbers", "make point", 1000),
    Count("write a property, with its undo entry", "write scene", 1500),
)

PYTHON = (
    Row("read an integer property", "read int", "floor date.year", "date.year", most_ratio=4, aim=80 * NS),
    Row("read a string property", "read str", "floor string", "C API: string", aim=150 * NS),
    Row("read an object property", "read object", "floor new wrapper", "C API: new wrapper", most_ratio=5, aim=180 * NS),
    Row("write a property, with its undo entry", "write property", "floor write", "C API: write"),
    Row("attribute by dotted path", "attribute by path", "floor subscript", "C API: subscript"),
    *(Row(f"find by path among {n:,} nodes", f"find/{n}", f"floor subscript/{n}", "C API: subscript", aim=450 * NS)
      for n in (1_000, 10_000, 100_000)),
    *(Row(f"chain scene to value, {n:,} nodes", f"chain/{n}", f"floor chain/{n}", "C API: chain", most=3000 * NS,
          aim=1200 * NS) for n in (10, 1_000, 10_000, 100_000)),
    Row("set_value, with its undo entry", "set_value", "floor set_value", "C API: set_value", most=4000 * NS,
        aim=2000 * NS),
    Row("the same among 10,000 nodes", "set_value/10000", "floor set_value/10000", "C API: set_value", most=4000 * NS,
        aim=2000 * NS),
    Row("evaluate a curve of 10,000 keys", "evaluate/10000", "floor value/10000", "C API: value", aim=300 * NS),
    Row("evaluate an expression of two columns", "evaluate expression", "floor method call", "C API: method call",
        aim=1000 * NS),
    Row("the exposure at a frame", "exposure", aim=400 * NS),
    Row("set one, with its undo entry", "expose", aim=2000 * NS),
    Row("1,000 frames of exposures by one slice", "exposure slice", aim=300_000 * NS),
    Row("a sheet of 100 columns, 1,000 exposures each: save", "sheet save", aim=60 * MS),
    Row("open it", "sheet open", aim=80 * MS),
    Row("iterate 10,000 nodes by name, a node", "iterate/10000", "floor iterate/10000", "C API: wrapper, string",
        aim=400 * NS),
    Row("an element of 10,000 drawings: by name", "drawing by name", aim=500 * NS),
    Row("list its drawings", "drawings list", aim=15 * MS),
    Row("create its drawings in one call", "drawings create", aim=60 * MS),
    Row("undo that", "drawings undo", aim=8 * MS),
    Row("save it after one change", "drawings save", aim=60 * MS),
    Row("open it", "drawings open", aim=80 * MS),
    Row("a layer of 10,000 strokes of four curves: one by one", "strokes one by one", aim=150 * MS),
    Row("undo that", "strokes undo", aim=15 * MS),
    Row("make it by one description", "strokes described", aim=60 * MS),
    Row("its topology", "strokes topology", aim=60 * MS),
    Row("iterate its strokes with bounding boxes, a stroke", "strokes with boxes", aim=800 * NS),
    Row("a stroke's colour in a drawing of 100 strokes, with its undo entry", "stroke colour", aim=6000 * NS),
    Row("save the drawing of 10,000 strokes", "drawing save", aim=30 * MS),
    Row("open it", "drawing open", aim=40 * MS),
    Row("1,000 drawings of 200 strokes: open the project", "drawings of strokes open", aim=150 * MS),
    Row("save it after one change", "drawings of strokes save", aim=15 * MS),
    Row("value of a bezier column at a frame", "evaluate bezier", "floor value/10000", "C API: value", aim=180 * NS),
    Row("value of an ease column at a frame", "evaluate ease", "floor value/10000", "C API: value", aim=180 * NS),
    Row("value of a velocity column at a frame", "evaluate velocity", "floor value/10000", "C API: value"),
    Row("a coordinate of a 3D path at a frame", "evaluate path", "floor value/10000", "C API: value", aim=300 * NS),
    Row("an angle of a rotation path at a frame", "evaluate rotation", "floor value/10000", "C API: value",
        aim=300 * NS),
    Row("a node of 10,000 by its index", "node by index", "floor new wrapper", "C API: new wrapper", aim=200 * NS),
    Row("whether a node is among 10,000", "node in nodes", aim=200 * NS),
    Row("how many there are", "length of nodes", "floor method call", "C API: method call", aim=100 * NS),
    Row("one of 10,000 metadata by name", "metadata by name", aim=600 * NS),
    Row("one of 10,000 entries of the history", "history by index", "floor string", "C API: string", aim=150 * NS),
    Row("find a column by name among 10,000", "column by name", "floor subscript", "C API: subscript", aim=400 * NS),
    Row("create 10,000 columns", "columns create", aim=60 * MS),
    Row("undo of those", "columns undo"),
    Row("a palette of 10,000 colours: by id", "palette by id", aim=500 * NS),
    Row("the last of its colours by name", "palette by name", most=50_000 * NS),
    Row("iterate its colours by name, a colour", "palette iterate", aim=400 * NS),
    Row("create its colours in one bracket", "palette create", aim=100 * MS),
    Row("undo that", "palette undo", aim=15 * MS),
    Row("save it after one change", "palette save", "floor palette save", "write, fsync", aim=10 * MS),
    Row("load it", "palette load", aim=15 * MS),
    Row("a colour's channel, with its undo entry", "palette channel", aim=3000 * NS),
    Row("a frame of 1920 x 1080: 200 nodes with shapes that turn, one thread", "picture turning shapes", aim=60 * MS),
    Row("the same written as a PNG of 8 bits, two threads, on the clock", "picture files", aim=120 * MS),
    Row("as one of 16 bits", "picture deep files", aim=120 * MS),
    Row("as one of 16 bits by the callback, which one thread calls", "picture files by callback"),
    Row("500 lines of changing thickness that turn", "picture turning lines", aim=80 * MS),
    Row("the same with a gradient along each line", "picture turning gradients"),
    Row("a held drawing under a moving peg", "picture held drawing", aim=8 * MS),
    Row("the same where nothing moves", "picture nothing moves", aim=1 * MS),
    Row("multiply a matrix by another", "matrix multiply", "floor method call", "C API: method call", most=500 * NS),
    Row("make a point of two numbers", "make point", "floor new wrapper", "C API: new wrapper"),
    Row("make a point of a list", "read point", "floor new wrapper", "C API: new wrapper"),
    Row("copy a point by copy.copy", "copy point", "floor new wrapper", "C API: new wrapper"),
    Row("evaluate a cubic curve", "evaluate curve", "floor new wrapper", "C API: new wrapper", aim=200 * NS),
    Row("nearest point of a cubic curve", "nearest point", "floor method call", "C API: method call"),
    Row("make a curve of four lists", "read curve", "floor new wrapper", "C API: new wrapper"),
    Row("fit a path to 1,000 points", "fit/1000", items=1_000, most=0.01),
    Row("create and link 10,000 nodes", "create/10000", "floor create/10000", "Python: new objects", items=10_000,
        most=0.5, aim=0.2),
    Row("undo of those", "undo create/10000", "floor undo create/10000", "Python: dict.popitem", items=10_000,
        most=0.02, aim=0.01),
    Row("write 10,000 values, one undo entry", "write/10000", "floor write/10000", "Python: __slots__", items=10_000,
        aim=0.02),
    Row("undo of those", "undo write/10000", "floor undo write/10000", "Python: __slots__", items=10_000, most=0.02,
        aim=0.01),
    Row("10,000 keys one by one", "keys one by one/10000", "floor keys one by one/10000", "Python: sorted list",
        items=10_000, most=0.05, aim=0.02),
    Row("undo of those", "undo keys/10000", "floor undo keys/10000", "Python: dict", items=10_000, most=0.02, aim=0.01),
    Row("10,000 keys in one call", "keys in one call/10000", "floor keys in one call/10000", "C API: new wrappers",
        items=10_000, most=0.004, aim=0.002),
    Row("save 10,000 nodes", "save/10000", "floor save/10000", "Python: write, fsync", items=10_000, aim=0.05),
    Row("open 10,000 nodes", "open/10000", "floor open/10000", "Python: json.loads", items=10_000, most=0.5, aim=0.15),
    Row("save 10,000 nodes with a key each", "save keyed/10000", "floor save keyed/10000", "Python: write, fsync",
        items=10_000, aim=0.05),
    Row("open 10,000 nodes with a key each", "open keyed/10000", "floor open keyed/10000", "Python: json.loads",
        items=10_000, most=0.5, aim=0.08),
    Row("call a function of Javascript", "call javascript", aim=1000 * NS),
    Row("1,000 numbers into Javascript", "list into javascript", aim=300_000 * NS),
    Row("1,000 numbers out of Javascript", "list out of javascript", aim=500_000 * NS),
    Row("read a node's name in Javascript", "property in javascript", aim=1000 * NS),
    Row("first use of Javascript", "first javascript", aim=20 * MS),
    Row("python3 -c 'import brindle'", "import", "floor import", "python3 -c pass", most=0.15, aim=0.08),
)

PYTHON_FLOORS = (
    ("Python: __slots__", "floor __slots__"),
    ("Python: date.year", "floor date.year"),
    ("Python: property in Python", "floor property"),
    ("Python: __getattr__ in Python", "floor __getattr__"),
    ("C API: integer", "floor integer"),
    ("C API: string", "floor string"),
    ("C API: new wrapper", "floor new wrapper"),
    ("C API: method call", "floor method call"),
)

NATIVE = (
    Row("integer property by getAttr", "readIntByName", "floorReadByName", "Qt: by name"),
    Row("integer property, remembered", "readIntRemembered", "floorReadRemembered", "Qt: remembered"),
    Row("string property by getAttr", "readTextByName", "floorReadByName", "Qt: by name"),
    Row("string property, remembered", "readTextRemembered", "floorReadText", "Qt: remembered string"),
    Row("object property by getAttr", "readObjectByName", "floorReadCarried", "Qt: object by copy"),
    Row("object property, remembered", "readObjectRemembered", "floorReadCarried", "Qt: object by copy"),
    Row("write a property, with its undo entry", "writeIntWithUndo", "floorUndoCommand", "Qt: QUndoStack"),
    Row("make a node's wrapper", "makeNodeWrapper", "floorNewQObject", "Qt: new QObject"),
    Row("make an attribute's wrapper", "makeAttributeWrapper", "floorNewQObject", "Qt: new QObject"),
    Row("make an attribute list", "makeListWrapper", "floorNewQObject", "Qt: new QObject"),
    Row("move an Obj there and back", "moveObj", "floorNewQObject", "Qt: new QObject"),
    Row("copy an Obj with its object", "copyObj", "floorVariantOfCarried", "Qt: QVariant by copy"),
    Row("set_value, with its undo entry", "setValueWithUndo", "floorUndoCommand", "Qt: QUndoStack"),
    Row("check the thread, on the main thread", "checkOnMainThread", most=10 * NS),
    Row("check the thread, with the lock", "checkUnderTheLock"),
    Row("lock and unlock, on a thread", "lockAndUnlock", most=2000 * NS),
    Row("a function on an idle main thread", "runOnIdleMain/iterations:3", most=110 * MS),
    Row("save 100 scenes of 100 nodes", "saveScenes/10000", items=10_000, most=2.0),
    Row("open 100 scenes of 100 nodes", "openScenes/10000", items=10_000, most=0.5, aim=0.15),
    Row("copy 1,000 nodes of 10 keys each", "copyNodes/1000", aim=10 * MS),
    Row("paste them as new nodes", "pasteNodes/1000", aim=60 * MS),
    Row("undo that", "undoPaste/1000", aim=8 * MS),
    Row("save a template of them", "saveTemplate/1000", aim=60 * MS),
    Row("load it", "loadTemplate/1000", aim=80 * MS),
    Row("contours and joints of a layer of 10,000 strokes", "topologyOfLayer/10000", most=60 * MS),
    Row("the same once more", "topologyOfLayerAgain/10000"),
    Row("box of a stroke with its thickness and tips", "visibleBoxOfStroke"),
    Row("outline of a stroke of four curves and keys, to 0.1", "outlineOfStroke"),
    Row("cut 2,000 strokes where they cross", "cutTangle/2000"),
    Row("undo a bracket of 100,000 changes", "undoBracket/100000", "floorUndoMacro/100000", "Qt: QUndoStack",
        items=100_000, most=0.2, aim=0.05),
    Row("redo a bracket of 100,000 changes", "redoBracket/100000", "floorRedoMacro/100000", "Qt: QUndoStack",
        items=100_000, most=0.2, aim=0.05),
    Row("transformation of the last of 1,000 chained pegs", "transformationOfChain", most=500e-6),
    Row("the same once more", "transformationOfChainAgain", most=2000 * NS),
    Row("the same as a matrix of a script", "matrixOfPegAgain", most=2000 * NS),
    Row("transformations of 1,000 pegs in 100 trees", "transformationsOfTrees", most=2 * MS),
    Row("10,000 dynamic attributes made", "makeDynamicAttributes/10000", items=10_000, most=0.1),
    Row("undo of those", "undoDynamicAttributes/10000", items=10_000, most=0.01),
    Row("read a point from two numbers", "readPointStrictly", "floorTwoNumbers", "Qt: two list items", most=100 * NS),
    Row("the same leniently", "readPointLeniently", "floorTwoNumbers", "Qt: two list items", most=100 * NS),
    Row("make a Point2d of them", "makePointOfList", "floorNewQObject", "Qt: new QObject", most=100 * NS),
    Row("read a point from a vector", "readPointOfObject", "floorTwoNumbers", "Qt: two list items"),
    Row("read a colour from four numbers", "readColourOfList", "floorTwoNumbers", "Qt: two list items"),
    Row("product of two matrices", "multiplyHostMatrices", "floorMultiplyImath", "Imath: M44d product"),
    Row("multiply a matrix by another", "multiplyMatrices", "floorMultiplyImath", "Imath: M44d product"),
    Row("read a matrix from 16 numbers", "readMatrixFromNumbers", "floorMultiplyImath", "Imath: M44d product"),
    Row("evaluate a cubic curve", "evaluateCubic", "floorEvaluateCubic", "lib2geom: the same", most_ratio=2),
    Row("nearest place of a cubic curve", "nearestOfCubic", "floorNearestOfCubic", "lib2geom: the same"),
    Row("intersect two cubic curves", "intersectCubics", "floorIntersectCubics", "lib2geom: clipping"),
    Row("length of a cubic curve", "lengthOfCubic", "floorLengthOfCubic", "lib2geom: to 1e-8"),
    Row("box of a cubic curve", "boxOfCubic", "floorBoxOfCubic", "lib2geom: the same"),
    Row("fit a path to 1,000 points", "fitPoints/1000", "floorFitPoints/1000", "lib2geom: the same", most=10 * MS),
    Row("a picture of 1920 x 1080: 200 shapes of 8 curves", "pictureShapes", "floorShapes", "Qt's painter", aim=60 * MS),
    Row("a layer of 1,000 faces without a seam", "picturePartition", aim=60 * MS),
    Row("500 lines of 96 pieces each", "pictureLines", aim=80 * MS),
    Row("the picture over another one", "pictureBlend/0", aim=15 * MS),
    Row("multiplied with it", "pictureBlend/1", aim=20 * MS),
    Row("a blur of radius 8", "pictureBlur", aim=150 * MS),
    Row("its pixels as 8 bits", "pictureToBytes", aim=15 * MS),
    Row("a PNG of it", "picturePng", aim=130 * MS),
    Row("an EXR of halves of it", "pictureExr", aim=250 * MS),
)

NATIVE_FLOORS = (
    ("Qt: property, remembered", "floorReadRemembered"),
    ("Qt: property by name", "floorReadByName"),
    ("Qt: indexOfProperty, first of 34", "floorIndexOfFirst"),
    ("Qt: indexOfProperty, last of 34", "floorIndexOfLast"),
    ("Qt: raw metacall", "floorMetacall"),
    ("Qt: pointer property", "floorReadPointer"),
    ("Qt: object property by copy", "floorReadCarried"),
    ("Qt: QVariant from an object by copy", "floorVariantOfCarried"),
    ("Qt: new QObject", "floorNewQObject"),
    ("Qt: two items of a list", "floorTwoNumbers"),
    ("Imath: M44d product", "floorMultiplyImath"),
)

SIZES = (1_000, 10_000, 100_000)

# Nanoseconds an item, by size: flat rows mean a cost that grows linearly, or not at all for what handles one item.
PYTHON_SCALING = (
    ("find by path", "find"),
    ("chain scene to value", "chain"),
    ("set_value", "set_value"),
    ("evaluate a curve of N keys", "evaluate"),
    ("iterate by name, a node", "iterate"),
    ("create and link, a node", "create"),
    ("undo of those, a node", "undo create"),
    ("write values, a value", "write"),
    ("undo of those, a value", "undo write"),
    ("keys one by one, a key", "keys one by one"),
    ("keys in one call, a key", "keys in one call"),
    ("undo of keys, a key", "undo keys"),
    ("save, a node", "save"),
    ("open, a node", "open"),
)

NATIVE_SCALING = (
    ("find by path", "nodeByPath"),
    ("chain scene to value", "chainToValue"),
    ("evaluate a curve of N keys", "evaluateCurve"),
    ("iterate by name, a node", "iterateNames"),
    ("create and link, a node", "createAndLink"),
    ("undo of those, a node", "undoCreation"),
    ("keys one by one, a key", "setKeys"),
    ("undo of keys, a key", "undoKeys"),
    ("save, a node", "saveProject"),
    ("open, a node", "openProject"),
    ("save 10 to 1,000 scenes, a node", "saveScenes"),
    ("open 10 to 1,000 scenes, a node", "openScenes"),
    ("undo a bracket, a change", "undoBracket"),
    ("redo a bracket, a change", "redoBracket"),
)

# The weight of one entry in an undo list of so many entries, in bytes: the benchmarks' counter "bytes".
NATIVE_MEMORY = (
    ("a node was moved", "historyOfMoves"),
    ("a key's value was set", "historyOfKeys"),
)

# Benchmarks that wait for the disk or for another thread, and benchmarks that handle all items of their size at once.
NATIVE_ON_DISK = {"saveProject", "openProject", "saveScenes", "openScenes"}
NATIVE_ON_THE_CLOCK = NATIVE_ON_DISK | {"lockAndUnlock", "runOnIdleMain"}
NATIVE_PER_ITEM = NATIVE_ON_DISK | {"iterateNames", "createAndLink", "undoCreation", "setKeys", "undoKeys",
                                   "undoBracket", "redoBracket", "floorUndoMacro", "floorRedoMacro",
                                   "makeDynamicAttributes", "undoDynamicAttributes"}
