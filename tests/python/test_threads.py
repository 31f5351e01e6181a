"""Several threads of a plain interpreter: no call is lost, no file is half, the process lives."""

import pytest

import support

# Each program prints what it found wrong, and "done" at the end.
PROGRAMS = {
    "threads that edit while one saves": """
app = brindle.create(folder)
scene = app.scene
TURNS, THREADS = 150, 4
stop = threading.Event()
saves = 0

def edit(number):
    nodes = app.scene.nodes
    peg = nodes.create("PEG", f"T{number}-")
    for turn in range(TURNS):
        peg.attributes["angle"].set_value(turn + 1, float(turn))
        peg.position = [number, turn]
        made = nodes.create("PEG", f"N{number}-{turn}-")
        if turn % 2:
            nodes.remove(made)
        expect(peg.attributes["angle"].value(turn + 1) == float(turn), "a value read back")

def save():
    global saves
    while not stop.is_set():
        app.save()
        saves += 1
        time.sleep(0.002)

saver = threading.Thread(target=guard(save))
saver.start()
run_all(edit, THREADS)
stop.set()
saver.join()
expect(saves > 0, "the saving thread never got its turn")
count = len(scene.nodes)
expect(count == 2 + THREADS * (1 + TURNS // 2), f"{count} nodes")
steps = app.project.history.size_executed
expect(steps == THREADS * (1 + TURNS * 3 + TURNS // 2), f"{steps} steps")
for number in range(THREADS):
    peg = scene.nodes[f"Top/T{number}-"]
    expect(peg.attributes["angle"].column.control_point_size == TURNS, "a key for each turn")
app.save()
files = support.files(folder)
app.project.history.undo(steps)
expect(len(scene.nodes) == 2, "all undone")
app.project.history.redo(steps)
app.save()
expect(support.files(folder) == files, "all done again")
again = brindle.open(folder)
expect(len(again.scene.nodes) == count, "all on disk")
""",
    "threads that edit while templates are pasted": """
app = brindle.create(folder)
scene, clipboard = app.scene, app.clipboard
for index in range(1500):
    scene.nodes.create("PEG", f"Part{index}").attributes["angle"].set_value(index % 60 + 1, 1.0)
parts = len(scene.nodes) - 2
template = os.path.join(os.path.dirname(folder), clipboard.create_template(
    clipboard.copy([node for node in scene.nodes if node.type == "PEG"]), "Parts", os.path.dirname(folder)))
app.project.history.clear()
stop = threading.Event()
ticks = []

def tick():
    while not stop.is_set():
        ticks.append(time.perf_counter())

ticker = threading.Thread(target=guard(tick))
ticker.start()
begin = time.perf_counter()
clipboard.copy_from_template(template)
length = time.perf_counter() - begin
stop.set()
ticker.join()
within = sum(0.25 < (at - begin) / length < 0.75 for at in ticks)
expect(within > 10, f"Python stood still while a template of {parts} nodes was read: {within} of {len(ticks)} ticks")

TURNS = 30

def edit(number):
    for turn in range(TURNS):
        made = scene.nodes.create("PEG", f"N{number}-{turn}-")
        made.attributes["angle"].set_value(turn + 1, 2.0)

def paste(number):
    group = scene.nodes.create("GROUP", f"G{number}")
    for turn in range(2):
        clipboard.paste_template_into_group(template, 1, group)
        expect(len(group.nodes) == parts * (turn + 1), "all parts are there")

threads = [threading.Thread(target=guard(work), args=(number,)) for number in range(2) for work in (edit, paste)]
for thread in threads:
    thread.start()
for thread in threads:
    thread.join()
expect(len(scene.nodes) == 2 + parts + 2 * TURNS + 2 * (1 + 2 * parts), f"{len(scene.nodes)} nodes")
steps = app.project.history.size_executed
expect(steps == 2 * (2 * TURNS + 3), f"{steps} steps")
app.project.history.undo(steps)
expect(len(scene.nodes) == 2 + parts, "all undone")
""",
    "threads that read while one edits": """
app = brindle.create(folder)
nodes = app.scene.nodes
stop = threading.Event()

def read(number):
    while not stop.is_set():
        for node in nodes:
            try:
                if node is not None:
                    node.path, node.position.x, [str(a) for a in node.attributes], node.ports_in[0].source_node
            except brindle.Error as error:
                known = support.GONE, support.NODE_GONE, support.APART, "Port index is out of range."
                expect(str(error) in known, str(error))

readers = [threading.Thread(target=guard(read), args=(i,)) for i in range(3)]
for reader in readers:
    reader.start()
for turn in range(300):
    peg = nodes.create("PEG", "a")
    child = nodes.create("PEG", "b")
    peg.ports_out[0].link(child)
    nodes.remove([peg, child])
    app.project.history.undo(2)
stop.set()
for reader in readers:
    reader.join()
""",
    "threads that open and close projects under one another": """
paths = [f"{folder}-{i}" for i in range(4)]
for path in paths:
    brindle.create(path)

def work(number):
    for turn in range(60):
        try:
            app = brindle.open(paths[(number + turn) % len(paths)], discard=True)
            nodes = list(app.scene.nodes)
            peg = app.scene.nodes.create("PEG", "a")
            peg.attributes["angle"].set_value(1, 2.0)
            app.save()
            if turn % 3 == 0:
                app.close()
            [node.name for node in nodes]
        except brindle.Error as error:
            known = support.GONE, support.NODE_GONE, "Cannot save the project: no project is open."
            expect(str(error) in known, str(error))

run_all(work, 4)
for path in paths:
    brindle.open(path, discard=True).close()
""",
    "threads that drop objects while the project closes": """
def work(number):
    for turn in range(100):
        application = brindle.application()
        try:
            if number == 0:
                brindle.open(folder)
            elif application is not None:
                held = [node.attributes for node in application.scene.nodes]
                del held
        except (brindle.Error, AttributeError) as error:
            expect(str(error) in (support.GONE, support.NODE_GONE) or "None" in str(error), str(error))

app = brindle.create(folder)
for i in range(200):
    app.scene.nodes.create("PEG", "a")
app.save()
run_all(work, 4)
""",
    "threads that save under one another": """
app = brindle.create(folder)

def work(number):
    for turn in range(30):
        app.scene.nodes.create("PEG", f"T{number}-{turn}")
        app.save()

run_all(work, 4)
app.close()
expect(len(brindle.open(folder).scene.nodes) == 2 + 4 * 30, "all on disk")
""",
    "a path that lets other threads run while a call begins": """
app = brindle.create(folder)

class Slow:
    def __init__(self, text): self.text = text
    def __fspath__(self):
        time.sleep(0.001)
        return self.text

def work(number):
    for turn in range(40):
        if number == 0:
            app.save()
        elif number == 1:
            app.save_as(Slow(f"{folder}-{turn}"))
        else:
            app.scene.nodes.create(Slow("PEG"), Slow(f"T{number}-{turn}"))

run_all(work, 4)
app.save()
app.close()
expect(len(brindle.open(f"{folder}-39").scene.nodes) == 2 + 2 * 40, "all on disk")
""",
    "the application lock around a thread's edits": """
app = brindle.create(folder)

def work(number):
    for turn in range(50):
        app.thread_lock()
        try:
            app.scene.nodes.create("PEG", f"T{number}-{turn}")
        finally:
            app.thread_unlock()

run_all(work, 3)
expect(len(app.scene.nodes) == 2 + 3 * 50, "all there")
""",
    "edits beside threads that do nothing but save": """
sys.setswitchinterval(0.005)
app = brindle.create(folder)
nodes = app.scene.nodes
for i in range(1000):
    nodes.create("PEG", "a")
stop = threading.Event()
saves = [0, 0]

def save(number):
    while not stop.is_set():
        app.scene.frame_count = 50 + saves[number] % 2
        app.save()
        saves[number] += 1

savers = [threading.Thread(target=guard(save), args=(i,)) for i in range(2)]
for saver in savers:
    saver.start()
for i in range(50):
    nodes.create("PEG", "b")
    time.sleep(0.001)
stop.set()
for saver in savers:
    saver.join()
expect(len(nodes) == 1052, f"{len(nodes)} nodes")
expect(sum(saves) < 50 * 50, f"{saves} saves went ahead of 50 edits")
""",
    "a thread that opens and closes beside two that save with nothing to write": """
sys.setswitchinterval(0.005)
paths = [f"{folder}-{i}" for i in range(2)]
for path in paths:
    brindle.create(path)
stop = threading.Event()
saves = [0, 0]

def save(number):
    while not stop.is_set():
        application = brindle.application()
        try:
            if application is not None:
                application.save()
                saves[number] += 1
        except brindle.Error as error:
            known = support.GONE, "Cannot save the project: no project is open."
            expect(str(error) in known, str(error))

savers = [threading.Thread(target=guard(save), args=(i,)) for i in range(2)]
for saver in savers:
    saver.start()
ahead = []
for turn in range(40):
    time.sleep(0.002)
    before = sum(saves)
    app = brindle.open(paths[turn % 2])
    ahead.append(sum(saves) - before)
    if turn % 4 == 3:
        app.close()
stop.set()
for saver in savers:
    saver.join()
# Each saver has one turn at most ahead of who asks; the rest is what Python's switching of threads adds.
expect(sorted(ahead)[20] <= 6 and sum(ahead) <= 1000, f"saves ahead of each opening: {ahead}")
""",
    "blocks with the lock beside threads that do nothing but lock": """
sys.setswitchinterval(0.005)
app = brindle.create(folder)
stop = threading.Event()
blocks = [0, 0]

def loop(number):
    while not stop.is_set():
        with app.locked():
            app.scene.name
        blocks[number] += 1

loops = [threading.Thread(target=guard(loop), args=(i,)) for i in range(2)]
for thread in loops:
    thread.start()
ahead = []
for turn in range(40):
    time.sleep(0.002)
    before = sum(blocks)
    with app.locked():
        ahead.append(sum(blocks) - before)
stop.set()
for thread in loops:
    thread.join()
expect(sorted(ahead)[20] <= 6 and sum(ahead) <= 1000, f"blocks ahead of each block: {ahead}")
""",
    "a wait for a block that the person interrupts": """
app = brindle.create(folder)
entered, leaves, order = threading.Event(), threading.Event(), []

def hold():
    with app.locked():
        entered.set()
        leaves.wait()

def follow():
    with app.locked():
        order.append("next")

holder = threading.Thread(target=guard(hold))
holder.start()
entered.wait()
threading.Timer(0.2, signal.pthread_kill, (threading.main_thread().ident, signal.SIGINT)).start()
try:
    with app.locked():
        order.append("entered")
except KeyboardInterrupt:
    order.append("interrupted")
follower = threading.Thread(target=guard(follow))
follower.start()
leaves.set()
holder.join()
follower.join()
with app.locked():
    order.append("again")
expect(order == ["interrupted", "next", "again"], f"{order}")
""",
    "a process that is forked off while a thread is in a block": """
app = brindle.create(folder)
entered, leaves = threading.Event(), threading.Event()

def hold():
    with app.locked():
        entered.set()
        leaves.wait()

holder = threading.Thread(target=guard(hold))
holder.start()
entered.wait()
child = os.fork()
if child == 0:
    with app.locked(), app.locked():
        os._exit(7 if app.scene.name == "Scene-1" else 8)
expect(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 7, "the child entered a block")
leaves.set()
holder.join()
""",
    "threads that open projects when the interpreter ends": """
brindle.create(folder).close()

def work():
    while True:
        brindle.open(folder)

for _ in range(2):
    threading.Thread(target=work, daemon=True).start()
time.sleep(0.05)
""",
    "a thread that is still at work when the interpreter ends": """
app = brindle.create(folder)

def work():
    while True:
        [node.path for node in app.scene.nodes]
        app.save()

threading.Thread(target=work, daemon=True).start()
time.sleep(0.1)
""",
}

FRAME = """
import os, signal, sys, threading, time
import brindle
sys.path.insert(0, sys.argv[2])
import support
sys.setswitchinterval(1e-5)
folder = sys.argv[1]

def expect(holds, what):
    if not holds:
        print(what, flush=True)

def guard(function):
    def run(*arguments):
        try:
            function(*arguments)
        except BaseException as error:
            print(f"{type(error).__name__}: {error}", flush=True)
    return run

def run_all(function, count):
    threads = [threading.Thread(target=guard(function), args=(i,)) for i in range(count)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()

"""


@pytest.mark.parametrize("name", PROGRAMS)
def test_threads_lose_nothing(folder, name):
    script = FRAME + PROGRAMS[name] + "\nprint('done', flush=True)\n"
    done = support.run_python(script, folder, support.ROOT / "tests/python", timeout=300)
    assert (done.returncode, done.stdout, done.stderr) == (0, "done\n", "")
