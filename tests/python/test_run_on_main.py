"""Functions that a thread of a batch script has the main thread call."""

import pytest

from test_batch_threads import LOCKED_OUT, batch  # noqa: F401

NO_FUNCTION = "Expected a Python Function."


def test_the_main_thread_calls_it_while_the_thread_waits(batch):
    assert batch("""
def work():
    seen = []
    app.run_on_main(lambda: seen.append(threading.current_thread() is main), True)
    return seen
print(on_thread(work))
""") == (0, "[True]\n", "")


def test_on_the_main_thread_it_is_called_at_once(batch):
    assert batch("""
seen = []
app.run_on_main(lambda: seen.append(1))
app.run_on_main(lambda: seen.append(2), False)
app.run_on_main(wait=False, function=lambda: seen.append(3))
print(seen, app.run_on_main(lambda: 7))
""") == (0, "[1, 2, 3] None\n", "")


def test_without_waiting_the_thread_goes_on(batch):
    assert batch("""
seen = []
thread = threading.Thread(target=lambda: app.run_on_main(lambda: seen.append(1), False))
thread.start()
thread.join()
print(seen)
app.process_one_event()
print(seen)
""") == (0, "[]\n[1]\n", "")


def test_of_two_jobs_ahead_of_the_main_thread_the_first_runs_only(batch):
    assert batch("""
seen = []
def work():
    app.run_on_main(lambda: seen.append(1), False)
    app.run_on_main(lambda: seen.append(2), False)
thread = threading.Thread(target=work)
thread.start()
thread.join()
app.process_one_event()
app.process_one_event()
print(seen)
""") == (0, "[1]\n", "")


def test_the_function_needs_no_lock(batch):
    assert batch("""
def work():
    app.run_on_main(lambda: app.scene.nodes.create("PEG", "a"), True)
    return failure(lambda: app.scene.name)
print(on_thread(work), len(app.scene.nodes))
""") == (0, f"{LOCKED_OUT} 3\n", "")


@pytest.mark.parametrize("value", ["None", "3", "'print'", "[print]", "app", "app.scene"])
def test_what_is_no_function_is_refused(batch, value):
    assert batch(f"""
value = {value}
print(failure(app.run_on_main, value), on_thread(failure, lambda: app.run_on_main(value, False)), sep="\\n")
""") == (0, f"{NO_FUNCTION}\n" * 2, "")


def test_an_exception_comes_back_to_the_thread_that_waits(batch):
    assert batch("""
import traceback
error = ValueError("odd")
def fail():
    raise error
def work(wait):
    try:
        app.run_on_main(fail, wait)
    except ValueError as caught:
        return caught is error, traceback.extract_tb(caught.__traceback__)[-1].name
print(on_thread(work, True), work(True), work(False))
app.run_on_main(lambda: print("goes on"))
""") == (0, "(True, 'fail') (True, 'fail') (True, 'fail')\ngoes on\n", "")


def test_an_exception_that_nobody_waits_for_is_an_error_in_the_log(batch):
    code, out, error = batch("""
def fail():
    raise ValueError("odd")
on_thread(app.run_on_main, fail, False)
app.process_one_event()
""")
    assert (code, out) == (0, "")
    assert error.splitlines()[0] == "Error: ValueError: odd" and "in fail (" in error.splitlines()[1]


def test_an_exit_on_the_main_thread_is_the_waiting_threads(batch):
    assert batch("""
def work():
    app.run_on_main(lambda: sys.exit(3), True)
thread = threading.Thread(target=work)
thread.start()
while thread.is_alive(): app.process_one_event()
print("main goes on")
sys.exit(4)
""") == (4, "main goes on\n", "")


def test_a_function_may_have_the_main_thread_call_another(batch):
    assert batch("""
seen = []
def outer():
    app.run_on_main(lambda: seen.append("inner"), True)
    seen.append("outer")
on_thread(app.run_on_main, outer, True)
app.process_one_event()
print(seen)
""") == (0, "['inner', 'outer']\n", "")


def test_many_threads_have_functions_called(batch):
    code, out, error = batch("""
calls = []
def work():
    for turn in range(5):
        app.run_on_main(lambda: calls.append(threading.current_thread() is main), True)
threads = [threading.Thread(target=work) for _ in range(6)]
for thread in threads: thread.start()
while any(thread.is_alive() for thread in threads): app.process_one_event()
print(all(calls), 0 < len(calls) <= 30)
""")
    # Jobs that are posted at one count run once: some of them are skipped.
    assert (code, out, error) == (0, "True True\n", "")


def test_the_undo_list_sees_what_the_function_did(batch):
    assert batch("""
on_thread(app.run_on_main, lambda: setattr(app.scene.nodes["Top/Display"].position, "x", 7), True)
print(app.project.history.list())
app.project.history.undo(1)
print(app.scene.nodes["Top/Display"].position.x)
""") == (0, "['Set X position of Display']\n0\n", "")


# Results that have no form outside Python, and results whose conversion would run script code.
UNCONVERTED = ["{1}", "b'x'", "object()", "2**70", "{1: 2}", "[object()]", "'\\ud800'", "range(2**40)",
               "type('Odd', (), {'__index__': lambda self: 1 / 0, '__bool__': lambda self: 1 / 0})()"]


@pytest.mark.parametrize("result", UNCONVERTED)
def test_a_result_that_is_dropped_needs_no_form(batch, result):
    assert batch(f"""
def give(): return {result}
print(failure(app.run_function, give), failure(app.run_on_main, give), failure(app.run_on_main, give, False))
print(on_thread(failure, app.run_function, give), on_thread(failure, app.run_on_main, give, True),
      on_thread(failure, app.run_on_main, give, False))
app.process_one_event()
print(on_thread(failure, lambda: app.scene.name))
""") == (0, "no failure no failure no failure\n" * 2 + f"{LOCKED_OUT}\n", "")


def test_a_function_that_closes_the_project_leaves_no_lock_taken(batch):
    assert batch("""
print(on_thread(failure, app.run_function, app.close))
app = brindle.create(sys.argv[0] + ".other")
print(on_thread(failure, lambda: app.scene.name))
on_thread(app.run_function, lambda: print(app.scene.name))
""") == (0, f"no failure\n{LOCKED_OUT}\nScene-1\n", "")


def test_a_function_may_be_replaced_while_it_is_posted(batch):
    assert batch("""
sys.setswitchinterval(1e-5)
class Call:
    def __call__(self): pass
function = brindle.PythonFunction(Call())
ends = time.monotonic() + 1.5
def post():
    while time.monotonic() < ends:
        app.run_on_main(function, False)
def change():
    while time.monotonic() < ends:
        function.set(Call())
threads = [threading.Thread(target=target) for target in (post, post, change)]
for thread in threads: thread.start()
while any(thread.is_alive() for thread in threads): app.process_one_event()
print("done")
""") == (0, "done\n", "")
