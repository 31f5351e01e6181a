"""The console of an application's window: statements line by line, completion, and where prints go.

The application makes the one Console and talks to it; scripts have no use for it.
"""

import ast
import code
import codeop
import io
import os
import sys

import brindle
from brindle import _completion

DONE, INCOMPLETE, LEAVE = range(3)


class _Output(io.TextIOBase):
    """A stream whose text goes to the application, from any thread."""

    encoding = "utf-8"
    errors = "backslashreplace"

    def __init__(self, name, write):
        self.name = name
        self._write = write

    def writable(self):
        return True

    def write(self, text):
        if not isinstance(text, str):
            raise TypeError(f"write() argument must be str, not {type(text).__name__}")
        self._write(text.encode("utf-8", "backslashreplace").decode())
        return len(text)

    def close(self):
        """It stays open: the application has no other place for what is printed."""


class _Input(io.TextIOBase):
    """Nobody can type into a script that runs: every read meets the end."""

    name = "<stdin>"

    def readable(self):
        return True

    def readline(self, size=-1):
        return ""

    def read(self, size=-1):
        return ""

    def close(self):
        """exit() closes it, though the person may decide to stay."""


class Console(code.InteractiveConsole):
    """Runs what is typed among the names of the main module. Each step gives DONE, INCOMPLETE or LEAVE."""

    def __init__(self, write_output, write_error):
        super().__init__(sys.modules["__main__"].__dict__, "<console>")
        self.exit_code = 0
        self._failed = False
        self.locals["brindle"] = brindle
        self.locals["app"] = brindle.application()
        sys.stdin = _Input()
        sys.stdout = _Output("<stdout>", write_output)
        sys.stderr = _Output("<stderr>", write_error)

    def push_line(self, line):
        return self._step(self.push, line)

    def push_block(self, text):
        return self._step(self._push_block, text)

    def run_file(self, path, arguments):
        return self._step(self._run_file, path, arguments)

    def discard(self):
        self.resetbuffer()
        return DONE

    def completions(self, line):
        """Where the word, or the key, at the line's end begins, as the application counts, and what it may become."""
        start, found = _completion.completions(self.locals, self.buffer, line)
        return len(line[:start].encode("utf-16-le", "surrogatepass")) // 2, found

    def runsource(self, source, filename="<console>", symbol="single"):
        try:
            statement = self.compile(source, filename, symbol)
        except (SyntaxError, ValueError, OverflowError):
            self._show_refused(source, filename, symbol)
            return False
        if statement is None:
            return True
        self.runcode(statement)
        return False

    def showtraceback(self):
        self._failed = True
        super().showtraceback()

    def _step(self, step, *arguments):
        try:
            return INCOMPLETE if step(*arguments) else DONE
        except SystemExit as end:
            self._note_exit(end.code)
            self.resetbuffer()
            return LEAVE
        except BaseException:
            # An interrupt may come between two statements as well.
            self.showtraceback()
            self.resetbuffer()
            return DONE

    def _note_exit(self, status):
        if status is None:
            self.exit_code = 0
        elif isinstance(status, int):
            self.exit_code = status & 0xFF
        else:
            self.exit_code = 1
            print(status, file=sys.stderr)

    def _show_refused(self, source, filename, symbol):
        """Says what is wrong with a source in the words of the compiler that takes it as a whole, where that refuses it
        too; the one that takes it line by line calls much "incomplete"."""
        try:
            compile(source + "\n", filename, symbol, dont_inherit=True)
        except (SyntaxError, ValueError, OverflowError):
            self.showsyntaxerror(filename)
        else:
            self.showsyntaxerror(filename)

    def _push_block(self, text):
        self.buffer += text.split("\n")
        source = "\n".join(self.buffer)
        try:
            tree = ast.parse(source, self.filename)
            compile(tree, self.filename, "exec")
        except (SyntaxError, ValueError, OverflowError):
            if self._may_go_on(source):
                return True
            self.showsyntaxerror(self.filename)
            self.resetbuffer()
            return False
        self.resetbuffer()
        self._failed = False
        for statement in tree.body:
            self.runcode(self.compile.compiler(ast.Interactive([statement]), self.filename, "single"))
            if self._failed:
                break
        return False

    @staticmethod
    def _may_go_on(source):
        try:
            return codeop.compile_command(source, symbol="exec") is None
        except (SyntaxError, ValueError, OverflowError):
            return False

    def _run_file(self, path, arguments):
        try:
            with open(path, "rb") as file:
                script = compile(file.read(), path, "exec", dont_inherit=True)
        except OSError as error:
            self.write(f'Cannot run "{path}": {error.strerror or error}.\n')
            return False
        except (SyntaxError, ValueError, OverflowError):
            self.showsyntaxerror(path)
            return False
        # All of it stays, as with `python3 -i`: what the script defines is used afterwards.
        folder = os.path.dirname(os.path.abspath(path))
        sys.path[:] = [folder] + [other for other in sys.path if other != folder]
        sys.argv = [path, *arguments]
        self.locals["__file__"] = path
        self.runcode(script)
        return False
