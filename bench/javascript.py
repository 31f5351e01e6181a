"""What Javascript costs a script of Python: calls, values both ways, and a property of a node that a script reads."""

import subprocess
import sys

STATEMENTS = {
    "call javascript": ("add.call(pair)", 1),
    "list into javascript": ("take.call([numbers])", 1),
    "list out of javascript": ("array.list()", 1),
    "property in javascript": ("loop.call([node, 1000])", 1000),
}

FIRST_ENGINE = """
import time, tempfile, brindle
with tempfile.TemporaryDirectory() as folder, brindle.create(folder + "/p") as app:
    start = time.perf_counter()
    app.javascript.eval("1")
    print(time.perf_counter() - start)
"""


def names(app):
    evaluate = app.javascript.eval
    return dict(add=evaluate("(function(a, b) { return a + b })"), pair=[1, 2],
                take=evaluate("(function(a) { return a.length })"), numbers=[float(i) for i in range(1000)],
                array=evaluate("(function() { var a = []; for (var i = 0; i < 1000; ++i) a.push(i + 0.5); return a })()"),
                loop=evaluate("(function(n, k) { var s = 0; for (var i = 0; i < k; ++i) s += n.name.length; return s })"),
                node=app.scene.nodes["Top/Arm"])


def first_engine(samples, repetitions=5):
    for _ in range(repetitions):
        done = subprocess.run([sys.executable, "-c", FIRST_ENGINE], capture_output=True, text=True, check=True)
        samples.add("first javascript", float(done.stdout))
