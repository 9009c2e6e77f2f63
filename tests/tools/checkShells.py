"""Real shells complete a tool's command line, and kivoconfig's own: keys are typed at a terminal.

    checkShells.py <project> <build directory>
"""
import os
import pty
import re
import select
import shutil
import sys
import tempfile
import time

PROJECT, BUILD = sys.argv[1:3]
SECONDS = 60  # until the shell has to have answered

# What is typed, <tab> being the key, and what the command line then is.
CASES = [
    ("tool -compr<tab>", "tool -compression "),
    ("tool -compression b<tab>", "tool -compression best "),
    ("tool -incremental -f<tab>", "tool -incremental -f"),
    ("tool -full true -keyFile note<tab>", "tool -full true -keyFile notes.txt "),
    ("tool -loadConfiguration sub<tab>", "tool -loadConfiguration subfolder/"),
    ("tool -keyFile a=b:note<tab>", "tool -keyFile a=b:notes.txt "),
    ("gnu --compression=b<tab>", "gnu --compression=best "),
    ("gnu --retention.d<tab>", "gnu --retention.days "),
    ("gnu --keyFile=note<tab>", "gnu --keyFile=notes.txt "),
    ("other -grade a:b<tab>", "other -grade a:b=c "),
    ("other -grade very<tab>", "other -grade very\\ good "),
    ("other -grade \"very<tab>", "other -grade \"very good\" "),
    ("other -folder s<tab>", "other -folder subfolder/"),
    ("other -nothing<tab>", "other -nothing"),
    ("kivoconfig temp<tab>kivob<tab>", "kivoconfig template kivobackup "),
    ("kivoconfig list --j<tab>", "kivoconfig list --json "),
    ("kivoconfig completion z<tab>", "kivoconfig completion zsh "),
    ("kivoconfig explain kivobackup --ch<tab>", "kivoconfig explain kivobackup --changed "),
    ("kivoconfig explain kivobackup --setting retention.d<tab>", "kivoconfig explain kivobackup --setting retention.days "),
    ("kivoconfig check kivobackup --config note<tab>", "kivoconfig check kivobackup --config notes.txt "),
    ("kivoconfig check kivobackup -- -compression b<tab>", "kivoconfig check kivobackup -- -compression best "),
    ("kivoconfig check kivobackup --gnu -- --compr<tab>", "kivoconfig check kivobackup --gnu -- --compression "),
    ("kivoconfig check kivobackup --gnu -- --compression=b<tab>", "kivoconfig check kivobackup --gnu -- --compression=best "),
    ("kivoconfig check names -- -grade \"very<tab>", "kivoconfig check names -- -grade \"very good\" "),
    ("kivoconfig check nothing -- -gr<tab>", "kivoconfig check nothing -- -gr"),
    ("kivoconfig check kivobackup -- -keyFile note<tab>", "kivoconfig check kivobackup -- -keyFile notes.txt "),
]

SHELLS = {
    "bash": ["bash", "--norc", "--noprofile", "-i"],
    "zsh": ["zsh", "-f", "-i"],
}
SET_UP = {
    "bash": "bind 'set enable-bracketed-paste off'; bind 'set bell-style none'; show() { printf '\\n<%s>\\n' \"$READLINE_LINE\"; READLINE_LINE=; };"
            " bind -x '\"\\C-o\": show'; source {own}; source <(kivoconfig completion bash tool kivobackup);"
            " source <(kivoconfig completion bash other names);"
            " source <(kivoconfig completion bash gnu kivobackup --gnu); PS1=; echo rea''dy",
    "zsh": "unsetopt zle_bracketed_paste prompt_cr prompt_sp beep; PS1=; fpath=({folder} $fpath); autoload -U compinit && compinit -u -D;"
           " zstyle ':completion:*' list-prompt ''; show() {{ print -r -- $'\\n'\"<$BUFFER>\"; BUFFER=; }}; zle -N show; bindkey '^O' show;"
           " source <(kivoconfig completion zsh tool kivobackup); source <(kivoconfig completion zsh other names);"
           " source <(kivoconfig completion zsh gnu kivobackup --gnu); echo rea''dy",
}


class Terminal:
    """A shell at a terminal of its own."""

    def __init__(self, command):
        process, self.terminal = pty.fork()
        if process == 0:
            os.execvp(command[0], command)
        self.seen = ""

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def wait(self, pattern):
        """The first match in what the shell shows from now on."""
        end = time.monotonic() + SECONDS
        while not (found := re.search(pattern, self.seen)):
            ready = select.select([self.terminal], [], [], max(0, end - time.monotonic()))[0]
            if not ready:
                sys.exit("the shell does not show %s but %r" % (pattern, self.seen[-2000:]))
            self.seen += os.read(self.terminal, 4096).decode("utf-8", "replace")
        self.seen = self.seen[found.end():]
        return found


def check(shell):
    terminal = Terminal(SHELLS[shell])
    own = PROJECT + "/tools/kivoconfig/completion/kivoconfig.bash"
    set_up = SET_UP[shell].replace("{own}", own).replace("{folder}", os.getcwd() + "/functions")
    terminal.type(set_up.replace("{{", "{").replace("}}", "}") + "\n")
    terminal.wait("ready\r\n")
    failures = 0
    for keys, expected in CASES:
        terminal.type(keys.replace("<tab>", "\t") + "\x0f")
        line = terminal.wait("\n<([^>\r\n]*)>").group(1)
        # zsh leaves the blank after a word to the next key where it may still take it back.
        if line.rstrip() != expected.rstrip():
            print("%s: %s: %r, expected %r" % (shell, keys, line, expected))
            failures += 1
    terminal.type("exit\n")
    return failures


def main():
    os.environ.update(PATH=BUILD + "/tools/bin:" + os.environ["PATH"], KIVO_HOME="installation", TERM="dumb",
                      LC_ALL="C", HISTFILE="/dev/null")
    for name in ("KIVO_ETC_DIR", "KIVO_PLUGINS_DIR", "KIVO_CONFIG_DIR", "KIVO_MAIN_LOG"):
        os.environ.pop(name, None)
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        os.environ["HOME"] = os.environ["ZDOTDIR"] = work
        shutil.copytree(BUILD + "/examples/installation", "installation")
        shutil.copy(PROJECT + "/tests/data/tools/names.crg", "installation/etc/")
        os.mkdir("subfolder")
        os.mkdir("functions")
        shutil.copy(PROJECT + "/tools/kivoconfig/completion/kivoconfig.zsh", "functions/_kivoconfig")
        for name in ("notes.txt", "a=b:notes.txt"):
            with open(name, "w", encoding="utf-8"):
                pass
        sys.exit(sum(map(check, SHELLS)) > 0)


main()
