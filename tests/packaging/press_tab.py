#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints what a shell offers when the user presses the tab key: press_tab.py SHELL COMPLETION LINE

SHELL is bash or zsh, COMPLETION is the file with its completions for velmora-convert, and LINE is
what the user has typed. The completions may run velmora-convert, which must be in PATH.
"""

import fcntl
import os
import pty
import select
import signal
import struct
import sys
import termios

PROMPT = b"READY> "
PATIENCE = 60  # seconds
# Each setup text sets the prompt in two pieces, because the terminal echoes that text, and this
# script would otherwise take the echo for the prompt.
START = {
    "bash": (
        ["bash", "--norc", "--noprofile", "-i"],
        "for setting in 'show-all-if-ambiguous on' 'page-completions off' "
        "'completion-query-items 0' 'enable-bracketed-paste off'; do bind \"set $setting\"; done; "
        "source {file}; PS1='REA''DY> '",
    ),
    "zsh": (
        ["zsh", "-f", "-i"],
        "unsetopt prompt_sp; fpath=({folder} $fpath); autoload -Uz compinit; compinit -u -D; "
        "LISTMAX=0; bindkey '^I' list-choices; unset zle_bracketed_paste; PS1='REA''DY> '",
    ),
}


def read_until(terminal, ends):
    """Returns what the terminal prints, up to and including the first of the ends."""
    output = b""
    while not any(end in output for end in ends):
        if not select.select([terminal], [], [], PATIENCE)[0]:
            sys.exit(f"nothing more comes behind {output!r}")
        output += os.read(terminal, 65536)
    return output


def main():
    shell, completion, line = sys.argv[1:]
    command, setup = START[shell]
    process, terminal = pty.fork()
    if process == 0:
        os.environ["TERM"] = "dumb"
        os.execvp(command[0], command)
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 200, 300, 0, 0))
    setup = setup.format(file=completion, folder=os.path.dirname(completion))
    os.write(terminal, setup.encode() + b"\n")
    read_until(terminal, [PROMPT])
    os.write(terminal, line.encode() + b"\t")
    # The shell rings the bell if it offers nothing. Otherwise it prints its offers and then the
    # prompt again.
    print(read_until(terminal, [PROMPT, b"\a"]).decode())
    os.kill(process, signal.SIGKILL)


main()
